#include "framefloor.h"

#include <QBuffer>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace sigdbbench {

namespace {

constexpr QDataStream::Version kVersion = QDataStream::Qt_4_8;

} // namespace

std::vector<Frame> columnFrames(const QByteArray &encoded)
{
    std::vector<Frame> frames;
    QDataStream stream(encoded);
    stream.setVersion(kVersion);
    while (!stream.atEnd()) {
        Frame frame;
        stream >> frame.tag >> frame.size;
        // A text frame's size is its length + 1 and a C string of that length follows.
        const qint64 at = stream.device()->pos();
        const quint32 length = encoded.size() - at >= 4
            ? qFromBigEndian<quint32>(reinterpret_cast<const uchar *>(encoded.constData() + at))
            : 0;
        const bool text = frame.size != 0 && length == static_cast<quint16>(frame.size)
            && encoded.size() - at - 4 >= length && encoded.at(static_cast<int>(at + 3 + length)) == '\0';
        if (frame.size == 0) {
            frame.kind = Frame::Null;
        } else if (text) {
            quint32 length = 0;
            stream >> length;
            frame.text.resize(length);
            stream.readRawData(&frame.text[0], static_cast<int>(length));
            frame.text.resize(length - 1);
            frame.kind = Frame::Text;
        } else if (frame.size == 1) {
            qint8 value = 0;
            stream >> value;
            frame.kind = Frame::Byte;
            frame.number = value;
        } else if (frame.size == 2) {
            qint16 value = 0;
            stream >> value;
            frame.kind = Frame::Short;
            frame.number = value;
        } else {
            stream >> frame.number;
            frame.kind = Frame::Long;
        }
        frames.push_back(std::move(frame));
    }
    return frames;
}

QByteArray writeFrames(const std::vector<Frame> &frames)
{
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setVersion(kVersion);
    for (const Frame &frame : frames) {
        stream << frame.tag << frame.size;
        switch (frame.kind) {
        case Frame::Null:
            break;
        case Frame::Byte:
            stream << static_cast<qint8>(frame.number);
            break;
        case Frame::Short:
            stream << static_cast<qint16>(frame.number);
            break;
        case Frame::Long:
            stream << frame.number;
            break;
        case Frame::Text:
            stream.writeBytes(frame.text.c_str(), static_cast<uint>(frame.text.size() + 1));
            break;
        }
    }
    return out;
}

void readFrames(const QByteArray &encoded, const std::vector<Frame> &layout, std::vector<Frame> &out)
{
    QDataStream stream(encoded);
    stream.setVersion(kVersion);
    out.resize(layout.size());
    for (size_t i = 0; i < layout.size(); ++i) {
        Frame &frame = out[i];
        stream >> frame.tag >> frame.size;
        switch (layout[i].kind) {
        case Frame::Null:
            break;
        case Frame::Byte: {
            qint8 value = 0;
            stream >> value;
            frame.number = value;
            break;
        }
        case Frame::Short: {
            qint16 value = 0;
            stream >> value;
            frame.number = value;
            break;
        }
        case Frame::Long:
            stream >> frame.number;
            break;
        case Frame::Text: {
            quint32 length = 0;
            stream >> length;
            frame.text.resize(length);
            stream.readRawData(&frame.text[0], static_cast<int>(length));
            frame.text.resize(length - 1);
            break;
        }
        }
    }
}

namespace {

void writeString(QDataStream &stream, const std::string &text)
{
    stream.writeBytes(text.c_str(), static_cast<uint>(text.size() + 1));
}

void readString(QDataStream &stream, std::string &text)
{
    quint32 length = 0;
    stream >> length;
    text.resize(length);
    stream.readRawData(&text[0], static_cast<int>(length));
    text.resize(length ? length - 1 : 0);
}

void writeBlocksTo(QDataStream &stream, const std::vector<Block> &blocks);

QByteArray blocksAsBytes(const std::vector<Block> &blocks)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kVersion);
    writeBlocksTo(stream, blocks);
    return bytes;
}

void writeBlocksTo(QDataStream &stream, const std::vector<Block> &blocks)
{
    for (const Block &block : blocks) {
        const qint64 start = stream.device()->pos();
        stream << block.index << qint32(0);
        switch (block.kind) {
        case Block::Int32:
            stream << static_cast<qint32>(block.number);
            break;
        case Block::Bool:
            stream << (block.number != 0);
            break;
        case Block::Int64:
            stream << block.number;
            break;
        case Block::String:
            writeString(stream, block.text);
            break;
        case Block::Nested:
            stream << blocksAsBytes(block.nested);
            break;
        case Block::Vector:
            if (!block.strings.empty() || block.items.empty()) {
                stream << static_cast<qint32>(block.strings.size());
                for (const std::string &text : block.strings)
                    writeString(stream, text);
            } else {
                stream << static_cast<qint32>(block.items.size());
                for (const std::vector<Block> &item : block.items)
                    stream << blocksAsBytes(item);
            }
            break;
        }
        const qint64 end = stream.device()->pos();
        stream.device()->seek(start + 4);
        stream << static_cast<qint32>(end - start - 8);
        stream.device()->seek(end);
    }
}

