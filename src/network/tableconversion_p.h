#ifndef SIGDB_NETWORK_TABLECONVERSION_P_H
#define SIGDB_NETWORK_TABLECONVERSION_P_H

#include "core/diagnostics.h"
#include "network/callsigntable.h"
#include "network/networkindex_p.h"

#include <string>
#include <vector>

// The building blocks shared by the star and the hierarchical conversion of a callsign table.

namespace sigdb {
namespace tableconversion {

using Callsign = base::DbDataType<std::string>;
using CallsignSlot = Callsign CallsignEntry::*;
using EndSlot = ConnectionEntryDefinition ConnectionEntry::*;

/// Entry \a index of \a entries; null when there is none.
inline const CallsignEntry *entryOf(const CallsignEntryList &entries, int index)
{
    return index >= 0 && index < entries.count() ? &entries.container()[static_cast<size_t>(index)]
                                                 : nullptr;
}

/// The two callsigns that one end of a source connection carries into a conversion; absent
/// when the first set holds no entry for the connection.
struct EndCallsigns
{
    const Callsign *first = nullptr;
    const Callsign *second = nullptr;

    bool present() const { return first != nullptr; }
};

/// The diagnostic texts of one conversion. The from-end and to-end count texts differ by the
/// blank before the line end; both are kept exactly, since logs are searched for them.
struct ConversionTexts
{
    const char *missingEntry;
    const char *fromEndCount;
    const char *toEndCount;
};

inline constexpr ConversionTexts kStarTexts = {
    "___ERROR___ CallsignTable::asStar::no call sign entry for connection\n",
    "___ERROR___ CallsignTable::asStar:: callsignEntryList.count() %d < index %d\n",
    "___ERROR___ CallsignTable::asStar:: callsignEntryList.count() %d < index %d \n",
};

inline constexpr ConversionTexts kHierarchicalTexts = {
    "___ERROR___ CallsignTable::asHierarchical::no call sign entry for connection\n",
    "___ERROR___ CallsignTable::asHierarchical:: callsignEntryList.count() %d < index %d\n",
    "___ERROR___ CallsignTable::asHierarchical:: callsignEntryList.count() %d < index %d \n",
};

/// Walks the connections of \a table in order, each with the entry of the first callsign set
/// at its position (null once the set has no more entries, which is reported).
template <typename Visit>
void walkWithFirstSetEntries(const CallsignTable &table, const ConversionTexts &texts, Visit visit)
{
    const CallsignEntryList *source =
        table.sets.count() > 0 ? &table.sets.container().front().entries : nullptr;
    int next = 0;
    for (const ConnectionEntry &connection : table.connections.container()) {
        const CallsignEntry *entry = source ? entryOf(*source, next) : nullptr;
        if (entry)
            ++next;
        else
            diagnostic("%s", texts.missingEntry);
        visit(connection, entry);
    }
}

/// A connection made by a conversion for one member: new, named "no name", numbered.
inline ConnectionEntry memberConnection(int number)
{
    ConnectionEntry connection;
    connection.name() = std::string("no name");
    connection.secondNumber = number;
    connection.modificationState = ConnectionEntry::State_New;
    return connection;
}

/// The new connections of a conversion, one per member element, with the member's callsign
/// entry at the same position. Each member's own callsigns are gathered in two slots of its
/// entry, and a relay flag met at any of its occurrences is passed on to one end of its
/// connection.
class GatheredMembers
{
public:
    GatheredMembers(CallsignSlot first, CallsignSlot second, EndSlot memberEnd)
        : m_first(first)
        , m_second(second)
        , m_memberEnd(memberEnd)
    {
    }

    /// Position of the connection of \a member; -1 for an element not met before.
    int positionOf(const SigdbElement &member) const { return m_positions.find(member); }

    /// The next number for a member connection.
    int nextNumber() { return ++m_counter; }
    int lastNumber() const { return m_counter; }

    /// \a entry with the member's callsigns in the member slots (when present).
    CallsignEntry withMemberCallsigns(CallsignEntry entry, const EndCallsigns &callsigns) const
    {
        if (callsigns.present()) {
            entry.*m_first = *callsigns.first;
            entry.*m_second = *callsigns.second;
        }
        return entry;
    }

    /// Appends the connection and entry of \a member, met for the first time.
    void addMember(const SigdbElement &member, const ConnectionEntry &connection, const CallsignEntry &entry)
    {
        m_positions.insert(member, connections.count());
        connections.appendEntry(connection);
        entries.appendEntry(entry);
    }

