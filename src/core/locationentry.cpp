#include "core/locationentry.h"

#include "io/columnstream.h"
#include "io/listcodec.h"

#include <algorithm>

namespace sigdb {

LocationEntry::LocationEntry() = default;
LocationEntry::LocationEntry(const LocationEntry &other) = default;
LocationEntry::~LocationEntry() = default;

LocationEntry &LocationEntry::operator=(const LocationEntry &other)
{
    if (this == &other)
        return *this;
    base::DbBaseType::operator=(other);
    latitude = other.latitude;
    longitude = other.longitude;
    validFrom = other.validFrom;
    indication = other.indication;
    modification = other.modification;
    return *this;
}

base::DbBaseType *LocationEntry::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<LocationEntry>(source);
}

void LocationEntry::reset()
{
    *this = LocationEntry();
}

void LocationEntry::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<LocationEntry *>(this)->setIDs(0);
    writeTo(writer);
}

int LocationEntry::setIDs(int startId)
{
    latitude.setID(static_cast<unsigned int>(startId + 1));
    longitude.setID(static_cast<unsigned int>(startId + 2));
    validFrom.setID(static_cast<unsigned int>(startId + 3));
    indication.setID(static_cast<unsigned int>(startId + 4));
    modification.setID(static_cast<unsigned int>(startId + 5));
    return startId + ColumnCount;
}

void LocationEntry::writeTo(ColumnWriter &writer) const
{
    writer.write(latitude);
    writer.write(longitude);
    writer.write(validFrom);
    writer.writeEnum(indication);
    writer.writeEnum(modification);
}

bool LocationEntry::readFrom(ColumnReader &reader)
{
    return reader.read(latitude) && reader.read(longitude) && reader.read(validFrom)
        && reader.readEnum(indication) && reader.readEnum(modification);
}

bool operator==(const LocationEntry &a, const LocationEntry &b)
{
    return a.latitude == b.latitude && a.longitude == b.longitude && a.validFrom == b.validFrom
        && a.indication == b.indication && a.modification == b.modification;
}

bool operator!=(const LocationEntry &a, const LocationEntry &b)
{
    return !(a == b);
}

LocationEntryList::LocationEntryList() = default;
LocationEntryList::LocationEntryList(const LocationEntryList &other) = default;
LocationEntryList::~LocationEntryList() = default;

LocationEntryList &LocationEntryList::operator=(const LocationEntryList &other)
{
    if (this == &other)
        return *this;
    RecordList<LocationEntry>::operator=(other);
    return *this;
}

base::DbBaseType *LocationEntryList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<LocationEntryList>(source);
}

void LocationEntryList::reset()
{
    clear();
    m_cursor = 0;
}

void LocationEntryList::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<LocationEntryList *>(this)->setIDs(0);
    writeTo(writer);
}

int LocationEntryList::setIDs(int startId)
{
    numberEntries(startId);
    return startId + LocationEntry::ColumnCount;
}

void LocationEntryList::writeTo(ColumnWriter &writer) const
{
    writeEntries(writer, CountTag);
}

bool LocationEntryList::readFrom(ColumnReader &reader)
{
    return readEntries(reader, CountTag);
}

void LocationEntryList::sortByTime()
{
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [](const LocationEntry &a, const LocationEntry &b) {
                         if (a.validFrom.isNull() || b.validFrom.isNull())
                             return a.validFrom.isNull() && !b.validFrom.isNull();
                         return a.validFrom.getData() < b.validFrom.getData();
                     });
}

bool LocationEntryList::testCompare(const LocationEntryList &other) const
{
    return sameEntries(other);
}

bool operator==(const LocationEntryList &a, const LocationEntryList &b)
{
    return a.testCompare(b);
}

} // namespace sigdb
