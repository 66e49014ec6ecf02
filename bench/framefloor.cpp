#include "framefloor.h"

#include <QBuffer>
#include <QtEndian>

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

} // namespace sigdbbench
