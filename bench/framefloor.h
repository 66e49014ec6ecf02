#ifndef SIGDB_BENCH_FRAMEFLOOR_H
#define SIGDB_BENCH_FRAMEFLOOR_H

// The floor that the codec benchmarks are measured against: the same bytes written and read
// with bare QDataStream calls and no record logic. A record's encoding is taken apart once
// into its frames (column stream) or blocks (property stream); the floor then writes and reads
// exactly those with one stream call per primitive.
//
// Beside the floor stands the limit: the same frames and blocks written and read through a raw
// pointer into one contiguous array, with a bounds check per value and a byte-swapping load or
// store (qFromBigEndian/qToBigEndian), the output sized once. No codec of these formats can do
// less work; a codec's speed is best read as a fraction of the limit's.

#include <QByteArray>
#include <QDataStream>

#include <string>
#include <vector>

namespace sigdbbench {

/// One frame of the column stream.
struct Frame
{
    enum Kind { Null, Byte, Short, Long, Text } kind = Null;
    qint16 tag = 0;
    qint16 size = 0;
    qint64 number = 0;
    std::string text;
};

/// The frames of a column-stream encoding.
std::vector<Frame> columnFrames(const QByteArray &encoded);
/// Writes \a frames with bare stream calls.
QByteArray writeFrames(const std::vector<Frame> &frames);
/// Reads frames laid out as \a layout with bare stream calls into \a out (texts into strings,
/// numbers into integers), as a decoder with no record logic would.
void readFrames(const QByteArray &encoded, const std::vector<Frame> &layout, std::vector<Frame> &out);

/// The limit's writer and reader of \a frames, doing what writeFrames() and readFrames() do.
QByteArray writeFramesRaw(const std::vector<Frame> &frames);
void readFramesRaw(const QByteArray &encoded, const std::vector<Frame> &layout, std::vector<Frame> &out);

/// One block of the property stream; a nested record is a list of blocks of its own.
struct Block
{
    qint32 index = 0;
    enum Kind { Int32, Bool, Int64, String, Nested, Vector } kind = Int32;
    qint64 number = 0;
    std::string text;
    std::vector<Block> nested;            // Nested: the record's blocks
    std::vector<std::vector<Block>> items; // Vector of records
    std::vector<std::string> strings;      // Vector of strings
};

/// Writes \a blocks with bare stream calls (sizes patched as the property stream does).
QByteArray writeBlocks(const std::vector<Block> &blocks);
/// Reads blocks laid out as \a layout with bare stream calls into \a out.
void readBlocks(const QByteArray &encoded, const std::vector<Block> &layout, std::vector<Block> &out);

/// The limit's writer and reader of \a blocks, doing what writeBlocks() and readBlocks() do.
QByteArray writeBlocksRaw(const std::vector<Block> &blocks);
void readBlocksRaw(const QByteArray &encoded, const std::vector<Block> &layout, std::vector<Block> &out);

} // namespace sigdbbench

#endif
