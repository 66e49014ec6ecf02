#include "propertystream.h"

#include <QIODevice>

#include <cstring>

namespace sigdb {

namespace {

constexpr QDataStream::Version kStreamVersion = QDataStream::Qt_4_8; // version 12
constexpr qint64 kBlockHeaderSize = 8;                               // index and size

} // namespace

// ---------------------------------------------------------------------------------------------
// PropertyWriter

PropertyWriter::PropertyWriter(QByteArray &target)
    : m_stream(&target, QIODevice::WriteOnly)
{
    m_stream.setVersion(kStreamVersion);
}

qint64 PropertyWriter::openBlock(qint32 index)
{
    const qint64 start = m_stream.device()->pos();
    m_stream << index << qint32(0);
    return start;
}

void PropertyWriter::closeBlock(qint64 start)
{
    patchLength(start + kBlockHeaderSize / 2);
}

void PropertyWriter::patchLength(qint64 lengthAt)
{
    // QDataStream refuses to skip backwards, so the length is patched by moving the device
    // itself; the bytes are the same as stepping back over the value and the length.
    QIODevice *device = m_stream.device();
    const qint64 end = device->pos();
    device->seek(lengthAt);
    m_stream << static_cast<qint32>(end - lengthAt - 4);
    device->seek(end);
}

void PropertyWriter::writeInt32(qint32 value)
{
    m_stream << value;
}

void PropertyWriter::writeBool(bool value)
{
    m_stream << value;
}

void PropertyWriter::writeInt64(qint64 value)
{
    m_stream << value;
}

void PropertyWriter::writeString(const std::string &text)
{
    m_stream << text.c_str();
}

void PropertyWriter::writeBytes(const QByteArray &bytes)
{
    m_stream << bytes;
}

void PropertyWriter::writeCount(std::size_t count)
{
    m_stream << static_cast<qint32>(count);
}

// ---------------------------------------------------------------------------------------------
// PropertyReader

PropertyReader::PropertyReader(const QByteArray &source)
    : m_stream(source)
{
    m_stream.setVersion(kStreamVersion);
}

PropertyReader::Block PropertyReader::findBlock(qint32 index)
{
    while (!atEnd()) {
        QIODevice *device = m_stream.device();
        const qint64 headerStart = device->pos();
        qint32 blockIndex = 0;
        qint32 size = 0;
        m_stream >> blockIndex >> size;
        if (blockIndex == index)
            return Block::Found;
        if (blockIndex > index) {
            device->seek(headerStart);
            return Block::Absent;
        }
        if (size > 0)
            m_stream.skipRawData(size);
    }
    return Block::EndOfStream;
}

void PropertyReader::readInt32(qint32 &value)
{
    m_stream >> value;
}

void PropertyReader::readBool(bool &value)
{
    m_stream >> value;
}

void PropertyReader::readInt64(qint64 &value)
{
    m_stream >> value;
}

void PropertyReader::readString(std::string &text)
{
    quint32 length = 0;
    m_stream >> length;
    if (length == 0)
        return;
    if (length > static_cast<quint64>(bytesLeft()))
        return skipToEnd();
    std::string buffer(length, '\0');
    m_stream.readRawData(&buffer[0], static_cast<int>(length));
    buffer.resize(qstrnlen(buffer.data(), length));
    text = std::move(buffer);
}

void PropertyReader::readBytes(QByteArray &bytes)
{
    bytes.clear();
    quint32 length = 0;
    m_stream >> length;
    if (length == 0 || length == 0xFFFFFFFFu)
        return;
    if (length > static_cast<quint64>(bytesLeft()))
        return skipToEnd();
    bytes.resize(static_cast<int>(length));
    m_stream.readRawData(bytes.data(), static_cast<int>(length));
}

PropertyReader PropertyReader::readNested()
{
    QByteArray bytes;
    readBytes(bytes);
    return PropertyReader(bytes);
}

bool PropertyReader::readCount(qint32 &count, qint64 minimumElementSize)
{
    count = 0;
    m_stream >> count;
    return count >= 0 && count <= bytesLeft() / minimumElementSize;
}

qint64 PropertyReader::bytesLeft() const
{
    return m_stream.device()->bytesAvailable();
}

void PropertyReader::skipToEnd()
{
    QIODevice *device = m_stream.device();
    device->seek(device->size());
}

} // namespace sigdb