void readBlocksFrom(QDataStream &stream, const std::vector<Block> &layout, std::vector<Block> &out);

void readNested(const QByteArray &bytes, const std::vector<Block> &layout, std::vector<Block> &out)
{
    QDataStream stream(bytes);
    stream.setVersion(kVersion);
    readBlocksFrom(stream, layout, out);
}

void readBlocksFrom(QDataStream &stream, const std::vector<Block> &layout, std::vector<Block> &out)
{
    out.resize(layout.size());
    for (size_t i = 0; i < layout.size(); ++i) {
        const Block &shape = layout[i];
        Block &block = out[i];
        qint32 size = 0;
        stream >> block.index >> size;
        switch (shape.kind) {
        case Block::Int32: {
            qint32 value = 0;
            stream >> value;
            block.number = value;
            break;
        }
        case Block::Bool: {
            bool value = false;
            stream >> value;
            block.number = value;
            break;
        }
        case Block::Int64:
            stream >> block.number;
            break;
        case Block::String:
            readString(stream, block.text);
            break;
        case Block::Nested: {
            QByteArray bytes;
            stream >> bytes;
            readNested(bytes, shape.nested, block.nested);
            break;
        }
        case Block::Vector: {
            qint32 count = 0;
            stream >> count;
            if (!shape.strings.empty() || shape.items.empty()) {
                block.strings.resize(static_cast<size_t>(count));
                for (std::string &text : block.strings)
                    readString(stream, text);
            } else {
                block.items.resize(static_cast<size_t>(count));
                for (size_t item = 0; item < block.items.size(); ++item) {
                    QByteArray bytes;
                    stream >> bytes;
                    readNested(bytes, shape.items[item], block.items[item]);
                }
            }
            break;
        }
        }
    }
}

} // namespace

QByteArray writeBlocks(const std::vector<Block> &blocks)
{
    return blocksAsBytes(blocks);
}

void readBlocks(const QByteArray &encoded, const std::vector<Block> &layout, std::vector<Block> &out)
{
    readNested(encoded, layout, out);
}

// ---------------------------------------------------------------------------------------------
// The limit: a raw pointer over one contiguous array.

namespace {

template <typename T>
char *storeRaw(char *at, T value)
{
    qToBigEndian(value, at);
    return at + sizeof(T);
}

char *storeText(char *at, const std::string &text)
{
    const auto length = static_cast<quint32>(text.size() + 1);
    at = storeRaw(at, length);
    std::memcpy(at, text.c_str(), length);
    return at + length;
}

/// A bounds-checked cursor: every load first checks the bytes left.
struct RawCursor
{
    const char *at;
    const char *end;

    template <typename T>
    T load()
    {
        if (end - at < static_cast<qint64>(sizeof(T))) {
            at = end;
            return T(0);
        }
        const T value = qFromBigEndian<T>(at);
        at += sizeof(T);
        return value;
    }
    void loadText(std::string &text)
    {
        const quint32 length = load<quint32>();
        if (length == 0 || static_cast<quint64>(end - at) < length) {
            at = end;
            text.clear();
            return;
        }
        text.assign(at, length - 1);
        at += length;
    }
};

qint64 frameValueSize(const Frame &frame)
{
    switch (frame.kind) {
    case Frame::Null:
        return 0;
    case Frame::Byte:
        return 1;
    case Frame::Short:
        return 2;
    case Frame::Long:
        return 8;
    case Frame::Text:
        return 4 + static_cast<qint64>(frame.text.size()) + 1;
    }
    return 0;
}

} // namespace

QByteArray writeFramesRaw(const std::vector<Frame> &frames)
{
    qint64 total = 0;
    for (const Frame &frame : frames)
        total += 4 + frameValueSize(frame);
    QByteArray out(static_cast<int>(total), Qt::Uninitialized);
    char *at = out.data();
    for (const Frame &frame : frames) {
        at = storeRaw(at, frame.tag);
        at = storeRaw(at, frame.size);
        switch (frame.kind) {
        case Frame::Null:
            break;
        case Frame::Byte:
            *at++ = static_cast<char>(frame.number);
            break;
        case Frame::Short:
            at = storeRaw(at, static_cast<qint16>(frame.number));
            break;
        case Frame::Long:
            at = storeRaw(at, frame.number);
            break;
        case Frame::Text:
            at = storeText(at, frame.text);
            break;
        }
    }
    return out;
}

void readFramesRaw(const QByteArray &encoded, const std::vector<Frame> &layout, std::vector<Frame> &out)
{
    RawCursor cursor{encoded.constData(), encoded.constData() + encoded.size()};
    out.resize(layout.size());
    for (size_t i = 0; i < layout.size(); ++i) {
        Frame &frame = out[i];
        frame.tag = cursor.load<qint16>();
        frame.size = cursor.load<qint16>();
        switch (layout[i].kind) {
        case Frame::Null:
            break;
        case Frame::Byte:
            frame.number = cursor.load<qint8>();
            break;
        case Frame::Short:
            frame.number = cursor.load<qint16>();
            break;
        case Frame::Long:
            frame.number = cursor.load<qint64>();
            break;
        case Frame::Text:
            cursor.loadText(frame.text);
            break;
        }
    }
}

