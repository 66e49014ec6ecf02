#include "network/callsigntable.h"

#include "core/diagnostics.h"
#include "network/callsigntabletext.h"
#include "network/networkindex_p.h"
#include "network/tableconversion_p.h"

#include <unordered_map>
#include <unordered_set>

namespace sigdb {

using tableconversion::entryOf;

CallsignTable::CallsignTable() = default;
CallsignTable::CallsignTable(const CallsignTable &other) = default;
CallsignTable::~CallsignTable() = default;

CallsignTable &CallsignTable::operator=(const CallsignTable &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    connections = other.connections;
    sets = other.sets;
    overview = other.overview;
    return *this;
}

base::DbBaseType *CallsignTable::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<CallsignTable>(source);
}

void CallsignTable::reset()
{
    connections.reset();
    sets.reset();
    overview.reset();
}

void CallsignTable::serialize(QByteArray &) const
{
}

void CallsignTable::setLayer(int layer)
{
    connections.setLayer(layer);
    sets.setLayer(layer);
}

int CallsignTable::setIDs(int start)
{
    return sets.setIDs(connections.setIDs(start + 1));
}

void CallsignTable::setAllNew(base::DbDataType<std::string> user)
{
    for (ConnectionEntry &connection : connections.container()) {
        connection.modificationState = ConnectionEntry::State_New;
        connection.modificationUser() = user;
        connection.tid() = base::DbDataType<unsigned long long>();
    }
}

CallsignTable CallsignTable::cloneAsNew(base::DbDataType<std::string> user) const
{
    CallsignTable clone(*this);
    clone.setAllNew(user);
    return clone;
}

void CallsignTable::mergeTable(CallsignTable &edited, base::DbDataType<std::string> user, bool addNew)
{
    if (&edited == this) {
        CallsignTable copy(edited);
        mergeTable(copy, user, addNew);
        return;
    }
    std::vector<ConnectionEntry> &stored = connections.container();
    std::vector<ConnectionEntry> &editedConnections = edited.connections.container();
    edited.connections.setIndexInListValueForEntries();
    connections.setIndexInListValueForEntries();

    // The first edited connection of every TID, as a walk from the front finds it.
    std::unordered_map<unsigned long long, ConnectionEntry *> editedByTid;
    editedByTid.reserve(editedConnections.size());
    for (ConnectionEntry &connection : editedConnections)
        if (!connection.isTIDundefined())
            editedByTid.emplace(connection.TID(), &connection);

    for (size_t i = 0; i < stored.size(); ++i) {
        ConnectionEntry &connection = stored[i];
        if (connection.isTIDundefined()) {
            // A table that was never stored whole cannot be merged: it is replaced.
            diagnostic("CallsignTable::mergeTable:: initial NULL TID detected. Copy table - no merge\n");
            connections = edited.connections;
            sets = edited.sets;
            overview = edited.overview;
            base::DbBaseType::setLayer(edited.layer());
            setAllNew(user);
            return;
        }
        const auto found = editedByTid.find(connection.TID());
        if (found == editedByTid.end())
            connection.modificationState = ConnectionEntry::State_Removed;
        else
            connection.compareWithEntry(found->second);
        if (!connection.hasModificationState(ConnectionEntry::State_Unchanged))
            connection.modificationUser() = user;
    }

    std::unordered_set<unsigned long long> storedTids;
    storedTids.reserve(stored.size());
    for (const ConnectionEntry &connection : stored)
        storedTids.insert(connection.TID());
    std::vector<ConnectionEntry *> added;
    for (ConnectionEntry &connection : editedConnections) {
        if (!connection.isTIDundefined()) {
            if (!addNew || !storedTids.insert(connection.TID()).second)
                continue;
        }
        connection.modificationState = ConnectionEntry::State_New;
        connection.modificationUser() = user;
        added.push_back(&connection);
    }
    stored.reserve(stored.size() + added.size());
    for (const ConnectionEntry *connection : added)
        stored.push_back(*connection);

    // Rebuild the sets in the merged connection order. An entry that a set lacks is taken as
    // an empty entry, and a missing entry on either side counts as a change.
    std::vector<CallsignSet> merged;
    merged.reserve(edited.sets.container().size());
    const std::vector<CallsignSet> &storedSets = sets.container();
    size_t setIndex = 0;
    for (const CallsignSet &editedSet : edited.sets.container()) {
        const CallsignSet *storedSet = setIndex < storedSets.size() ? &storedSets[setIndex] : nullptr;
        ++setIndex;
        merged.emplace_back();
        CallsignEntryList &rebuilt = merged.back().entries;
        rebuilt.container().reserve(stored.size());
        for (ConnectionEntry &connection : stored) {
            if (connection.hasModificationState(ConnectionEntry::State_Removed)) {
                rebuilt.appendEntry(CallsignEntry());
                continue;
            }
            const CallsignEntry *editedEntry = entryOf(editedSet.entries, connection.indexInListCopy);
            rebuilt.appendEntry(editedEntry ? *editedEntry : CallsignEntry());
            const bool unchanged = connection.hasModificationState(ConnectionEntry::State_Unchanged);
            if (!unchanged && !connection.hasModificationState(ConnectionEntry::State_ToChanged))
                continue;
            const CallsignEntry *storedEntry =
                storedSet ? entryOf(storedSet->entries, connection.indexInList) : nullptr;
            if (storedEntry && editedEntry && *storedEntry == *editedEntry)
                continue;
            if (unchanged) {
                connection.modificationState = ConnectionEntry::State_Changed;
                connection.modificationUser() = user;
            } else {
                connection.modificationState = ConnectionEntry::State_ToAndRestChanged;
            }
        }
    }
    sets.container().swap(merged);
}

