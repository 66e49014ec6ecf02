#include "io/columnstream.h"

#include <algorithm>
#include <cstring>

namespace sigdb {

namespace {

// Frame sizes are 16-bit. A text's size is length + 1 truncated to 16 bits; readers take any
// non-zero size for a text, so a size that would truncate to 0 (and read as NULL) is sent as
// 0xFFFF instead.
qint16 textFrameSize(size_t length)
{
    const auto size = static_cast<qint16>(static_cast<quint16>(length + 1));
    return size == 0 ? qint16(-1) : size;
}

constexpr quint64 kOnes = 0x0101010101010101ULL;
constexpr quint64 kHighs = 0x8080808080808080ULL;

/// Whether one of the eight bytes of \a word is zero.
constexpr bool hasZeroByte(quint64 word)
{
    return ((word - kOnes) & ~word & kHighs) != 0;
}

/// The length of a C string held in \a size bytes: up to its first zero byte, if any. Column
/// texts are short, so the bytes are looked at eight at a time in place rather than through a
/// library call.
size_t textLength(const char *text, size_t size)
{
    size_t at = 0;
    for (; at + 8 <= size; at += 8) {
        quint64 word = 0;
        std::memcpy(&word, text + at, sizeof word);
        if (hasZeroByte(word))
            break;
    }
    while (at < size && text[at] != '\0')
        ++at;
    return at;
}

/// Copies the C string held in \a size bytes of \a text to \a out, up to its first zero byte,
/// in one pass, and returns its length. \a out has room for \a size bytes.
size_t copyText(char *out, const char *text, size_t size)
{
    size_t at = 0;
    for (; at + 8 <= size; at += 8) {
        quint64 word = 0;
        std::memcpy(&word, text + at, sizeof word);
        if (hasZeroByte(word))
            break;
        std::memcpy(out + at, &word, sizeof word);
    }
    for (; at < size && text[at] != '\0'; ++at)
        out[at] = text[at];
    return at;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// ColumnWriter

void ColumnWriter::write(const base::DbDataType<std::string> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), 0);
    // Texts travel as C strings: a string holding a zero byte is cut there.
    const std::string &text = value.getData();
    writeText(value.getID(), text.data(), text.size());
}

void ColumnWriter::writeUntagged(const base::DbDataType<std::string> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), 0);
    const std::string &text = value.getData();
    writeText(0, text.data(), text.size());
}

void ColumnWriter::writeUntagged(const base::DbDataType<std::string> *values, size_t count)
{
    // The characters of a record's texts lie wherever the heap put them: asking for those of
    // a text a few places ahead while this one is written hides most of the wait for memory.
    constexpr size_t ahead = 8;
    for (size_t i = 0; i < count; ++i) {
        if (i + ahead < count)
            __builtin_prefetch(values[i + ahead].getData().data());
        writeUntagged(values[i]);
    }
}

void ColumnWriter::writeFlags(int tag, const std::vector<bool> &flags)
{
    writeShortField(tag, static_cast<qint16>(flags.size()));
    for (const bool flag : flags)
        writeByteField(tag, flag ? 1 : 0);
}

void ColumnWriter::writeTextField(int tag, const QByteArray &text)
{
    writeText(tag, text.constData(), static_cast<size_t>(text.size()));
}

void ColumnWriter::writeText(int tag, const char *text, size_t size)
{
    // The value is QDataStream's C string: quint32 length + 1, the characters and a zero byte.
    // A text holding a zero byte is cut there, so the characters are copied while they are
    // looked for it, and the frame is claimed for the longest outcome and trimmed after.
    const auto room = static_cast<qint64>(size) + 1;
    char *at = frame(tag, 0, 4 + room);
    const size_t length = copyText(at + 4, text, size);
    at[4 + length] = '\0';
    m_bytes.unclaim(static_cast<qint64>(size - length));
    ByteWriter::store(at - 2, textFrameSize(length));
    ByteWriter::store(at, static_cast<quint32>(length + 1));
}

// ---------------------------------------------------------------------------------------------
// ColumnReader

bool ColumnReader::readFlags(int tag, std::vector<bool> &flags)
{
    qint16 count = 0;
    if (!readShortField(tag, count))
        return false;
    std::vector<bool> read;
    // Every flag takes a five-byte frame, so the bytes left bound what is worth reserving.
    read.reserve(static_cast<size_t>(std::clamp<qint64>(count, 0, bytesLeft() / 5)));
    for (qint16 i = 0; i < count; ++i) {
        qint8 flag = 0;
        if (!readByteField(tag, flag))
            return false;
        read.push_back(flag != 0);
    }
    flags = std::move(read);
    return true;
}

bool ColumnReader::readTextField(int tag, QByteArray &text)
{
    qint16 frameTag = 0;
    qint16 size = 0;
    readHeader(frameTag, size);
    if (size == 0)
        return false;
    const char *bytes = nullptr;
    size_t length = 0;
    if (!takeCString(bytes, length))
        return false;
    text = QByteArray(bytes, static_cast<int>(length));
    return frameTag == static_cast<qint16>(tag);
}

bool ColumnReader::takeCString(const char *&text, size_t &length)
{
    // The layout of QDataStream's C string: quint32 length counting the terminating zero
    // byte, then the bytes. A length of 0 carries no text at all. The length is checked
    // against the bytes that are really there before anything is allocated; a text cut short
    // by the end of the input fails, its bytes consumed. The text ends at its first zero byte.
    const quint32 wireLength = m_bytes.takeOrZero<quint32>();
    if (wireLength == 0 || wireLength > static_cast<quint64>(m_bytes.bytesLeft())) {
        m_bytes.skip(wireLength);
        return false;
    }
    text = m_bytes.cursor();
    length = textLength(text, wireLength);
    m_bytes.skip(wireLength);
    return true;
}

ColumnReader::Nesting::Nesting(ColumnReader &reader)
    : m_reader(reader)
    , m_ok(++reader.m_depth <= MaxNesting)
{
    if (!m_ok)
        reader.m_nestedTooDeep = true;
}

ColumnReader::Nesting::~Nesting()
{
    --m_reader.m_depth;
}

} // namespace sigdb
