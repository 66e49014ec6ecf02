#ifndef SIGDB_IO_LISTCODEC_H
#define SIGDB_IO_LISTCODEC_H

#include "io/columnstream.h"

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

/// Calls \a readEntry once per entry of an already read \a count (a count below 1 reads
/// nothing). An entry that would have to be read from an exhausted stream fails the list, so
/// an announced count never makes the reader loop or allocate beyond the bytes that are really
/// there. For lists whose counts travel apart from their entries.
template <typename ReadEntry>
bool readCountedEntries(ColumnReader &reader, qint64 count, ReadEntry readEntry)
{
    for (qint64 i = 0; i < count; ++i) {
        if (reader.atEnd() || !readEntry())
            return false;
    }
    return true;
}

/// Reads the count frame and then calls \a readEntry once per announced entry; \a readEntry
/// builds, numbers, decodes and appends one entry and returns whether that worked.
///
/// A count frame with another tag or size fails the list; a count below 1 ends it. An entry
/// takes at least one frame, so an entry that would have to be read from an exhausted stream
/// fails the list: an announced count never makes the reader loop or allocate beyond the bytes
/// that are really there. Entries appended before a failure stay in the list.
template <typename ReadEntry>
bool readListEntries(ColumnReader &reader, int countTag, ReadEntry readEntry)
{
    qint64 count = 0;
    if (!reader.readLongField(countTag, count))
        return false;
    return readCountedEntries(reader, count, readEntry);
}

} // namespace sigdb

#endif
