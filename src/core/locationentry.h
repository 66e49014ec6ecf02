#ifndef SIGDB_CORE_LOCATIONENTRY_H
#define SIGDB_CORE_LOCATIONENTRY_H

#include "sigdbcore_export.h"

#include "base/dbbasetype.h"
#include "base/dbdatatype.h"
#include "core/recordlist.h"
#include "core/sigdbenums.h"

#include <string>
#include <vector>

namespace sigdb {

class ColumnReader;
class ColumnWriter;

/// One location of an element: a position, the time from which it holds, and how it was found
/// and changed. Encoded as its five columns in field order.
class SIGDBCORE_EXPORT LocationEntry : public base::DbBaseType
{
public:
    /// The number of column ids that setIDs() hands out.
    static constexpr int ColumnCount = 5;

    LocationEntry();
    /// A copy of \a other.
    LocationEntry(const LocationEntry &other);
    /// Takes over the contents of \a other without copying them.
    LocationEntry(LocationEntry &&other) = default;
    ~LocationEntry() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    LocationEntry &operator=(const LocationEntry &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// Numbers the five columns from \a startId + 1; returns the last id given.
    virtual int setIDs(int startId);

    /// Writes the five columns in field order.
    void writeTo(ColumnWriter &writer) const;
    /// Reads the five columns; false on a frame whose size or id does not fit.
    bool readFrom(ColumnReader &reader);

    /// Latitude of the position.
    base::DbDataType<double> latitude;
    /// Longitude of the position.
    base::DbDataType<double> longitude;
    /// The time from which the location holds, as "yyyy-MM-dd hh:mm:ss"; sorts as text.
    base::DbDataType<std::string> validFrom;
    /// How the location was found.
    base::DbDataType<Location_Indication_Type> indication;
    /// How the location was last changed.
    base::DbDataType<Location_Modification_Type> modification;
};

SIGDBCORE_EXPORT bool operator==(const LocationEntry &a, const LocationEntry &b);
SIGDBCORE_EXPORT bool operator!=(const LocationEntry &a, const LocationEntry &b);

/// The location history of an element. Every entry is numbered from the list's start id, so
/// all entries carry the same column ids.
class SIGDBCORE_EXPORT LocationEntryList : public RecordList<LocationEntry>
{
public:
    /// Tag of the count frame.
    static constexpr int CountTag = 2;

    LocationEntryList();
    /// A copy of \a other.
    LocationEntryList(const LocationEntryList &other);
    /// Takes over the contents of \a other without copying them.
    LocationEntryList(LocationEntryList &&other) = default;
    ~LocationEntryList() override;
    using RecordList<LocationEntry>::operator=;
    /// Replaces the contents with a copy of \a other.
    LocationEntryList &operator=(const LocationEntryList &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    void serialize(QByteArray &out) const override;
    /// Numbers every entry from \a startId; returns the last id an entry gets (also when the
    /// list is empty, so that what follows the list is numbered alike on both sides).
    int setIDs(int startId);

    /// Writes the count frame and every entry.
    void writeTo(ColumnWriter &writer) const;
    /// Clears the list and reads it back; false on a frame that does not fit or bytes that end early.
    bool readFrom(ColumnReader &reader);

    /// Sorts the entries by their validFrom time (NULL times first), keeping equal times in order.
    void sortByTime();
    /// True when both lists hold equal entries in the same order.
    bool testCompare(const LocationEntryList &other) const;
};

SIGDBCORE_EXPORT bool operator==(const LocationEntryList &a, const LocationEntryList &b);

} // namespace sigdb

#endif
