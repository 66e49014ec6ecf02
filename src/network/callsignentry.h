#ifndef SIGDB_NETWORK_CALLSIGNENTRY_H
#define SIGDB_NETWORK_CALLSIGNENTRY_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "network/chainedlist.h"

#include <string>

namespace sigdb {

/// The callsigns of one connection within a callsign set: four callsign texts (each may hold
/// several callsigns joined by "/") and a number. Travels only inside its callsign table, so
/// serialize() writes nothing.
class SIGDBREF_EXPORT CallsignEntry : public base::DbBaseType
{
public:
    CallsignEntry();
    /// A copy of \a other.
    CallsignEntry(const CallsignEntry &other);
    /// Takes over the contents of \a other without copying them.
    CallsignEntry(CallsignEntry &&other) = default;
    ~CallsignEntry() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    CallsignEntry &operator=(const CallsignEntry &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Every value NULL: the number 0, the texts empty.
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// The four texts get \a start + 1 to \a start + 4; returns \a start + 4. The number keeps
    /// its id.
    int setIDs(int start);

    /// A number carried with the entry; neither numbered nor compared.
    base::DbDataType<unsigned long long> entryNumber;
    /// The first of the four callsigns.
    base::DbDataType<std::string> firstCallsign;
    /// The second callsign.
    base::DbDataType<std::string> secondCallsign;
    /// The third callsign.
    base::DbDataType<std::string> thirdCallsign;
    /// The fourth callsign.
    base::DbDataType<std::string> fourthCallsign;
};

/// Equal when the four callsign texts are equal (NULL only equals NULL).
SIGDBREF_EXPORT bool operator==(const CallsignEntry &a, const CallsignEntry &b);
SIGDBREF_EXPORT bool operator!=(const CallsignEntry &a, const CallsignEntry &b);

/// The callsign entries of one set, one per connection of the table.
class SIGDBREF_EXPORT CallsignEntryList : public ChainedList<CallsignEntry>
{
public:
    CallsignEntryList();
    /// A copy of \a other.
    CallsignEntryList(const CallsignEntryList &other);
    /// Takes over the contents of \a other without copying them.
    CallsignEntryList(CallsignEntryList &&other) = default;
    ~CallsignEntryList() override;
    using ChainedList<CallsignEntry>::operator=;
    /// Replaces the contents with a copy of \a other.
    CallsignEntryList &operator=(const CallsignEntryList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;

    /// Entry \a index, null when \a index is not less than count(). A negative index is a
    /// programming error and throws std::out_of_range.
    CallsignEntry *entryAt(int index);
    /// Assigns the entry at \a index; no effect when \a index is not less than count().
    void changeEntryAt(int index, const CallsignEntry &entry);
    /// Whether an equal entry is in the list.
    bool contains(const CallsignEntry &entry) const;
    /// Same count, and every entry of this list has an equal entry somewhere in \a other;
    /// the order does not matter and duplicates are not counted.
    bool compareList(const CallsignEntryList &other) const;
};

SIGDBREF_EXPORT bool operator==(const CallsignEntryList &a, const CallsignEntryList &b);

} // namespace sigdb

#endif
