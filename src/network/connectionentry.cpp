#include "network/connectionentry.h"

#include "network/networkindex_p.h"

#include <algorithm>

namespace sigdb {

namespace {

unsigned int idAt(int id)
{
    return static_cast<unsigned int>(id);
}

/// A hash that agrees with connection equality: it covers only what every comparison of two
/// connections looks at (not the TID, which layers can exempt).
std::size_t connectionHash(const ConnectionEntry &entry)
{
    std::size_t seed = nullableHash(entry.connectionFlag);
    hashCombine(seed, nullableHash(entry.secondNumber));
    hashCombine(seed, nullableHash(entry.modificationState));
    hashCombine(seed, nullableHash(entry.name()));
    hashCombine(seed, ElementKeyHash()(ElementKey(entry.fromDefinition.element)));
    hashCombine(seed, ElementKeyHash()(ElementKey(entry.toDefinition.element)));
    return seed;
}

/// The text held before the modification date in the element base: compared only when both
/// sides hold one.
bool equalWhereBothHold(const base::DbDataType<std::string> &a, const base::DbDataType<std::string> &b)
{
    return a.isNull() || b.isNull() || a.getData() == b.getData();
}

} // namespace

ConnectionEntry::ConnectionEntry()
{
    ConnectionEntry::reset();
}

ConnectionEntry::ConnectionEntry(const ConnectionEntry &other) = default;

ConnectionEntry::ConnectionEntry(const SigdbElement &element)
    : ElementBaseName(element)
    , connectionFlag(true)
{
}

ConnectionEntry::~ConnectionEntry() = default;

ConnectionEntry &ConnectionEntry::operator=(const ConnectionEntry &other)
{
    if (this == &other)
        return *this;
    ElementBaseName::operator=(other);
    fromDefinition = other.fromDefinition;
    toDefinition = other.toDefinition;
    connectionFlag = other.connectionFlag;
    modificationState = other.modificationState;
    secondNumber = other.secondNumber;
    indexInList = other.indexInList;
    indexInListCopy = other.indexInListCopy;
    return *this;
}

base::DbBaseType *ConnectionEntry::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ConnectionEntry>(source);
}

void ConnectionEntry::reset()
{
    ElementBaseName::reset();
    setType(ElementType);
    fromDefinition.reset();
    toDefinition.reset();
    connectionFlag = true;
    modificationState = base::DbDataType<int>();
    secondNumber = base::DbDataType<int>();
    indexInList = -1;
    indexInListCopy = -1;
}

void ConnectionEntry::serialize(QByteArray &) const
{
}

void ConnectionEntry::setLayer(int layer)
{
    toDefinition.element.setLayer(layer);
    fromDefinition.element.setLayer(layer);
    ElementBaseName::setLayer(layer);
}

int ConnectionEntry::setIDs(int start)
{
    const int c = ElementBaseName::setIDs(start) + 1;
    connectionFlag.setID(idAt(c));
    modificationState.setID(idAt(c + 1));
    secondNumber.setID(idAt(c + 2));
    // c + 3 is left out on purpose: the from end's columns start at c + 4.
    const int fromEnd = fromDefinition.setIDs(c + 3);
    return toDefinition.setIDs(fromEnd);
}

bool ConnectionEntry::hasModificationState(int state) const
{
    return !modificationState.isNull() && modificationState.getData() == state;
}

bool ConnectionEntry::layersDiffer(int a, int b)
{
    return a != b && (a == 1 || b == 1);
}

bool ConnectionEntry::isEqualWithoutModStateAndToDefinition(const ConnectionEntry &other) const
{
    return connectionFlag == other.connectionFlag
        && (layersDiffer(layer(), other.layer()) || tid() == other.tid())
        && secondNumber == other.secondNumber && fromDefinition == other.fromDefinition;
}

bool ConnectionEntry::isEqualWithoutModState(const ConnectionEntry &other) const
{
    return isEqualWithoutModStateAndToDefinition(other) && toDefinition == other.toDefinition;
}

void ConnectionEntry::compareWithEntry(ConnectionEntry *other)
{
    if (!other)
        return;
    const bool sameTo = toDefinition.element == other->toDefinition.element;
    const bool sameRest = isEqualWithoutModStateAndToDefinition(*other)
        && toDefinition.rcs == other->toDefinition.rcs
        && toDefinition.relay == other->toDefinition.relay
        && toDefinition.secondText == other->toDefinition.secondText
        && toDefinition.firstText == other->toDefinition.firstText;

    if (sameRest) {
        if (!sameTo)
            toDefinition.element = other->toDefinition.element;
        modificationState = sameTo ? State_Unchanged : State_ToChanged;
        indexInListCopy = other->indexInList;
        return;
    }
    // The edited connection replaces the stored one, keeping the stored position.
    other->modificationState = sameTo ? State_Changed : State_ToAndRestChanged;
    other->indexInList = indexInList;
    *this = *other;
}

