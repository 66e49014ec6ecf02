#include "io/propertystream.h"

#include <cstring>

namespace sigdb {

// ---------------------------------------------------------------------------------------------
// PropertyWriter

void PropertyWriter::writeString(const std::string &text)
{
    // QDataStream's C string: quint32 length counting the terminating zero byte, the bytes.
    const auto length = static_cast<quint32>(std::strlen(text.c_str()) + 1);
    m_bytes.put(length);
    m_bytes.putRaw(text.c_str(), length);
}

void PropertyWriter::writeBytes(const QByteArray &bytes)
{
    if (bytes.isNull())
        return m_bytes.put(quint32(0xFFFFFFFFu));
    m_bytes.put(static_cast<quint32>(bytes.size()));
    m_bytes.putRaw(bytes.constData(), bytes.size());
}

// ---------------------------------------------------------------------------------------------
// PropertyReader

PropertyReader::Block PropertyReader::findBlock(qint32 index)
{
    while (!atEnd()) {
        const qint64 headerStart = m_bytes.position();
        const qint32 blockIndex = m_bytes.takeOrZero<qint32>();
        const qint32 size = m_bytes.takeOrZero<qint32>();
        if (blockIndex == index)
            return Block::Found;
        if (blockIndex > index) {
            m_bytes.rewind(headerStart);
            return Block::Absent;
        }
        m_bytes.skip(size);
    }
    return Block::EndOfStream;
}

void PropertyReader::readString(std::string &text)
{
    const quint32 length = m_bytes.takeOrZero<quint32>();
    if (length == 0)
        return;
    if (length > static_cast<quint64>(bytesLeft()))
        return m_bytes.skipToEnd();
    const char *bytes = m_bytes.cursor();
    text.assign(bytes, qstrnlen(bytes, length));
    m_bytes.skip(length);
}

ByteReader PropertyReader::takeByteArray()
{
    const quint32 length = m_bytes.takeOrZero<quint32>();
    if (length == 0 || length == 0xFFFFFFFFu)
        return ByteReader();
    if (length > static_cast<quint64>(bytesLeft())) {
        m_bytes.skipToEnd();
        return ByteReader();
    }
    const char *begin = m_bytes.cursor();
    m_bytes.skip(length);
    return ByteReader(begin, begin + length);
}

void PropertyReader::readBytes(QByteArray &bytes)
{
    const ByteReader contents = takeByteArray();
    bytes = QByteArray(contents.cursor(), static_cast<int>(contents.bytesLeft()));
}

PropertyReader PropertyReader::readNested()
{
    return PropertyReader(takeByteArray());
}

bool PropertyReader::readCount(qint32 &count, qint64 minimumElementSize)
{
    count = m_bytes.takeOrZero<qint32>();
    return count >= 0 && count <= bytesLeft() / minimumElementSize;
}

} // namespace sigdb