namespace {

qint64 blocksSize(const std::vector<Block> &blocks);

qint64 blockValueSize(const Block &block)
{
    switch (block.kind) {
    case Block::Int32:
        return 4;
    case Block::Bool:
        return 1;
    case Block::Int64:
        return 8;
    case Block::String:
        return 4 + static_cast<qint64>(block.text.size()) + 1;
    case Block::Nested:
        return 4 + blocksSize(block.nested);
    case Block::Vector: {
        qint64 size = 4;
        if (!block.strings.empty() || block.items.empty()) {
            for (const std::string &text : block.strings)
                size += 4 + static_cast<qint64>(text.size()) + 1;
        } else {
            for (const std::vector<Block> &item : block.items)
                size += 4 + blocksSize(item);
        }
        return size;
    }
    }
    return 0;
}

qint64 blocksSize(const std::vector<Block> &blocks)
{
    qint64 size = 0;
    for (const Block &block : blocks)
        size += 8 + blockValueSize(block);
    return size;
}

char *storeBlocks(char *at, const std::vector<Block> &blocks)
{
    for (const Block &block : blocks) {
        at = storeRaw(at, block.index);
        char *sizeAt = at;
        at += 4;
        switch (block.kind) {
        case Block::Int32:
            at = storeRaw(at, static_cast<qint32>(block.number));
            break;
        case Block::Bool:
            *at++ = block.number != 0 ? 1 : 0;
            break;
        case Block::Int64:
            at = storeRaw(at, block.number);
            break;
        case Block::String:
            at = storeText(at, block.text);
            break;
        case Block::Nested: {
            char *lengthAt = at;
            at = storeBlocks(at + 4, block.nested);
            storeRaw(lengthAt, static_cast<quint32>(at - lengthAt - 4));
            break;
        }
        case Block::Vector:
            if (!block.strings.empty() || block.items.empty()) {
                at = storeRaw(at, static_cast<qint32>(block.strings.size()));
                for (const std::string &text : block.strings)
                    at = storeText(at, text);
            } else {
                at = storeRaw(at, static_cast<qint32>(block.items.size()));
                for (const std::vector<Block> &item : block.items) {
                    char *lengthAt = at;
                    at = storeBlocks(at + 4, item);
                    storeRaw(lengthAt, static_cast<quint32>(at - lengthAt - 4));
                }
            }
            break;
        }
        storeRaw(sizeAt, static_cast<qint32>(at - sizeAt - 4));
    }
    return at;
}

void loadBlocks(RawCursor &cursor, const std::vector<Block> &layout, std::vector<Block> &out);

void loadNested(RawCursor &cursor, const std::vector<Block> &layout, std::vector<Block> &out)
{
    const quint32 length = cursor.load<quint32>();
    const qint64 available = qMin<qint64>(length, cursor.end - cursor.at);
    RawCursor nested{cursor.at, cursor.at + available};
    loadBlocks(nested, layout, out);
    cursor.at += available;
}

void loadBlocks(RawCursor &cursor, const std::vector<Block> &layout, std::vector<Block> &out)
{
    out.resize(layout.size());
    for (size_t i = 0; i < layout.size(); ++i) {
        const Block &shape = layout[i];
        Block &block = out[i];
        block.index = cursor.load<qint32>();
        cursor.load<qint32>(); // the size
        switch (shape.kind) {
        case Block::Int32:
            block.number = cursor.load<qint32>();
            break;
        case Block::Bool:
            block.number = cursor.load<qint8>() != 0;
            break;
        case Block::Int64:
            block.number = cursor.load<qint64>();
            break;
        case Block::String:
            cursor.loadText(block.text);
            break;
        case Block::Nested:
            loadNested(cursor, shape.nested, block.nested);
            break;
        case Block::Vector: {
            const qint32 count = cursor.load<qint32>();
            if (!shape.strings.empty() || shape.items.empty()) {
                block.strings.resize(static_cast<size_t>(std::clamp<qint64>(count, 0, (cursor.end - cursor.at) / 5)));
                for (std::string &text : block.strings)
                    cursor.loadText(text);
            } else {
                block.items.resize(static_cast<size_t>(std::clamp<qint64>(count, 0, (cursor.end - cursor.at) / 4)));
                for (size_t item = 0; item < block.items.size(); ++item)
                    loadNested(cursor, shape.items[item], block.items[item]);
            }
            break;
        }
        }
    }
}

} // namespace

QByteArray writeBlocksRaw(const std::vector<Block> &blocks)
{
    QByteArray out(static_cast<int>(blocksSize(blocks)), Qt::Uninitialized);
    storeBlocks(out.data(), blocks);
    return out;
}

void readBlocksRaw(const QByteArray &encoded, const std::vector<Block> &layout, std::vector<Block> &out)
{
    RawCursor cursor{encoded.constData(), encoded.constData() + encoded.size()};
    loadBlocks(cursor, layout, out);
}

} // namespace sigdbbench
