#ifndef SIGDB_IO_COLUMNSTREAM_H
#define SIGDB_IO_COLUMNSTREAM_H

#include "sigdbcore_export.h"

#include "base/dbdatatype.h"
#include "io/bytecursor.h"

#include <QByteArray>

#include <string>
#include <vector>

namespace sigdb {

// The column-value stream of the reference records. Every field travels as a frame:
//
//     qint16 tag | qint16 size | value (only when size != 0)
//
// The tag is the value's column id (or a fixed small number for fields that are not column
// values); size 0 means NULL. Both sides number their records with setIDs(0) before they touch
// the stream, so the tags are a positional check of the layout, not keys. The bytes are those of
// a QDataStream at version 12 (Qt_4_8), big-endian, with no header of any kind; they are written
// and read here through a pointer into the array (io/bytecursor.h), one bounds check a frame.
//
// Writers and readers below are declared in the same order, so each reader can be checked
// against its writer at a glance. Every reader returns false on a size that does not match the
// kind of value and otherwise reports whether the tag matched the target's column id (checked
// after the value has been consumed). Reading past the end yields tag 0 and size 0, which read
// as NULL values; a header cut short reads the same way. A value cut short by the end of the
// input fails its record: a truncated capture is never taken for a shorter value.

/// The byte size of a value kind in its frame.
enum ColumnSize : qint16 {
    ColumnSize_Null = 0,
    ColumnSize_Narrow = 1, ///< enumerations and narrow integer columns: qint8
    ColumnSize_Short = 2,  ///< bool, char and bare flags: qint16
    ColumnSize_Wide = 8,   ///< 64-bit numbers, wide integer columns and doubles
};

/// Writes column frames into a byte array, from its first byte on. The array holds the frames
/// once the writer is destroyed (or after finish()).
class SIGDBCORE_EXPORT ColumnWriter
{
public:
    /// Writes into \a target, which must outlive the writer.
    explicit ColumnWriter(QByteArray &target)
        : m_bytes(target)
    {
    }
    ColumnWriter(const ColumnWriter &) = delete;
    ColumnWriter &operator=(const ColumnWriter &) = delete;

    /// Gives the array its final size now rather than when the writer is destroyed.
    void finish() { m_bytes.finish(); }
    /// The number of frames written: a record of the same shape takes at least four bytes each.
    qint64 frameCount() const { return m_frames; }

    /// A frame header alone: tag and size, no value (size 0 is a NULL).
    void writeHeader(int tag, int size) { frame(tag, size, 0); }

    // Bare fields that are not column values: fixed tag, never NULL.
    /// A bare one-byte field: \a tag, size 1, \a value.
    void writeByteField(int tag, qint8 value) { writeValue(tag, value); }
    /// A bare 16-bit field: \a tag, size 2, \a value (counts, flags, element attributes).
    void writeShortField(int tag, qint16 value) { writeValue(tag, value); }
    /// A bare 64-bit field: \a tag, size 8, \a value (list counts, indexes).
    void writeLongField(int tag, qint64 value) { writeValue(tag, value); }

    // Column values: the tag is the value's own column id.
    /// A 64-bit column (TIDs): size 8, or NULL.
    void write(const base::DbDataType<unsigned long long> &value) { writeColumn<qint64>(value); }
    /// A double column: size 8, its IEEE bits big-endian, or NULL.
    void write(const base::DbDataType<double> &value) { writeColumn<double>(value); }
    /// A bool column: size 2, 0 or 1, or NULL.
    void write(const base::DbDataType<bool> &value) { writeColumn<qint16>(value); }
    /// The byte is sign-extended: a character above 0x7F travels as a negative number.
    void write(const base::DbDataType<char> &value) { writeColumn<qint16, signed char>(value); }
    /// An int column in the narrow form (one byte).
    void write(const base::DbDataType<int> &value) { writeColumn<qint8>(value); }
    /// An int column in the wide form (eight bytes, sign-extended).
    void writeWide(const base::DbDataType<int> &value) { writeColumn<qint64>(value); }
    /// An unsigned int column in the wide form (eight bytes, zero-extended).
    void writeWide(const base::DbDataType<unsigned int> &value) { writeColumn<qint64>(value); }
    template <typename E>
    /// An enumeration column in the narrow form (one byte), or NULL.
    void writeEnum(const base::DbDataType<E> &value)
    {
        writeColumn<qint8>(value);
    }
    /// A text column: size length + 1, then the text as a C string, or NULL.
    void write(const base::DbDataType<std::string> &value);
    /// A text that is not a numbered column: tag 0, except that a NULL text keeps its own id.
    void writeUntagged(const base::DbDataType<std::string> &value);
    /// The first \a count texts from \a values, each as writeUntagged() writes it.
    void writeUntagged(const base::DbDataType<std::string> *values, size_t count);