ElementOverview ConnectionEntry::toResult() const
{
    ElementOverview result;
    result.element = *this;
    result.relatedElement = fromDefinition.element;
    result.keyText1 = name();
    result.exchgIdText = exchgId();
    const auto displayName = [](const ConnectionEntryDefinition &end) {
        const std::string text = end.name();
        return text.empty() ? base::DbDataType<std::string>() : base::DbDataType<std::string>(text);
    };
    result.infoText2 = displayName(fromDefinition);
    result.infoText3 = displayName(toDefinition);
    result.setLayer(layer());
    return result;
}

bool operator==(const ConnectionEntry &a, const ConnectionEntry &b)
{
    if (!a.isEqualWithoutModState(b) || a.modificationState != b.modificationState
        || a.secondNumber != b.secondNumber || a.name() != b.name())
        return false;
    if (!ConnectionEntry::layersDiffer(a.layer(), b.layer())
        && (a.modificationDate() != b.modificationDate()
            || a.modificationUser() != b.modificationUser()))
        return false;
    return equalWhereBothHold(a.creationDate(), b.creationDate());
}

bool operator!=(const ConnectionEntry &a, const ConnectionEntry &b)
{
    return !(a == b);
}

ConnectionEntryList::ConnectionEntryList() = default;
ConnectionEntryList::ConnectionEntryList(const ConnectionEntryList &other) = default;
ConnectionEntryList::~ConnectionEntryList() = default;

ConnectionEntryList &ConnectionEntryList::operator=(const ConnectionEntryList &other) = default;

base::DbBaseType *ConnectionEntryList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<ConnectionEntryList>(source);
}

ConnectionEntry ConnectionEntryList::entryAt(int index) const
{
    const ConnectionEntry *entry = entryReferenceAt(index);
    return entry ? *entry : ConnectionEntry();
}

ConnectionEntry *ConnectionEntryList::entryReferenceAt(int index)
{
    return index >= 0 && index < count() ? &m_entries[static_cast<size_t>(index)] : nullptr;
}

const ConnectionEntry *ConnectionEntryList::entryReferenceAt(int index) const
{
    return index >= 0 && index < count() ? &m_entries[static_cast<size_t>(index)] : nullptr;
}

bool ConnectionEntryList::contains(const ConnectionEntry &entry) const
{
    return std::find(m_entries.begin(), m_entries.end(), entry) != m_entries.end();
}

bool ConnectionEntryList::compareList(const ConnectionEntryList &other) const
{
    return count() == other.count() && everyEntryFoundIn(m_entries, other.m_entries, connectionHash);
}

void ConnectionEntryList::setIndexInListValueForEntries()
{
    int position = 0;
    for (ConnectionEntry &entry : m_entries) {
        entry.indexInList = position;
        entry.indexInListCopy = position;
        ++position;
    }
}

ConnectionEntry *ConnectionEntryList::getEntryWithConnectionTid(base::DbDataType<unsigned long long> tid)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&tid](const ConnectionEntry &entry) { return entry.tid() == tid; });
    return found == m_entries.end() ? nullptr : &*found;
}

int ConnectionEntryList::getFirstIndexForElementdefinition(const SigdbElement &element) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&element](const ConnectionEntry &entry) {
        return entry.fromDefinition.element == element || entry.toDefinition.element == element;
    });
    return found == m_entries.end() ? -1 : static_cast<int>(found - m_entries.begin());
}

ConnectionEntryDefinition ConnectionEntryList::getConnectionEntryDefinition(const SigdbElement &element) const
{
    for (const ConnectionEntry &entry : m_entries) {
        if (entry.fromDefinition.element == element)
            return entry.fromDefinition;
        if (entry.toDefinition.element == element)
            return entry.toDefinition;
    }
    return ConnectionEntryDefinition();
}

SigdbElement ConnectionEntryList::getFirstElementdefinitionOrRCS() const
{
    SigdbElement result;
    for (const ConnectionEntry &entry : m_entries) {
        const SigdbElement &from = entry.fromDefinition.element;
        if (!from.isUndefined()) {
            if (result.isUndefined())
                result = from;
            if (entry.fromDefinition.isRCS())
                return from;
        }
        const SigdbElement &to = entry.toDefinition.element;
        if (!to.isUndefined() && entry.toDefinition.isRCS())
            result = to;
    }
    return result;
}

bool operator==(const ConnectionEntryList &a, const ConnectionEntryList &b)
{
    return a.compareList(b);
}

} // namespace sigdb
