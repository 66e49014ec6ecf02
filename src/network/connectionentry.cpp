#include "network/connectionentry.h"

#include "network/networkindex_p.h"

#include <algorithm>

namespace sigdb {

namespace {

unsigned int idAt(int id)
{
    return static_cast<unsigned int>(id);
}

/// The text held before the modification date in the element base: compared only when both
/// sides hold one.
bool equalWhereBothHold(const base::DbDataType<std::string> &a, const base::DbDataType<std::string> &b)
{
    return a.isNull() || b.isNull() || a.getData() == b.getData();
}

// Connection equality in three parts: the fields that every comparison looks at, the identity
// (TID, modification date and user) that counts only between two connections on the same side
// of layer 1 (layersDiffer() is exactly: one of the two in layer 1, the other not), and the
// creation dates that count only where both connections hold one.

bool sameCommonFields(const ConnectionEntry &a, const ConnectionEntry &b)
{
    return a.connectionFlag == b.connectionFlag && a.secondNumber == b.secondNumber
        && a.modificationState == b.modificationState && a.name() == b.name()
        && a.fromDefinition == b.fromDefinition && a.toDefinition == b.toDefinition;
}

bool sameIdentity(const ConnectionEntry &a, const ConnectionEntry &b)
{
    return a.tid() == b.tid() && a.modificationDate() == b.modificationDate()
        && a.modificationUser() == b.modificationUser();
}

// Hashes that agree with those equalities: every field the equality compares goes in.

std::size_t elementHash(const SigdbElement &element)
{
    return ElementKeyHash()(ElementKey(element));
}

std::size_t overviewHash(const ElementOverview &o)
{
    std::size_t seed = elementHash(o.element);
    hashCombine(seed, elementHash(o.relatedElement));
    for (const base::DbDataType<std::string> *text : {&o.keyText1, &o.keyText2, &o.keyText3, &o.exchgIdText,
                                                      &o.infoText2, &o.infoText3, &o.infoText4})
        hashCombine(seed, nullableHash(*text));
    hashCombine(seed, nullableHash(o.locationIndication));
    hashCombine(seed, nullableHash(o.modificationState));
    hashCombine(seed, nullableHash(o.linkModificationState));
    hashCombine(seed, nullableHash(o.networkTypeWord));
    hashCombine(seed, nullableHash(o.auxiliaryTid));
    hashCombine(seed, nullableHash(o.collocationGroupLeader));
    hashCombine(seed, std::hash<int>()(o.collocationModificationState()));
    const auto locationHash = [](const LocationEntry &location) {
        std::size_t value = nullableHash(location.latitude);
        hashCombine(value, nullableHash(location.longitude));
        hashCombine(value, nullableHash(location.validFrom));
        hashCombine(value, nullableHash(location.indication));
        hashCombine(value, nullableHash(location.modification));
        return value;
    };
    hashCombine(seed, locationHash(o.location));
    for (const LocationEntry &location : o.locationList.container())
        hashCombine(seed, locationHash(location));
    for (const SigdbElement &linked : o.uniqueLinks.container())
        hashCombine(seed, elementHash(linked));
    return seed;
}

std::size_t definitionHash(const ConnectionEntryDefinition &end)
{
    std::size_t seed = overviewHash(end.overview);
    hashCombine(seed, nullableHash(end.firstText));
    hashCombine(seed, nullableHash(end.secondText));
    hashCombine(seed, elementHash(end.element));
    hashCombine(seed, nullableHash(end.rcs));
    hashCombine(seed, nullableHash(end.relay));
    return seed;
}

std::size_t commonFieldsHash(const ConnectionEntry &c)
{
    std::size_t seed = nullableHash(c.connectionFlag);
    hashCombine(seed, nullableHash(c.secondNumber));
    hashCombine(seed, nullableHash(c.modificationState));
    hashCombine(seed, nullableHash(c.name()));
    hashCombine(seed, definitionHash(c.fromDefinition));
    hashCombine(seed, definitionHash(c.toDefinition));
    return seed;
}

/// One way of looking at a connection under which connection equality is an equivalence: the
/// view fixes the side of layer 1 it stands for, whether the identity is compared, and what it
/// takes of the creation date. Two connections are equal exactly when a view of the one under
/// which it is stored equals a view of the other under which it is looked for.
struct ConnectionView
{
    enum CreationDate : unsigned char {
        /// The creation date is not looked at (it is NULL on the side looking).
        AnyCreationDate,
        /// Stands for a connection without creation date.
        NoCreationDate,
        /// Compares the creation date.
        OwnCreationDate,
    };