void CallsignTable::addCallsign(base::DbDataType<std::string> &target, base::DbDataType<std::string> callsign)
{
    if (target.isNull() || target.getData().empty()) {
        target = callsign;
        return;
    }
    const std::string &joined = target.getData();
    const std::string &text = callsign.getData();
    if (text.empty() || text == joined)
        return;
    if (joined.find(text + "/") != std::string::npos || joined.find("/" + text) != std::string::npos)
        return;
    target = joined + "/" + text;
}

std::vector<ConnectionEntryDefinition> CallsignTable::mainEntryList() const
{
    std::vector<ConnectionEntryDefinition> result;
    ElementPositions taken;
    for (const ConnectionEntry &connection : connections.container()) {
        for (const ConnectionEntryDefinition *end : {&connection.fromDefinition, &connection.toDefinition}) {
            const SigdbElement &element = end->element;
            if (element.type() != 0 && !element.isTIDundefined() && end->isRCS()
                && taken.insert(element, static_cast<int>(result.size())))
                result.push_back(*end);
        }
    }
    return result;
}

CallsignTable CallsignTable::asStar() const
{
    using namespace tableconversion;
    GatheredMembers star(&CallsignEntry::firstCallsign, &CallsignEntry::secondCallsign,
                         &ConnectionEntry::fromDefinition);
    const auto gatherEnd = [&star](const ConnectionEntryDefinition &end, const EndCallsigns &callsigns,
                                   const char *countText) {
        if (end.element.isUndefined() || star.addKnownMember(end, callsigns, countText))
            return;
        ConnectionEntry connection = memberConnection(star.nextNumber());
        connection.fromDefinition = end;
        star.addMember(end.element, connection, star.withMemberCallsigns(CallsignEntry(), callsigns));
    };

    walkWithFirstSetEntries(*this, kStarTexts, [&](const ConnectionEntry &connection, const CallsignEntry *entry) {
        gatherEnd(connection.fromDefinition,
                  entry ? EndCallsigns{&entry->firstCallsign, &entry->secondCallsign} : EndCallsigns{},
                  kStarTexts.fromEndCount);
        gatherEnd(connection.toDefinition,
                  entry ? EndCallsigns{&entry->thirdCallsign, &entry->fourthCallsign} : EndCallsigns{},
                  kStarTexts.toEndCount);
    });
    return star.result(*this, ElementOverview::NetworkType_Star);
}

CallsignTable CallsignTable::asHierarchical(const SigdbElement &centre) const
{
    using namespace tableconversion;
    const SigdbElement centreElement =
        centre.isUndefined() ? connections.getFirstElementdefinitionOrRCS() : centre;
    const ConnectionEntryDefinition centreEnd = connections.getConnectionEntryDefinition(centreElement);
    if (centreEnd.element.isUndefined())
        return *this;

    GatheredMembers members(&CallsignEntry::thirdCallsign, &CallsignEntry::fourthCallsign,
                            &ConnectionEntry::toDefinition);
    Callsign centreFirst;
    Callsign centreSecond;
    const auto gatherEnd = [&](const ConnectionEntryDefinition &end, const EndCallsigns &callsigns,
                               const char *countText) {
        if (end.element.isUndefined())
            return;
        if (end.element == centreElement) {
            addCallsign(centreFirst, *callsigns.first);
            addCallsign(centreSecond, *callsigns.second);
            return;
        }
        if (members.addKnownMember(end, callsigns, countText))
            return;
        ConnectionEntry connection = memberConnection(members.nextNumber());
        connection.fromDefinition = centreEnd;
        connection.toDefinition = end;
        connection.toDefinition.rcs = false;
        CallsignEntry entry;
        entry.firstCallsign = std::string("n/a");
        entry.secondCallsign = std::string("n/a");
        members.addMember(end.element, connection, members.withMemberCallsigns(entry, callsigns));
    };

    walkWithFirstSetEntries(*this, kHierarchicalTexts,
                            [&](const ConnectionEntry &connection, const CallsignEntry *entry) {
                                // Without its callsigns a connection says nothing about the
                                // hierarchy.
                                if (!entry)
                                    return;
                                gatherEnd(connection.fromDefinition,
                                          {&entry->firstCallsign, &entry->secondCallsign},
                                          kHierarchicalTexts.fromEndCount);
                                gatherEnd(connection.toDefinition,
                                          {&entry->thirdCallsign, &entry->fourthCallsign},
                                          kHierarchicalTexts.toEndCount);
                            });
    members.nameCentre(centreFirst, centreSecond);
    addLoneCentre(*this, members);

    CallsignTable result = members.result(*this, ElementOverview::NetworkType_Hierarchical);
    diagnostic("AS HIERARCHICAL\n");
    return result;
}

QString CallsignTable::toText() const
{
    return CallsignTableText::write(*this);
}

bool CallsignTable::fromText(const QString &text)
{
    return CallsignTableText::read(text, *this);
}

QByteArray CallsignTable::toUtf8Text() const
{
    return CallsignTableText::writeUtf8(*this);
}

bool CallsignTable::fromUtf8Text(const QByteArray &text)
{
    return CallsignTableText::readUtf8(text, *this);
}

bool operator==(const CallsignTable &a, const CallsignTable &b)
{
    return a.connections.compareList(b.connections) && a.sets.compareList(b.sets)
        && a.overview == b.overview;
}

bool operator!=(const CallsignTable &a, const CallsignTable &b)
{
    return !(a == b);
}

} // namespace sigdb
