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
    CallsignSet(const CallsignSet &other);
    CallsignSet(CallsignSet &&other) = default;
    ~CallsignSet() override;
    using base::DbBaseType::operator=;
    CallsignSet &operator=(const CallsignSet &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Both texts NULL and empty; the entries are kept.
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// firstValue \a start + 1, secondValue \a start + 2, the entries from \a start + 3 on;
    /// returns the last id given.
    int setIDs(int start);

    base::DbDataType<std::string> firstValue;
    base::DbDataType<std::string> secondValue;
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
    CallsignSetList(const CallsignSetList &other);
    CallsignSetList(CallsignSetList &&other) = default;
    ~CallsignSetList() override;
    using ChainedList<CallsignSet>::operator=;
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