    const ConnectionEntry *connection;
    std::size_t commonHash;
    bool inLayerOne;
    bool withIdentity;
    CreationDate creationDate;
};

struct ConnectionViewHash
{
    std::size_t operator()(const ConnectionView &view) const
    {
        std::size_t seed = view.commonHash;
        hashCombine(seed, static_cast<std::size_t>(view.inLayerOne) * 2 + view.withIdentity);
        hashCombine(seed, view.creationDate);
        if (view.withIdentity) {
            hashCombine(seed, nullableHash(view.connection->tid()));
            hashCombine(seed, nullableHash(view.connection->modificationDate()));
            hashCombine(seed, nullableHash(view.connection->modificationUser()));
        }
        if (view.creationDate == ConnectionView::OwnCreationDate)
            hashCombine(seed, nullableHash(view.connection->creationDate()));
        return seed;
    }
};

struct ConnectionViewEqual
{
    bool operator()(const ConnectionView &a, const ConnectionView &b) const
    {
        return a.inLayerOne == b.inLayerOne && a.withIdentity == b.withIdentity
            && a.creationDate == b.creationDate && a.commonHash == b.commonHash
            && sameCommonFields(*a.connection, *b.connection)
            && (!a.withIdentity || sameIdentity(*a.connection, *b.connection))
            && (a.creationDate != ConnectionView::OwnCreationDate
                || a.connection->creationDate() == b.connection->creationDate());
    }
};

/// Whether every connection of \a mine has an equal connection somewhere in \a other.
///
/// A connection looks on its own side of layer 1 with its identity and on the other side
/// without; with no creation date it takes any, with one it takes an equal one or none. A
/// stored connection is therefore found through those of its views that some connection of
/// \a mine looks for: with its identity on its own side, without it for the other side, with
/// any creation date, and with its own (or none). Usually all connections share one layer and
/// either all or none carry a creation date, and each is stored once.
bool everyConnectionFoundIn(const std::vector<ConnectionEntry> &mine, const std::vector<ConnectionEntry> &other)
{
    bool lookingFromSide[2] = {false, false};
    bool lookingWithoutDate = false;
    bool lookingWithDate = false;
    for (const ConnectionEntry &c : mine) {
        lookingFromSide[c.layer() == 1] = true;
        (c.creationDate().isNull() ? lookingWithoutDate : lookingWithDate) = true;
    }
    const auto stored = [&](const ConnectionEntry &c, auto &&add) {
        const std::size_t common = commonFieldsHash(c);
        const bool inLayerOne = c.layer() == 1;
        const auto dated = c.creationDate().isNull() ? ConnectionView::NoCreationDate : ConnectionView::OwnCreationDate;
        for (const bool withIdentity : {true, false}) {
            if (!lookingFromSide[withIdentity ? inLayerOne : !inLayerOne])
                continue;
            if (lookingWithoutDate)
                add(ConnectionView{&c, common, inLayerOne, withIdentity, ConnectionView::AnyCreationDate});
            if (lookingWithDate)
                add(ConnectionView{&c, common, inLayerOne, withIdentity, dated});
        }
    };
    const auto wanted = [](const ConnectionEntry &c, auto &&find) {
        const std::size_t common = commonFieldsHash(c);
        const bool inLayerOne = c.layer() == 1;
        for (const bool sameSide : {true, false}) {
            const bool side = sameSide ? inLayerOne : !inLayerOne;
            if (c.creationDate().isNull()) {
                find(ConnectionView{&c, common, side, sameSide, ConnectionView::AnyCreationDate});
            } else {
                find(ConnectionView{&c, common, side, sameSide, ConnectionView::OwnCreationDate});
                find(ConnectionView{&c, common, side, sameSide, ConnectionView::NoCreationDate});
            }
        }
    };
    return everyEntryMatchedIn<ConnectionView>(mine, other, ConnectionViewHash(), ConnectionViewEqual(), stored,
                                               wanted);
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
    return sameCommonFields(a, b) && (ConnectionEntry::layersDiffer(a.layer(), b.layer()) || sameIdentity(a, b))
        && equalWhereBothHold(a.creationDate(), b.creationDate());
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
    return count() == other.count() && everyConnectionFoundIn(m_entries, other.m_entries);
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
