#ifndef SIGDB_NETWORK_CONNECTIONENTRY_H
#define SIGDB_NETWORK_CONNECTIONENTRY_H

#include "sigdbref_export.h"

#include "base/dbdatatype.h"
#include "core/elementbase.h"
#include "element/elementoverview.h"
#include "network/chainedlist.h"
#include "network/connectionentrydefinition.h"

namespace sigdb {

/// One connection of a network: an element of its own (type 30) that joins a "from" end and a
/// "to" end. The merge of two callsign tables marks every connection with a modification state
/// that tells the server what changed. Travels only inside its callsign table, so serialize()
/// writes nothing.
class SIGDBREF_EXPORT ConnectionEntry : public ElementBaseName
{
public:
    /// The element type of connections.
    static constexpr int ElementType = 30;

    /// Values of modificationState, set by the merge of two callsign tables. A state counts
    /// only while the column is not NULL.
    enum MergeState : int {
        State_Unchanged = 0,
        /// Changed, same "to" element.
        State_Changed = 1,
        /// Only the "to" element changed.
        State_ToChanged = 2,
        /// The "to" element and other data changed.
        State_ToAndRestChanged = 3,
        /// Not present in the edited table.
        State_Removed = 4,
        State_New = 5,
    };

    /// A connection in its reset state.
    ConnectionEntry();
    /// A copy of \a other.
    ConnectionEntry(const ConnectionEntry &other);
    /// Takes over the contents of \a other without copying them.
    ConnectionEntry(ConnectionEntry &&other) = default;
    /// A connection with the identity, dates and user of \a element, its own fields as after
    /// reset().
    explicit ConnectionEntry(const SigdbElement &element);
    ~ConnectionEntry() override;
    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Replaces the contents with a copy of \a other.
    ConnectionEntry &operator=(const ConnectionEntry &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Element part reset with type 30; both ends reset; connectionFlag true; modification
    /// state and second number NULL (0); both list positions -1.
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// Sets the layer of both end elements and of the connection itself.
    void setLayer(int layer) override;
    /// The element part from \a start (result r); connectionFlag r + 1, modificationState
    /// r + 2, secondNumber r + 3; the id r + 4 is left out; the from end from r + 4 (its texts
    /// and flags r + 5 to r + 8) and the to end from the from end's result. Returns the to
    /// end's result.
    int setIDs(int start) override;

    /// Whether modificationState is not NULL and holds \a state.
    bool hasModificationState(int state) const;

    /// Equal connection flags, second numbers and from ends, and equal TIDs unless the layers
    /// differ (layersDiffer()). The modification state, the to end, the name and the
    /// modification data are not looked at.
    bool isEqualWithoutModStateAndToDefinition(const ConnectionEntry &other) const;
    /// isEqualWithoutModStateAndToDefinition() and equal to ends.
    bool isEqualWithoutModState(const ConnectionEntry &other) const;
    /// Compares this stored connection with its counterpart \a other of an edited table and
    /// records the outcome in the modification state: unchanged (0), changed with the same to
    /// element (1: this becomes \a other), only the to element changed (2: this takes the to
    /// element of \a other), or both (3: this becomes \a other). Records the counterpart's
    /// position in indexInListCopy. \a other's state and position change in cases 1 and 3.
    /// Nothing happens for a null \a other.
    void compareWithEntry(ConnectionEntry *other);
    /// The connection as an overview result: element = the connection's own identity (type 30,
    /// TID, exchange id, approval, layer), relatedElement = the from end element,
    /// keyText1 = the name, exchgIdText = the exchange id, infoText2 and infoText3 = the
    /// display names of the from and to ends (NULL when empty); the overview's layer is the
    /// connection's.
    ElementOverview toResult() const;

    /// Two layers differ for the comparisons when they are unequal and one of them is 1 (two
    /// unequal layers of which neither is 1 count as equal).
    static bool layersDiffer(int a, int b);

    /// The "from" end of the connection.
    ConnectionEntryDefinition fromDefinition;
    /// The "to" end of the connection.
    ConnectionEntryDefinition toDefinition;
    /// A flag the server keeps with the connection; true on a fresh connection.
    base::DbDataType<bool> connectionFlag;
    /// A MergeState while not NULL.
    base::DbDataType<int> modificationState;
    /// A second number the server keeps with the connection.
    base::DbDataType<int> secondNumber;
    /// Position of the connection in its own table (-1: not set).
    int indexInList = -1;
    /// During a merge, the position of the matching connection in the other table.
    int indexInListCopy = -1;
};

/// isEqualWithoutModState(), equal modification states, second numbers and names; unless the
/// layers differ also equal modification dates and users; the creation dates only when both
/// hold one.
SIGDBREF_EXPORT bool operator==(const ConnectionEntry &a, const ConnectionEntry &b);
SIGDBREF_EXPORT bool operator!=(const ConnectionEntry &a, const ConnectionEntry &b);

/// The connections of one callsign table, in table order.
class SIGDBREF_EXPORT ConnectionEntryList : public ChainedList<ConnectionEntry>
{
public:
    ConnectionEntryList();
    /// A copy of \a other.
    ConnectionEntryList(const ConnectionEntryList &other);
    /// Takes over the contents of \a other without copying them.
    ConnectionEntryList(ConnectionEntryList &&other) = default;
    ~ConnectionEntryList() override;
    using ChainedList<ConnectionEntry>::operator=;
    /// Replaces the contents with a copy of \a other.
    ConnectionEntryList &operator=(const ConnectionEntryList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;

    /// A copy of connection \a index; a reset connection when there is none.
    ConnectionEntry entryAt(int index) const;
    /// Connection \a index; null when there is none.
    ConnectionEntry *entryReferenceAt(int index);
    /// Connection \a index, read-only; null when there is none.
    const ConnectionEntry *entryReferenceAt(int index) const;
    /// Whether an equal connection is in the list.
    bool contains(const ConnectionEntry &entry) const;
    /// Same count, and every connection of this list has an equal connection somewhere in
    /// \a other (the order does not matter).
    bool compareList(const ConnectionEntryList &other) const;
    /// Sets indexInList and indexInListCopy of every connection to its position (from 0).
    void setIndexInListValueForEntries();

    /// The first connection whose own TID equals \a tid (a NULL \a tid finds the first
    /// connection without TID); null when none.
    ConnectionEntry *getEntryWithConnectionTid(base::DbDataType<unsigned long long> tid);
    /// Position of the first connection with \a element at its from or its to end; -1 when
    /// none.
    int getFirstIndexForElementdefinition(const SigdbElement &element) const;
    /// A copy of the first end definition whose element is \a element (per connection the
    /// from end before the to end); a default definition when none.
    ConnectionEntryDefinition getConnectionEntryDefinition(const SigdbElement &element) const;
    /// The element that stands for the network's centre: an RCS at a from end wins at once;
    /// otherwise the last RCS at a to end; otherwise the first defined from end element;
    /// otherwise an undefined element. A to end that is no RCS is never chosen.
    SigdbElement getFirstElementdefinitionOrRCS() const;
};

SIGDBREF_EXPORT bool operator==(const ConnectionEntryList &a, const ConnectionEntryList &b);

} // namespace sigdb

#endif
