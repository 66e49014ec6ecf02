#ifndef SIGDB_IO_PROPERTYSTREAM_H
#define SIGDB_IO_PROPERTYSTREAM_H

#include "sigdbref_export.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <string>

namespace sigdb {

// The reference codec of the tagged property stream: blocks written and read with bare
// QDataStream calls (version 12, big-endian), as the format is defined. It declares the same
// classes as the library's io/propertystream.h and shadows it in the reference program.
//
// The tagged property stream of the middleware records. A record is the plain sequence of its
// property blocks in ascending index order, with no header, type, count or terminator:
//
//     qint32 index | qint32 size | value (size bytes)
//
// The size is patched in after the value has been written, so a reader can skip any block it
// does not know by its size. That makes the stream compatible in both directions: a newer
// writer's extra blocks are skipped or ignored, and an older writer's shorter stream simply
// ends early. Streams are opened at QDataStream version 12 (Qt_4_8), big-endian.
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

/// Writes property blocks into a byte array (write-only, from its first byte on).
class SIGDBREF_EXPORT PropertyWriter
{
public:
    explicit PropertyWriter(QByteArray &target);
    PropertyWriter(const PropertyWriter &) = delete;
    PropertyWriter &operator=(const PropertyWriter &) = delete;

    /// Writes one block for property \a index: the header, whatever \a writeValue writes
    /// through this writer, then the value's byte size patched into the header.
    template <typename WriteValue>
    void writeBlock(qint32 index, WriteValue writeValue)
    {
        const qint64 start = openBlock(index);
        writeValue();
        closeBlock(start);
    }
    /// A nested record's byte array: its length, patched in after \a writeRecord wrote it.
    template <typename WriteRecord>
    void writeNested(WriteRecord writeRecord)
    {
        const qint64 start = m_stream.device()->pos();
        m_stream << quint32(0);
        writeRecord();
        patchLength(start);
    }
    /// Nothing to do: the stream writes through at once.
    void finish() {}

    void writeInt32(qint32 value);
    void writeBool(bool value);
    void writeInt64(qint64 value);
    /// A text as a C string: cut at its first zero byte, bytes as they are.
    void writeString(const std::string &text);
    /// A byte array with its length (the carrier of nested records).
    void writeBytes(const QByteArray &bytes);
    /// The element count that precedes a vector's elements.
    void writeCount(std::size_t count);

private:
    qint64 openBlock(qint32 index);
    void closeBlock(qint64 start);
    void patchLength(qint64 lengthAt);

    QDataStream m_stream;
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

    explicit PropertyReader(const QByteArray &source);
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
    void readInt32(qint32 &value);
    void readBool(bool &value);
    void readInt64(qint64 &value);
    /// Reads a C string into \a text, up to its first zero byte. Length 0 carries no text and
    /// leaves \a text as it was; so does a length beyond the remaining bytes, which are then
    /// consumed (the stream was cut short).
    void readString(std::string &text);
    /// Reads a length-prefixed byte array; empty when it is null (length 0xFFFFFFFF), empty
    /// or longer than the remaining bytes (which are then consumed).
    void readBytes(QByteArray &bytes);
    /// Reads a nested record's byte array and returns a reader of its contents.
    PropertyReader readNested();
    /// Reads a vector's element count. False when the count is negative or announces more
    /// elements than the remaining bytes could hold, \a minimumElementSize bytes each.
    bool readCount(qint32 &count, qint64 minimumElementSize = MinimumElementSize);

    /// The bytes not yet read.
    qint64 bytesLeft() const;
    bool atEnd() const { return bytesLeft() <= 0; }
    qint64 offset() const { return m_stream.device()->pos(); }

private:
    void skipToEnd();

    QDataStream m_stream;
};

} // namespace sigdb

#endif
