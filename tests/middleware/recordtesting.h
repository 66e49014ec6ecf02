#ifndef SIGDB_TESTS_MIDDLEWARE_RECORDTESTING_H
#define SIGDB_TESTS_MIDDLEWARE_RECORDTESTING_H

// Helpers of the middleware record tests: encoding and decoding with the error text, and a
// test-side view of a record stream as its property blocks, parsed independently of the
// library's reader: 8-byte header (qint32 index, qint32 size), then size value bytes.

#include <QByteArray>
#include <QString>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace mwtest {

/// The stream of \a record.
template <typename Record>
QByteArray encode(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

/// Decodes \a stream into \a record and returns the text thrown, or "" when none was.
template <typename Record>
std::string decodeError(const QByteArray &stream, Record &record)
{
    try {
        Record::deserialize(stream, record);
    } catch (const QString &message) {
        return message.toStdString();
    }
    return std::string();
}

/// One property block, header included.
struct Block
{
    qint32 index;
    QByteArray bytes;
};
using Blocks = std::vector<Block>;

inline qint32 int32At(const QByteArray &data, int offset)
{
    return qFromBigEndian<qint32>(reinterpret_cast<const uchar *>(data.constData()) + offset);
}

/// Splits \a stream into its blocks; fails the test unless every size lands exactly on the
/// next header and the last one on the end of the array.
inline Blocks splitBlocks(const QByteArray &stream)
{
    Blocks blocks;
    int offset = 0;
    while (offset < stream.size()) {
        if (stream.size() - offset < 8) {
            ADD_FAILURE() << "block header cut at offset " << offset;
            break;
        }
        const qint32 size = int32At(stream, offset + 4);
        if (size < 0 || size > stream.size() - offset - 8) {
            ADD_FAILURE() << "block size " << size << " does not fit at offset " << offset;
            break;
        }
        blocks.push_back({int32At(stream, offset), stream.mid(offset, 8 + size)});
        offset += 8 + size;
    }
    return blocks;
}

inline QByteArray joinBlocks(const Blocks &blocks)
{
    QByteArray stream;
    for (const Block &block : blocks)
        stream += block.bytes;
    return stream;
}

/// A block with index \a index around \a value.
inline QByteArray block(qint32 index, const QByteArray &value)
{
    QByteArray header(8, '\0');
    qToBigEndian<qint32>(index, reinterpret_cast<uchar *>(header.data()));
    qToBigEndian<qint32>(value.size(), reinterpret_cast<uchar *>(header.data()) + 4);
    return header + value;
}

/// The block of property \a index, or an empty array when \a blocks has none.
inline QByteArray blockOf(const Blocks &blocks, qint32 index)
{
    for (const Block &block : blocks) {
        if (block.index == index)
            return block.bytes;
    }
    return {};
}

/// The stream of a record that took its properties from \a primary where \a fromPrimary
/// says so and from \a other everywhere else (properties 0 .. count-1).
inline QByteArray mixBlocks(const Blocks &primary, const Blocks &other, int count,
                            const std::function<bool(int)> &fromPrimary)
{
    QByteArray stream;
    for (int index = 0; index < count; ++index)
        stream += blockOf(fromPrimary(index) ? primary : other, index);
    return stream;
}

/// \a blocks without the block of property \a index.
inline Blocks withoutBlock(Blocks blocks, qint32 index)
{
    blocks.erase(std::remove_if(blocks.begin(), blocks.end(),
                                [&](const Block &block) { return block.index == index; }),
                 blocks.end());
    return blocks;
}

} // namespace mwtest

#endif
