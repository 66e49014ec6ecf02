#include "auxiliary/plotentry.h"

namespace sigdb {

// ---------------------------------------------------------------------------------------------
// PlotEntry

PlotEntry::PlotEntry() = default;
PlotEntry::PlotEntry(const PlotEntry &other) = default;
PlotEntry::~PlotEntry() = default;
PlotEntry &PlotEntry::operator=(const PlotEntry &other) = default;

base::DbBaseType *PlotEntry::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<PlotEntry>(source);
}

void PlotEntry::reset()
{
    *this = PlotEntry();
}

void PlotEntry::serialize(QByteArray &) const {}

int PlotEntry::setIDs(int startId)
{
    firstId.setID(static_cast<unsigned int>(startId + 1));
    secondId.setID(static_cast<unsigned int>(startId + 2));
    text.setID(static_cast<unsigned int>(startId + 3));
    modificationState.setID(static_cast<unsigned int>(startId + 4));
    return startId + ColumnCount;
}

void PlotEntry::writeTo(ColumnWriter &writer) const
{
    writer.write(firstId);
    writer.write(secondId);
    writer.write(text);
    writer.writeEnum(modificationState);
}

bool PlotEntry::readFrom(ColumnReader &reader)
{
    return reader.read(firstId) && reader.read(secondId) && reader.read(text)
        && reader.readEnum(modificationState);
}

bool operator==(const PlotEntry &a, const PlotEntry &b)
{
    return a.modificationState == b.modificationState && a.firstId == b.firstId
        && a.secondId == b.secondId && a.text == b.text;
}

bool operator!=(const PlotEntry &a, const PlotEntry &b)
{
    return !(a == b);
}

// ---------------------------------------------------------------------------------------------
// PlotEntryList

PlotEntryList::PlotEntryList() = default;
PlotEntryList::PlotEntryList(const PlotEntryList &other) = default;
PlotEntryList::~PlotEntryList() = default;
PlotEntryList &PlotEntryList::operator=(const PlotEntryList &other) = default;

base::DbBaseType *PlotEntryList::getCopy(const base::DbBaseType *source)
{
    return base::copyRecord<PlotEntryList>(source);
}

void PlotEntryList::reset()
{
    *this = PlotEntryList();
}

void PlotEntryList::serialize(QByteArray &out) const
{
    ColumnWriter writer(out);
    const_cast<PlotEntryList *>(this)->setIDs(0);
    writeTo(writer);
}

int PlotEntryList::setIDs(int startId)
{
    listId.setID(static_cast<unsigned int>(startId + 1));
    listText1.setID(static_cast<unsigned int>(startId + 2));
    listText2.setID(static_cast<unsigned int>(startId + 3));
    numberEntries(startId + 3);
    return startId + 3;
}

void PlotEntryList::writeTo(ColumnWriter &writer) const
{
    writer.write(listId);
    writer.write(listText1);
    writer.write(listText2);
    writeEntries(writer, CountTag);
}

bool PlotEntryList::readFrom(ColumnReader &reader)
{
    clear();
    return reader.read(listId) && reader.read(listText1) && reader.read(listText2)
        && readEntries(reader, CountTag);
}

bool PlotEntryList::compareList(const PlotEntryList &other) const
{
    return sameEntries(other) && listId == other.listId && listText1 == other.listText1
        && listText2 == other.listText2;
}

bool operator==(const PlotEntryList &a, const PlotEntryList &b)
{
    return a.compareList(b);
}

bool operator!=(const PlotEntryList &a, const PlotEntryList &b)
{
    return !(a == b);
}

} // namespace sigdb
