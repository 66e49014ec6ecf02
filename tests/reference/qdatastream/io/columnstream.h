#ifndef SIGDB_IO_COLUMNSTREAM_H
#define SIGDB_IO_COLUMNSTREAM_H

#include "sigdbcore_export.h"

#include "base/dbdatatype.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <string>
#include <vector>

namespace sigdb {

// The reference codec of the column-value stream: the frames written and read with bare
// QDataStream calls (version 12, big-endian), as the format is defined. It declares the same
// classes as the library's io/columnstream.h and shadows it in the reference program, so that
// the library's records can be written and read by it (tests/reference/CMakeLists.txt).
//
// Every field travels as a frame:
//
//     qint16 tag | qint16 size | value (only when size != 0)
//
// The tag is the value's column id (or a fixed small number for fields that are not column
// values); size 0 means NULL. Both sides number their records with setIDs(0) before they touch
// the stream, so the tags are a positional check of the layout, not keys. Streams are opened at
// QDataStream version 12 (Qt_4_8), big-endian, with no header of any kind.
//
// Writers and readers below are declared in the same order, so each reader can be checked
// against its writer at a glance. Every reader returns false on a size that does not match the
// kind of value and otherwise reports whether the tag matched the target's column id (checked
// after the value has been consumed). Reading past the end yields tag 0 and size 0, which read
// as NULL values; a header cut short reads the same way, and a value cut short fails.

/// The byte size of a value kind in its frame.
enum ColumnSize : qint16 {
    ColumnSize_Null = 0,
    ColumnSize_Narrow = 1, ///< enumerations and narrow integer columns: qint8
    ColumnSize_Short = 2,  ///< bool, char and bare flags: qint16
    ColumnSize_Wide = 8,   ///< 64-bit numbers, wide integer columns and doubles
};

/// Writes column frames into a byte array (write-only, from its first byte on).
class SIGDBCORE_EXPORT ColumnWriter
{
public:
    explicit ColumnWriter(QByteArray &target);
    ColumnWriter(const ColumnWriter &) = delete;
    ColumnWriter &operator=(const ColumnWriter &) = delete;

    /// Nothing to do: the stream writes through at once.
    void finish() {}
    qint64 frameCount() const { return m_frames; }

    void writeHeader(int tag, int size);

    // Bare fields that are not column values: fixed tag, never NULL.
    void writeByteField(int tag, qint8 value);
    void writeShortField(int tag, qint16 value);
    void writeLongField(int tag, qint64 value);

    // Column values: the tag is the value's own column id.
    void write(const base::DbDataType<unsigned long long> &value);
    void write(const base::DbDataType<double> &value);
    void write(const base::DbDataType<bool> &value);
    void write(const base::DbDataType<char> &value);
    /// An int column in the narrow form (one byte).
    void write(const base::DbDataType<int> &value);
    void writeWide(const base::DbDataType<int> &value);
    void writeWide(const base::DbDataType<unsigned int> &value);
    template <typename E>
    void writeEnum(const base::DbDataType<E> &value)
    {
        writeNarrow(value.getID(), value.isNull(), static_cast<int>(value.getData()));
    }
    void write(const base::DbDataType<std::string> &value);
    /// A text that is not a numbered column: tag 0, except that a NULL text keeps its own id.
    void writeUntagged(const base::DbDataType<std::string> &value);
    void writeUntagged(const base::DbDataType<std::string> *values, size_t count)
    {
        for (size_t i = 0; i < count; ++i)
            writeUntagged(values[i]);
    }

    /// Profile parameter flags: a count frame and one one-byte frame per flag, all under \a tag.
    void writeFlags(int tag, const std::vector<bool> &flags);
    /// A text under a fixed tag, never NULL.
    void writeTextField(int tag, const QByteArray &text);

private:
    void writeNarrow(int tag, bool isNull, int value);
    void writeText(int tag, const std::string &text);

    QDataStream m_stream;
    qint64 m_frames = 0;
};

/// Reads column frames from a byte array. The reader never reads beyond the array and never
/// allocates more than the remaining bytes could hold.
class SIGDBCORE_EXPORT ColumnReader
{
public:
    /// Records nest (sub-lists, included details) at most this deep.
    static constexpr int MaxNesting = 64;

    explicit ColumnReader(const QByteArray &source);
    ColumnReader(const ColumnReader &) = delete;
    ColumnReader &operator=(const ColumnReader &) = delete;

    /// The read position in bytes from the start of the array.
    qint64 offset() const;
    /// The bytes not yet read.
    qint64 bytesLeft() const;
    bool atEnd() const { return bytesLeft() <= 0; }

    void readHeader(qint16 &tag, qint16 &size);

    bool readByteField(int tag, qint8 &value);
    bool readShortField(int tag, qint16 &value);
    bool readLongField(int tag, qint64 &value);

    bool read(base::DbDataType<unsigned long long> &value);
    bool read(base::DbDataType<double> &value);
    bool read(base::DbDataType<bool> &value);
    bool read(base::DbDataType<char> &value);
    bool read(base::DbDataType<int> &value);
    bool readWide(base::DbDataType<int> &value);
    bool readWide(base::DbDataType<unsigned int> &value);
    template <typename E>
    bool readEnum(base::DbDataType<E> &value)
    {
        base::DbDataType<int> number;
        number.setID(static_cast<unsigned int>(value.getID()));
        const bool ok = read(number);
        value.getData() = static_cast<E>(number.getData());
        value.setNull(number.isNull());
        return ok;
    }
    bool read(base::DbDataType<std::string> &value);
    bool readUntagged(base::DbDataType<std::string> &value) { return read(value); }

    bool readFlags(int tag, std::vector<bool> &flags);
    bool readTextField(int tag, QByteArray &text);

    /// Holds one level of record nesting while it lives; ok() is false beyond MaxNesting.
    class SIGDBCORE_EXPORT Nesting
    {
    public:
        explicit Nesting(ColumnReader &reader);
        ~Nesting();
        Nesting(const Nesting &) = delete;
        Nesting &operator=(const Nesting &) = delete;
        bool ok() const { return m_ok; }

    private:
        ColumnReader &m_reader;
        bool m_ok;
    };

private:
    template <typename Column, typename Wire>
    bool readFixed(Column &value, qint16 expectedSize);
    bool readCString(std::string &text);

    QDataStream m_stream;
    qint64 m_size;
    int m_depth = 0;
};

} // namespace sigdb

#endif
