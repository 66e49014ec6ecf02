#ifndef SIGDB_AUXILIARY_RECORDLIST_H
#define SIGDB_AUXILIARY_RECORDLIST_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"
#include "io/columnstream.h"
#include "io/listcodec.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace sigdb {

/// True when a read on \a reader ran beyond the end of its bytes. A value read from beyond the
/// end comes back as zero, which would otherwise pass for a complete record.
inline bool readPastEnd(ColumnReader &reader)
{
    return reader.stream().status() == QDataStream::ReadPastEnd;
}

/// A new heap copy of \a source as a \a Record (a default \a Record when \a source is of
/// another type); the caller owns it. The getCopy() of the reference records.
template <typename Record>
Record *copyRecord(const base::DbBaseType *source)
{
    auto *copy = new Record;
    if (const auto *record = dynamic_cast<const Record *>(source))
        *copy = *record;
    return copy;
}

/// The storage and iteration that the reference lists share: entries held by value in list
/// order, a cursor for getNextEntry(), and the start id from which every entry is numbered.
///
/// All entries of such a list are numbered from the same start id, so they carry the same
/// column ids; the stream tells rows apart by position. The entry type provides
/// setIDs(int), writeTo(ColumnWriter&) const, readFrom(ColumnReader&) and operator==.
template <typename Entry>
class SIGDBREF_EXPORT RecordList : public base::DbBaseType
{
public:
    using base::DbBaseType::operator=;

    /// Copies \a entry to the end of the list.
    void appendEntry(const Entry &entry) { m_entries.push_back(entry); }
    /// Copies \a entry to the front of the list.
    void prependEntry(const Entry &entry) { m_entries.insert(m_entries.begin(), entry); }
    /// Destroys every entry; the cursor goes back to the start.
    void clear()
    {
        m_entries.clear();
        m_cursor = 0;
    }
    int count() const { return static_cast<int>(m_entries.size()); }
    /// The entries in list order.
    const std::vector<Entry> &container() const { return m_entries; }

    /// Puts the cursor on the first entry.
    void setIteratorToStart() { m_cursor = 0; }
    /// The entry under the cursor, advancing the cursor; null after the last entry.
    Entry *getNextEntry() { return m_cursor < m_entries.size() ? &m_entries[m_cursor++] : nullptr; }

    /// The id from which every entry is numbered.
    int startID() const { return m_startId; }

protected:
    RecordList() = default;
    RecordList(const RecordList &other) = default;
    RecordList &operator=(const RecordList &other) = default;
    ~RecordList() override = default;

    /// Remembers \a startId and numbers every entry from it.
    void numberEntries(int startId)
    {
        m_startId = startId;
        for (Entry &entry : m_entries)
            entry.setIDs(startId);
    }

    /// Equal counts and pairwise equal entries in list order.
    bool sameEntries(const RecordList &other) const { return m_entries == other.m_entries; }

    /// The count frame under \a countTag, then every entry.
    void writeEntries(ColumnWriter &writer, int countTag) const
    {
        writeListEntries(writer, countTag, m_entries,
                         [&writer](const Entry &entry) { entry.writeTo(writer); });
    }

    /// Reads the count frame under \a countTag and appends every entry that decodes: each is
    /// built fresh and numbered from startID() before it is read. A failed entry (including one
    /// cut short by the end of the bytes) fails the list; the entries before it stay.
    bool readEntries(ColumnReader &reader, int countTag)
    {
        const bool ok = readListEntries(reader, countTag, [this, &reader] {
            Entry entry;
            entry.setIDs(m_startId);
            if (!entry.readFrom(reader) || readPastEnd(reader))
                return false;
            m_entries.push_back(std::move(entry));
            return true;
        });
        return ok && !readPastEnd(reader);
    }

private:
    std::vector<Entry> m_entries;
    std::size_t m_cursor = 0;
    int m_startId = 0;
};

} // namespace sigdb

#endif
