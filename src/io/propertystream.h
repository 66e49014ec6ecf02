#ifndef SIGDB_IO_PROPERTYSTREAM_H
#define SIGDB_IO_PROPERTYSTREAM_H

#include "sigdbref_export.h"

#include "io/bytecursor.h"

#include <QByteArray>

#include <string>

namespace sigdb {

// The tagged property stream of the middleware records. A record is the plain sequence of its
// property blocks in ascending index order, with no header, type, count or terminator:
//
//     qint32 index | qint32 size | value (size bytes)
//
// The size is patched in after the value has been written, so a reader can skip any block it
// does not know by its size. That makes the stream compatible in both directions: a newer
// writer's extra blocks are skipped or ignored, and an older writer's shorter stream simply
// ends early. The bytes are those of a QDataStream at version 12 (Qt_4_8), big-endian, written
// and read here through a pointer into the array (io/bytecursor.h).
//
// Value encodings, writers and readers declared side by side:
//
//     int, enumerations, unsigned int   qint32
//     bool                              one byte, 0 or 1
//     unsigned long long                qint64
//     text                              quint32 length L = characters + 1, then the characters
//                                       and one zero byte (QDataStream's C string)
//     nested record                     QByteArray: quint32 length, then the record stream
//     vector                            qint32 element count, then every element as above
//
// Readers take untrusted bytes: nothing is read beyond the array, and no length or count is
// believed before it is compared with the bytes that really follow.

/// Writes property blocks into a byte array, from its first byte on. The array holds the blocks
/// once the writer is destroyed (or after finish()).
class SIGDBREF_EXPORT PropertyWriter
{
public:
    /// Writes into \a target, which must outlive the writer.
    explicit PropertyWriter(QByteArray &target)
        : m_bytes(target)
    {
    }
    PropertyWriter(const PropertyWriter &) = delete;
    PropertyWriter &operator=(const PropertyWriter &) = delete;

    /// Gives the array its final size now rather than when the writer is destroyed.
    void finish() { m_bytes.finish(); }

    /// Writes one block for property \a index: the header, whatever \a writeValue writes
    /// through this writer, then the value's byte size patched into the header.
    template <typename WriteValue>
    void writeBlock(qint32 index, WriteValue writeValue)
    {
        m_bytes.put(index);
        writeSized(writeValue);
    }
    /// Writes a nested record as a byte array: the length, then whatever \a writeRecord writes
    /// through this writer (the record's own blocks), with the length patched in afterwards.
    template <typename WriteRecord>
    void writeNested(WriteRecord writeRecord)
    {
        writeSized(writeRecord);
    }

    /// An int, unsigned int or enumeration value: qint32.
    void writeInt32(qint32 value) { m_bytes.put(value); }
    /// A bool value: one byte, 0 or 1.
    void writeBool(bool value) { m_bytes.put(static_cast<qint8>(value ? 1 : 0)); }
    /// An unsigned long long value: all 64 bits as qint64.
    void writeInt64(qint64 value) { m_bytes.put(value); }
    /// A text as a C string: cut at its first zero byte, bytes as they are.
    void writeString(const std::string &text);
    /// A byte array with its length; a null array is the length 0xFFFFFFFF and nothing more.
    void writeBytes(const QByteArray &bytes);
    /// The element count that precedes a vector's elements.
    void writeCount(std::size_t count) { m_bytes.put(static_cast<qint32>(count)); }

private:
    /// A 32-bit size, then what \a writeValue writes, then that byte count put into the size.
    template <typename WriteValue>
    void writeSized(WriteValue &writeValue)
    {
        const qint64 sizeAt = m_bytes.position();
        m_bytes.put(qint32(0));
        writeValue();
        m_bytes.patch(sizeAt, static_cast<qint32>(m_bytes.position() - sizeAt - 4));
    }

    ByteWriter m_bytes;
};

/// Reads property blocks from a byte array.
class SIGDBREF_EXPORT PropertyReader
{
public:
    /// Every encoded element of a vector takes at least its 4-byte length.
    static constexpr qint64 MinimumElementSize = 4;

    /// What findBlock() found for the property asked for.
    enum class Block {
        Found,       ///< the reader stands at the property's value
        Absent,      ///< a block of a later property follows; the reader stands before it
        EndOfStream, ///< the stream ended before the property (an older, shorter writer)
    };

    /// Reads \a source from its first byte; the reader keeps its own reference to the bytes.
    explicit PropertyReader(const QByteArray &source)
        : m_source(source)
        , m_bytes(m_source.constData(), m_source.constData() + m_source.size())
    {
    }
    PropertyReader(const PropertyReader &) = delete;
    PropertyReader &operator=(const PropertyReader &) = delete;

    /// Reads property \a index by the rules of the stream and returns false only when the
    /// property is \a required and absent, that is when a block of a later property follows.
    /// Found: \a readValue reads the value. Absent or cut off by the end of the stream: the
    /// property keeps its value, and a later block is left for the next property to read.
    template <typename ReadValue>
    bool readProperty(qint32 index, bool required, ReadValue readValue)
    {
        switch (findBlock(index)) {
        case Block::Found:
            readValue();
            return true;
        case Block::Absent:
            return !required;
        case Block::EndOfStream:
            break;
        }
        return true;
    }

    /// Looks for the block of property \a index. Blocks of lower indexes (obsolete or repeated
    /// properties) are skipped by their size; a block of a higher index is left in place so
    /// that the next property can read it. A negative size never moves the reader backwards.
    Block findBlock(qint32 index);

    // The value readers read exactly what their kind needs; a value cut short by the end of
    // the array reads as zero (numbers) or leaves the target as it was (texts, byte arrays).
    /// Reads a qint32 value; 0 when cut short.
    void readInt32(qint32 &value) { value = m_bytes.takeOrZero<qint32>(); }
    /// Reads a one-byte bool; false when cut short.
    void readBool(bool &value) { value = m_bytes.takeOrZero<qint8>() != 0; }
    /// Reads a qint64 value; 0 when cut short.
    void readInt64(qint64 &value) { value = m_bytes.takeOrZero<qint64>(); }
    /// Reads a C string into \a text, up to its first zero byte. Length 0 carries no text and
    /// leaves \a text as it was; so does a length beyond the remaining bytes, which are then
    /// consumed (the stream was cut short).
    void readString(std::string &text);
    /// Reads a length-prefixed byte array; empty when it is null (length 0xFFFFFFFF), empty
    /// or longer than the remaining bytes (which are then consumed).
    void readBytes(QByteArray &bytes);
    /// Reads a nested record's byte array (as readBytes() does) and returns a reader of its
    /// contents, without copying them; it reads from this reader's bytes and must not outlive it.
    PropertyReader readNested();
    /// Reads a vector's element count. False when the count is negative or announces more
    /// elements than the remaining bytes could hold, \a minimumElementSize bytes each.
    bool readCount(qint32 &count, qint64 minimumElementSize = MinimumElementSize);

    /// The bytes not yet read.
    qint64 bytesLeft() const { return m_bytes.bytesLeft(); }
    /// Whether every byte has been read.
    bool atEnd() const { return bytesLeft() <= 0; }
    /// The read position in bytes from the start of this reader's bytes.
    qint64 offset() const { return m_bytes.position(); }

private:
    explicit PropertyReader(ByteReader bytes)
        : m_bytes(bytes)
    {
    }
    /// The bytes of a length-prefixed byte array, consumed; none for a null, empty or cut short one.
    ByteReader takeByteArray();

    QByteArray m_source; // keeps the bytes alive while the reader points into them (top level only)
    ByteReader m_bytes;
};

} // namespace sigdb

#endif
