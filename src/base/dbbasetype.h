#ifndef SIGDB_BASE_DBBASETYPE_H
#define SIGDB_BASE_DBBASETYPE_H

#include "sigdbcore_export.h"

#include "base/dbdatatype.h"
#include "base/storetype.h"

class QByteArray;

namespace base {

/// The root of every record: copyable through a base pointer, resettable, serialisable into a
/// QByteArray, and carrying the record's store type, which is also its data layer.
class SIGDBCORE_EXPORT DbBaseType
{
public:
    DbBaseType() = default;
    /// A copy of \a other.
    DbBaseType(const DbBaseType &other) = default;
    virtual ~DbBaseType();

    /// Copies the store type.
    virtual DbBaseType &operator=(const DbBaseType &other);
    /// Returns a new heap copy of \a source as the record's own type; the caller owns it.
    virtual DbBaseType *getCopy(const DbBaseType *source) = 0;
    /// Returns the record to its default-constructed state.
    virtual void reset() = 0;
    /// Writes the record's stream form into \a out from its first byte; pass an empty array.
    virtual void serialize(QByteArray &out) const = 0;

    /// How the server keeps the record: persistent, transient or not set.
    virtual StoreType getStoreType();
    /// The store type as a number, which is also the record's data layer.
    virtual int getLayerType() const;
    /// The store type as a column value: never NULL, column id 0.
    virtual DbDataType<int> getStoreType_T();
    /// Sets the store type (and so the data layer).
    virtual void setStoreType(StoreType storeType);
    /// Records that hold other records override this to pass the layer on to them.
    virtual void setLayer(int layer);
    /// The record's data layer: its store type as a number.
    virtual int layer() const;

    /// Whether a store type was ever set.
    bool hasStoreTypeSet() const { return m_storeType != StoreType_NotSet; }
    /// Whether the record lives in the database.
    bool isPersistent() const { return m_storeType == StoreType_Persistent; }
    /// Whether the record exists only for the running session.
    bool isTransient() const { return m_storeType == StoreType_Transient; }

private:
    StoreType m_storeType = StoreType_NotSet;
};

/// A new heap copy of \a source as a \a Record (a default \a Record when \a source is of
/// another type); the caller owns it. What every record's getCopy() does.
template <typename Record>
Record *copyRecord(const DbBaseType *source)
{
    auto *copy = new Record;
    if (const auto *record = dynamic_cast<const Record *>(source))
        *copy = *record;
    return copy;
}

} // namespace base

#endif