    /// Profile parameter flags: a count frame and one one-byte frame per flag, all under \a tag.
    void writeFlags(int tag, const std::vector<bool> &flags);
    /// A text under a fixed tag, never NULL.
    void writeTextField(int tag, const QByteArray &text);

private:
    /// Claims a frame of \a valueBytes after its header and returns where the value goes.
    char *frame(int tag, int size, qint64 valueBytes)
    {
        ++m_frames;
        char *at = m_bytes.claim(4 + valueBytes);
        at = ByteWriter::store(at, static_cast<qint16>(tag));
        return ByteWriter::store(at, static_cast<qint16>(size));
    }
    template <typename Wire>
    void writeValue(int tag, Wire value)
    {
        ByteWriter::store(frame(tag, sizeof(Wire), sizeof(Wire)), value);
    }
    /// A column value as \a Wire (through \a Via first), or tag and size 0 when NULL.
    template <typename Wire, typename Via = Wire, typename Column>
    void writeColumn(const Column &value)
    {
        if (value.isNull())
            return writeHeader(value.getID(), 0);
        writeValue(value.getID(), static_cast<Wire>(static_cast<Via>(value.getData())));
    }
    /// A text frame: the C string held in \a size bytes of \a text, cut at its first zero byte.
    void writeText(int tag, const char *text, size_t size);

    ByteWriter m_bytes;
    qint64 m_frames = 0;
};

/// Reads column frames from a byte array. The reader never reads beyond the array and never
/// allocates more than the remaining bytes could hold.
class SIGDBCORE_EXPORT ColumnReader
{
public:
    /// Records nest (sub-lists, included details) at most this deep.
    static constexpr int MaxNesting = 64;

    /// Reads \a source from its first byte; the reader keeps its own reference to the bytes.
    explicit ColumnReader(const QByteArray &source)
        : m_source(source)
        , m_bytes(m_source.constData(), m_source.constData() + m_source.size())
    {
    }
    ColumnReader(const ColumnReader &) = delete;
    ColumnReader &operator=(const ColumnReader &) = delete;

    /// The read position in bytes from the start of the array.
    qint64 offset() const { return m_bytes.position(); }
    /// The bytes not yet read.
    qint64 bytesLeft() const { return m_bytes.bytesLeft(); }
    /// Whether every byte has been read.
    bool atEnd() const { return bytesLeft() <= 0; }

    /// Reads a frame header; tag and size 0 when fewer than four bytes are left.
    void readHeader(qint16 &tag, qint16 &size)
    {
        // A header cut short by the end of the input reads like one past the end: tag 0, size
        // 0. Keeping a complete tag with a missing size would read a truncated frame as a
        // valid NULL.
        if (Q_UNLIKELY(!m_bytes.has(4))) {
            m_bytes.skipToEnd();
            tag = 0;
            size = 0;
            return;
        }
        tag = m_bytes.take<qint16>();
        size = m_bytes.take<qint16>();
    }

    /// Reads a bare one-byte field under \a tag; false on another tag or size, or NULL.
    bool readByteField(int tag, qint8 &value) { return readField(tag, value); }
    /// Reads a bare 16-bit field under \a tag; false on another tag or size, or NULL.
    bool readShortField(int tag, qint16 &value) { return readField(tag, value); }
    /// Reads a bare 64-bit field under \a tag; false on another tag or size, or NULL.
    bool readLongField(int tag, qint64 &value) { return readField(tag, value); }

