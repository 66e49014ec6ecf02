#include "jsonstream.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>

namespace sigdbtool {

namespace {

// Written to the device whenever this much has gathered.
constexpr int kFlushSize = 64 * 1024;
// Bytes turned into hex text at a time.
constexpr qint64 kHexPiece = 16 * 1024;

} // namespace

JsonStream::JsonStream(QIODevice *device)
    : m_device(device)
{
}

JsonStream::~JsonStream()
{
    flush();
}

bool JsonStream::beginElement()
{
    if (m_afterKey) {
        m_afterKey = false;
        return m_keyWritten;
    }
    if (m_muted)
        return false;
    if (m_containers.empty())
        return true;
    Container &container = m_containers.back();
    if (container.dropped)
        return false;
    if (!container.empty)
        write(",");
    container.empty = false;
    write("\n");
    writeIndent();
    return true;
}

void JsonStream::open(char bracket)
{
    const bool written = beginElement();
    if (written)
        write(QByteArray(1, bracket));
    m_containers.push_back(Container{true, !written});
}

void JsonStream::close(char bracket)
{
    const Container container = m_containers.back();
    m_containers.pop_back();
    if (container.dropped)
        return;
    if (!container.empty) {
        write("\n");
        writeIndent();
    }
    write(QByteArray(1, bracket));
    if (m_containers.empty())
        write("\n");
}

void JsonStream::beginObject()
{
    open('{');
}

void JsonStream::endObject()
{
    close('}');
}

void JsonStream::beginArray()
{
    open('[');
}

void JsonStream::endArray()
{
    close(']');
}

void JsonStream::key(QLatin1String name)
{
    // A dropped member drops its value with it.
    m_keyWritten = beginElement();
    if (m_keyWritten)
        write(QByteArray("\"") + name.data() + "\": ");
    m_afterKey = true;
}

void JsonStream::value(const QJsonValue &value)
{
    if (!beginElement())
        return;
    // QJsonDocument writes arrays and objects only; the brackets of the one-element array are
    // taken off again.
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    write(text.mid(1, text.size() - 2));
}

void JsonStream::number(qint64 number)
{
    if (beginElement())
        write(QByteArray::number(number));
}

void JsonStream::hexValue(const char *data, qint64 size)
{
    if (!beginElement())
        return;
    write("\"");
    for (qint64 at = 0; at < size; at += kHexPiece) {
        const qint64 piece = qMin(kHexPiece, size - at);
        if (at > 0)
            write(" ");
        write(QByteArray::fromRawData(data + at, static_cast<int>(piece)).toHex(' '));
    }
    write("\"");
}

void JsonStream::write(const QByteArray &bytes)
{
    if (!m_device)
        return;
    m_buffer.append(bytes);
    if (m_buffer.size() >= kFlushSize)
        flush();
}

void JsonStream::writeIndent()
{
    write(QByteArray(4 * static_cast<int>(m_containers.size()), ' '));
}

void JsonStream::flush()
{
    if (m_device && !m_buffer.isEmpty())
        m_device->write(m_buffer);
    m_buffer.clear();
}

} // namespace sigdbtool
