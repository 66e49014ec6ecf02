#ifndef SIGDB_IO_LISTCODEC_H
#define SIGDB_IO_LISTCODEC_H

#include "io/columnstream.h"

#include <algorithm>
#include <vector>

namespace sigdb {

// List framing of the column-value stream: the list's own fields come first (written by the
// list), then the entry count as a bare 64-bit frame under the list's count tag, then every
// entry with the entry's encoder, in list order and with no separator.

/// Writes the count frame and every entry of \a entries with \a writeEntry.
template <typename Container, typename WriteEntry>
void writeListEntries(ColumnWriter &writer, int countTag, const Container &entries,
                      WriteEntry writeEntry)
{
    writer.writeLongField(countTag, static_cast<qint64>(entries.size()));
    for (const auto &entry : entries)
        writeEntry(entry);
}

/// The fewest bytes an entry can take: four for each frame that \a writeEntry writes for a
/// default entry (a NULL column is its four-byte header, and the lists inside a default entry
/// are empty). Worked out once per entry type and writer.
template <typename Entry, typename WriteEntry>
qint64 minimumEntrySize(WriteEntry writeEntry)
{
    static const qint64 size = [&writeEntry] {
        Entry entry;
        entry.setIDs(0);
        QByteArray bytes;
        ColumnWriter writer(bytes);
        writeEntry(writer, entry);
        return std::max<qint64>(4, 4 * writer.frameCount());
    }();
    return size;
}

/// The fewest bytes an entry with its own writeTo(ColumnWriter&) can take.
template <typename Entry>
qint64 minimumEntrySize()
{
    return minimumEntrySize<Entry>([](ColumnWriter &writer, const Entry &entry) { entry.writeTo(writer); });
}

/// Makes room for \a count more entries before they are read, but never for more than the bytes
/// left could hold at \a minimumSize bytes an entry: a hostile count reserves no more than the
/// input could fill.
template <typename Entry>
void reserveEntries(std::vector<Entry> &entries, const ColumnReader &reader, qint64 count, qint64 minimumSize)
{
    const qint64 fit = std::min(count, reader.bytesLeft() / minimumSize);
    if (fit > 0)
        entries.reserve(entries.size() + static_cast<size_t>(fit));
}

/// Reads \a count entries (a count below 1 reads nothing) into \a entries, each built in place
/// at the end and handed to \a readEntry, which numbers and decodes it and returns whether that
/// worked; an entry that fails is taken out again and fails the list. An entry that would have
/// to be read from an exhausted stream fails the list, so an announced count never makes the
/// reader loop or allocate beyond the bytes that are really there. For lists whose counts
/// travel apart from their entries.
template <typename Entry, typename ReadEntry>
bool readCountedEntries(ColumnReader &reader, qint64 count, std::vector<Entry> &entries, ReadEntry readEntry)
{
    for (qint64 i = 0; i < count; ++i) {
        if (reader.atEnd())
            return false;
        if (!readEntry(entries.emplace_back())) {
            entries.pop_back();
            return false;
        }
    }
    return true;
}

/// Reads the count frame and then every announced entry into \a entries, as
/// readCountedEntries() does; room for the entries is reserved first, as far as the bytes left
/// could hold entries of \a minimumSize bytes.
///
/// A count frame with another tag or size fails the list; a count below 1 ends it. An entry
/// takes at least one frame, so an entry that would have to be read from an exhausted stream
/// fails the list: an announced count never makes the reader loop or allocate beyond the bytes
/// that are really there. Entries appended before a failure stay in the list.
template <typename Entry, typename ReadEntry>
bool readListEntries(ColumnReader &reader, int countTag, std::vector<Entry> &entries, qint64 minimumSize,
                     ReadEntry readEntry)
{
    qint64 count = 0;
    if (!reader.readLongField(countTag, count))
        return false;
    reserveEntries(entries, reader, count, minimumSize);
    return readCountedEntries(reader, count, entries, readEntry);
}

} // namespace sigdb

#endif