    /// A member met again at \a position: its callsigns are joined into its entry and a relay
    /// end makes its connection's member end a relay. \a countText reports an entry missing at
    /// \a position.
    void addOccurrence(int position, const EndCallsigns &callsigns, bool relay, const char *countText)
    {
        if (position < 0)
            return;
        if (position < entries.count()) {
            if (callsigns.present()) {
                CallsignEntry &entry = entries.container()[static_cast<size_t>(position)];
                CallsignTable::addCallsign(entry.*m_first, *callsigns.first);
                CallsignTable::addCallsign(entry.*m_second, *callsigns.second);
            }
        } else {
            diagnostic(countText, entries.count(), position);
        }
        if (relay)
            if (ConnectionEntry *connection = connections.entryReferenceAt(position))
                (connection->*m_memberEnd).relay = true;
    }

    /// An end whose element was met before counts as one more occurrence of that member
    /// (addOccurrence()); returns false for an element not met before.
    bool addKnownMember(const ConnectionEntryDefinition &end, const EndCallsigns &callsigns, const char *countText)
    {
        const int position = positionOf(end.element);
        if (position < 0)
            return false;
        addOccurrence(position, callsigns, end.isRelay(), countText);
        return true;
    }

    /// Gives every member entry the centre's gathered callsigns as first and second callsign.
    /// An entry without a connection, or whose connection names no member, is reported and
    /// emptied (empty texts, not NULL).
    void nameCentre(const Callsign &centreFirst, const Callsign &centreSecond)
    {
        std::vector<CallsignEntry> &all = entries.container();
        for (size_t i = 0; i < all.size(); ++i) {
            CallsignEntry &entry = all[i];
            const ConnectionEntry *connection = connections.entryReferenceAt(static_cast<int>(i));
            const char *problem = nullptr;
            if (!connection)
                problem = "___ERROR___ CallsignTable::asHierarchical:: no connection entry\n";
            else if (connection->toDefinition.element.isUndefined())
                problem = "___ERROR___ CallsignTable::asHierarchical:: member A connection\n";
            if (problem) {
                diagnostic("%s", problem);
                for (CallsignSlot slot : {&CallsignEntry::firstCallsign, &CallsignEntry::secondCallsign,
                                          &CallsignEntry::thirdCallsign, &CallsignEntry::fourthCallsign})
                    entry.*slot = std::string();
                continue;
            }
            entry.firstCallsign = centreFirst;
            entry.secondCallsign = centreSecond;
        }
    }

    /// A copy of \a source whose connections and single set (texts NULL) are the gathered
    /// ones, with the network type \a networkType (replacing any membership flags of the
    /// word). Leaves this gathering empty.
    CallsignTable result(const CallsignTable &source, int networkType)
    {
        CallsignTable table;
        table.base::DbBaseType::operator=(source);
        table.overview = source.overview;
        table.overview.networkTypeWord = networkType;
        table.connections.container().swap(connections.container());
        CallsignSet set;
        set.entries.container().swap(entries.container());
        table.sets.appendEntry(set);
        return table;
    }

    ConnectionEntryList connections;
    CallsignEntryList entries;

private:
    CallsignSlot m_first;
    CallsignSlot m_second;
    EndSlot m_memberEnd;
    ElementPositions m_positions;
    int m_counter = 0;
};

/// When a hierarchy found no member besides its centre: for a table with connections, one
/// connection whose from end is the first connection's from end made an RCS, with the
/// callsigns of the first set's first entry; for a table without connections only the report.
inline void addLoneCentre(const CallsignTable &source, GatheredMembers &members)
{
    if (members.connections.count() > 0)
        return;
    if (source.connections.count() == 0) {
        diagnostic("___ERROR___ CallsignTable::asHierarchical:: no connection entry converted\n");
        return;
    }
    diagnostic("CallsignTable::asHierarchical:: only one member - create member A connection with RCS\n");
    ConnectionEntry connection = memberConnection(members.lastNumber() + 1);
    connection.fromDefinition = source.connections.container().front().fromDefinition;
    connection.fromDefinition.rcs = true;
    CallsignEntry entry;
    const CallsignEntryList *firstSet =
        source.sets.count() > 0 ? &source.sets.container().front().entries : nullptr;
    if (const CallsignEntry *first = firstSet ? entryOf(*firstSet, 0) : nullptr) {
        entry.firstCallsign = first->firstCallsign;
        entry.secondCallsign = first->secondCallsign;
    }
    members.connections.appendEntry(connection);
    members.entries.appendEntry(entry);
}

} // namespace tableconversion
} // namespace sigdb

#endif
