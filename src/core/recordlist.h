#ifndef SIGDB_CORE_RECORDLIST_H
#define SIGDB_CORE_RECORDLIST_H

#include "base/dbbasetype.h"
#include "core/entrysequence.h"
#include "io/columnstream.h"
#include "io/listcodec.h"

#include <utility>

namespace sigdb {

/// A record list whose entries are all numbered from the same start id, so that they carry
/// the same column ids (the stream tells rows apart by position), and which travels as a count
/// frame followed by its entries. The entry type provides setIDs(int),
/// writeTo(ColumnWriter&) const, readFrom(ColumnReader&) and operator==.
template <typename Entry>
class RecordList : public base::DbBaseType, public EntrySequence<Entry>
{
public:
    using base::DbBaseType::operator=;

protected:
    RecordList() = default;
    /// A copy of \a other.
    RecordList(const RecordList &other) = default;
    /// Takes over the contents of \a other without copying them.
    RecordList(RecordList &&other) = default;
    /// Replaces the contents with a copy of \a other.
    RecordList &operator=(const RecordList &other) = default;
    /// Takes over the contents of \a other without copying them.
    RecordList &operator=(RecordList &&other) = default;
    ~RecordList() override = default;

    /// Remembers \a startId and numbers every entry from it.
    void numberEntries(int startId)
    {
        this->m_startId = startId;
        for (Entry &entry : this->m_entries)
            entry.setIDs(startId);
    }

    /// Equal counts and pairwise equal entries in list order.
    bool sameEntries(const RecordList &other) const { return this->m_entries == other.m_entries; }

    /// The count frame under \a countTag, then every entry.
    void writeEntries(ColumnWriter &writer, int countTag) const
    {
        writeListEntries(writer, countTag, this->m_entries,
                         [&writer](const Entry &entry) { entry.writeTo(writer); });
    }

    /// Reads the count frame under \a countTag and appends every entry that decodes: each is
    /// built fresh and numbered from startID() before it is read. A failed entry (including one
    /// cut short by the end of the bytes) fails the list; the entries before it stay.
    bool readEntries(ColumnReader &reader, int countTag)
    {
        return readListEntries(reader, countTag, this->m_entries, minimumEntrySize<Entry>(), [this, &reader](Entry &entry) {
            entry.setIDs(this->m_startId);
            return entry.readFrom(reader);
        });
    }
};

} // namespace sigdb

#endif