    /// Reads a 64-bit column under the value's own id.
    bool read(base::DbDataType<unsigned long long> &value) { return readColumn<qint64>(value); }
    /// Reads a double column under the value's own id.
    bool read(base::DbDataType<double> &value) { return readColumn<double>(value); }
    /// Reads a bool column under the value's own id (any non-zero value is true).
    bool read(base::DbDataType<bool> &value) { return readColumn<qint16>(value); }
    /// Reads a char column under the value's own id.
    bool read(base::DbDataType<char> &value) { return readColumn<qint16>(value); }
    /// Reads an int column in the narrow form under the value's own id.
    bool read(base::DbDataType<int> &value) { return readColumn<qint8>(value); }
    /// Reads an int column in the wide form under the value's own id.
    bool readWide(base::DbDataType<int> &value) { return readColumn<qint64>(value); }
    /// Reads an unsigned int column in the wide form under the value's own id.
    bool readWide(base::DbDataType<unsigned int> &value) { return readColumn<qint64>(value); }
    /// An enumeration column in the narrow form; a frame that gives no value leaves it NULL
    /// with the enumeration's value 0.
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
    /// Reads a text column under the value's own id; a text whose length runs past the end fails and reads as NULL.
    bool read(base::DbDataType<std::string> &value)
    {
        qint16 tag = 0;
        qint16 size = 0;
        readHeader(tag, size);
        const bool tagMatches = tag == static_cast<qint16>(value.getID());
        const char *text = nullptr;
        size_t length = 0;
        if (size == 0 || !takeCString(text, length)) {
            value.setNull(true);
            return size == 0 && tagMatches;
        }
        value.getData().assign(text, length);
        value.setNull(false);
        return tagMatches;
    }
    /// Reads a text written by writeUntagged(); the value carries id 0 for it.
    bool readUntagged(base::DbDataType<std::string> &value) { return read(value); }

    /// Reads profile parameter flags written by writeFlags(); \a flags is replaced only when all were read.
    bool readFlags(int tag, std::vector<bool> &flags);
    /// Reads a text under a fixed tag into \a text; false on NULL, another tag or a cut text.
    bool readTextField(int tag, QByteArray &text);

    /// Whether a record was refused because it nested deeper than MaxNesting: the reason a
    /// record failed, where it did.
    bool nestedTooDeep() const { return m_nestedTooDeep; }

    /// Holds one level of record nesting while it lives; ok() is false beyond MaxNesting.
    class SIGDBCORE_EXPORT Nesting
    {
    public:
        /// Enters one level of nesting on \a reader; leaving the scope leaves it.
        explicit Nesting(ColumnReader &reader);
        ~Nesting();
        Nesting(const Nesting &) = delete;
        Nesting &operator=(const Nesting &) = delete;
        /// Whether this level is within MaxNesting.
        bool ok() const { return m_ok; }

    private:
        ColumnReader &m_reader;
        bool m_ok;
    };

private:
    /// Reads a frame of a \a Wire value into \a value (NULL when the size is 0): false on a
    /// size that is not the wire's, or on a value cut short by the end of the input, which
    /// fails the record rather than read as a shorter value; otherwise whether the tag matched.
    template <typename Wire, typename Column>
    bool readColumn(Column &value)
    {
        qint16 tag = 0;
        qint16 size = 0;
        readHeader(tag, size);
        const bool tagMatches = tag == static_cast<qint16>(value.getID());
        if (size == 0) {
            value.setNull(true);
            return tagMatches;
        }
        if (size != static_cast<qint16>(sizeof(Wire)))
            return false;
        if (Q_UNLIKELY(!m_bytes.has(sizeof(Wire)))) {
            // A value cut short by the end of the input fails the record. A bare stream would
            // read it as zero; this reader is stricter on purpose, so that a truncated capture
            // is never taken for a record holding zeros.
            m_bytes.skipToEnd();
            return false;
        }
        const Wire wire = m_bytes.take<Wire>();
        using Value = std::decay_t<decltype(value.getData())>;
        if constexpr (std::is_same<Value, bool>::value)
            value.getData() = wire != 0;
        else
            value.getData() = static_cast<Value>(wire);
        value.setNull(false);
        return tagMatches;
    }
    /// A bare field: its fixed tag, its size and a value; never NULL.
    template <typename Wire>
    bool readField(int tag, Wire &value)
    {
        base::DbDataType<Wire> field;
        field.setID(static_cast<unsigned int>(tag));
        const bool ok = readColumn<Wire>(field);
        value = field.getData();
        return ok && !field.isNull();
    }
    /// Consumes a C string and hands out its characters in place: false on a length of 0 or
    /// one that runs past the end of the input.
    bool takeCString(const char *&text, size_t &length);

    QByteArray m_source; // keeps the bytes alive while the reader points into them
    ByteReader m_bytes;
    int m_depth = 0;
    bool m_nestedTooDeep = false;
};

} // namespace sigdb

#endif
