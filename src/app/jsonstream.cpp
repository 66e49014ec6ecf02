#include "jsonstream.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace sigdbtool {

namespace {

// Written to the device whenever this much has gathered.
constexpr int kFlushSize = 64 * 1024;
// Bytes turned into hex text at a time.
constexpr qint64 kHexPiece = 16 * 1024;

} // namespace

JsonStream::JsonStream(QIODevice *device, Layout layout)
    : m_device(device)
    , m_compact(layout == Compact)
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
    if (!m_compact) {
        write("\n");
        writeIndent();
    }
    return true;
}

void JsonStream::open(char bracket)
{
    const bool written = beginElement();
    if (written)
        write(&bracket, 1);
    m_containers.push_back(Container{true, !written});
}

void JsonStream::close(char bracket)
{
    const Container container = m_containers.back();
    m_containers.pop_back();
    if (container.dropped)
        return;
    if (!container.empty && !m_compact) {
        write("\n");
        writeIndent();
    }
    write(&bracket, 1);
    if (m_containers.empty() && !m_compact)
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
    if (m_keyWritten) {
        write("\"");
        write(name.data(), name.size());
        write(m_compact ? "\":" : "\": ");
    }
    m_afterKey = true;
}

void JsonStream::value(const QJsonValue &value)
{
    if (!beginElement())
        return;
    switch (value.type()) {
    case QJsonValue::Null:
        return write("null");
    case QJsonValue::Bool:
        return write(value.toBool() ? "true" : "false");
    default:
        break;
    }
    if (value.isDouble()) {
        // Whole numbers, by far the most common, are written as QJsonDocument writes them.
        // The range is checked before the conversion, which is undefined beyond it.
        const double number = value.toDouble();
        if (std::fabs(number) < 9007199254740992.0 && std::trunc(number) == number
            && !(number == 0 && std::signbit(number)))
            return write(QByteArray::number(static_cast<qint64>(number)));
    } else if (value.isString()) {
        // A string of printable ASCII without quote or backslash needs no escape.
        const QString text = value.toString();
        const auto plain = [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7f && c != QLatin1Char('"') && c != QLatin1Char('\\'); };
        if (std::all_of(text.begin(), text.end(), plain)) {
            write("\"");
            write(text.toLatin1());
            return write("\"");
        }
    }
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

void JsonStream::write(const char *bytes, int size)
{
    if (!m_device)
        return;
    m_buffer.append(bytes, size);
    if (m_buffer.size() >= kFlushSize)
        flush();
}

void JsonStream::write(const QByteArray &bytes)
{
    write(bytes.constData(), bytes.size());
}

void JsonStream::write(const char *text)
{
    write(text, static_cast<int>(qstrlen(text)));
}

void JsonStream::writeIndent()
{
    static const QByteArray blanks(256, ' ');
    for (int left = 4 * static_cast<int>(m_containers.size()); left > 0; left -= blanks.size())
        write(blanks.constData(), qMin(left, blanks.size()));
}

void JsonStream::flush()
{
    if (m_device && !m_buffer.isEmpty())
        m_device->write(m_buffer);
    m_buffer.clear();
}

} // namespace sigdbtool
