#ifndef SIGDB_NETWORK_CALLSIGNSET_H
#define SIGDB_NETWORK_CALLSIGNSET_H

#include "sigdbref_export.h"

#include "network/callsignentry.h"

namespace sigdb {

/// One callsign set of a network: two texts and one callsign entry per connection of the
/// table, in connection order. Travels only inside its callsign table.
class SIGDBREF_EXPORT CallsignSet : public base::DbBaseType
{
public:
    CallsignSet();
    /// A copy of \a other.
    CallsignSet(const CallsignSet &other);
    /// Takes over the contents of \a other without copying them.
    CallsignSet(CallsignSet &&other) = default;
    ~CallsignSet() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    CallsignSet &operator=(const CallsignSet &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Both texts NULL and empty; the entries are kept.
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// firstValue \a start + 1, secondValue \a start + 2, the entries from \a start + 3 on;
    /// returns the last id given.
    int setIDs(int start);

    /// The first text of the set.
    base::DbDataType<std::string> firstValue;
    /// The second text of the set.
    base::DbDataType<std::string> secondValue;
    /// One callsign entry per connection of the table, in connection order.
    CallsignEntryList entries;
};

/// Equal texts (NULL only equals NULL) and entry lists equal regardless of order.
SIGDBREF_EXPORT bool operator==(const CallsignSet &a, const CallsignSet &b);
SIGDBREF_EXPORT bool operator!=(const CallsignSet &a, const CallsignSet &b);

/// The callsign sets of one table.
class SIGDBREF_EXPORT CallsignSetList : public ChainedList<CallsignSet>
{
public:
    CallsignSetList();
    /// A copy of \a other.
    CallsignSetList(const CallsignSetList &other);
    /// Takes over the contents of \a other without copying them.
    CallsignSetList(CallsignSetList &&other) = default;
    ~CallsignSetList() override;
    using ChainedList<CallsignSet>::operator=;
    /// Replaces the contents with a copy of \a other.
    CallsignSetList &operator=(const CallsignSetList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Sets the layer of every entry of every set (the sets keep their own layers).
    void setLayer(int layer) override;

    /// Same count and pairwise equal sets, in order.
    bool compareList(const CallsignSetList &other) const;
};

SIGDBREF_EXPORT bool operator==(const CallsignSetList &a, const CallsignSetList &b);

} // namespace sigdb

#endif
