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

    virtual StoreType getStoreType();
    virtual int getLayerType() const;
    /// The store type as a column value: never NULL, column id 0.
    virtual DbDataType<int> getStoreType_T();
    virtual void setStoreType(StoreType storeType);
    /// Records that hold other records override this to pass the layer on to them.
    virtual void setLayer(int layer);
    virtual int layer() const;

    bool hasStoreTypeSet() const { return m_storeType != StoreType_NotSet; }
    bool isPersistent() const { return m_storeType == StoreType_Persistent; }
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
