#include "io/columnstream.h"

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

} // namespace

// ---------------------------------------------------------------------------------------------
// ColumnWriter

void ColumnWriter::write(const base::DbDataType<std::string> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), 0);
    // Texts travel as C strings: a string holding a zero byte is cut there.
    const std::string &text = value.getData();
    writeText(value.getID(), text.c_str(), std::strlen(text.c_str()));
}

void ColumnWriter::writeUntagged(const base::DbDataType<std::string> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), 0);
    const std::string &text = value.getData();
    writeText(0, text.c_str(), std::strlen(text.c_str()));
}

void ColumnWriter::writeFlags(int tag, const std::vector<bool> &flags)
{
    writeShortField(tag, static_cast<qint16>(flags.size()));
    for (const bool flag : flags)
        writeByteField(tag, flag ? 1 : 0);
}

void ColumnWriter::writeTextField(int tag, const QByteArray &text)
{
    writeText(tag, text.constData(), qstrnlen(text.constData(), static_cast<uint>(text.size())));
}

void ColumnWriter::writeText(int tag, const char *text, size_t length)
{
    // The value is QDataStream's C string: quint32 length + 1, the bytes and a zero byte (the
    // one that ends the C string, or the array's terminator for a QByteArray).
    const auto wireLength = static_cast<quint32>(length + 1);
    char *at = frame(tag, textFrameSize(length), 4 + static_cast<qint64>(wireLength));
    at = ByteWriter::store(at, wireLength);
    std::memcpy(at, text, wireLength);
}

// ---------------------------------------------------------------------------------------------
// ColumnReader

bool ColumnReader::read(base::DbDataType<std::string> &value)
{
    qint16 tag = 0;
    qint16 size = 0;
    readHeader(tag, size);
    const bool tagMatches = tag == static_cast<qint16>(value.getID());
    if (size == 0) {
        value.setNull(true);
        return tagMatches;
    }
    if (!readCString(value.getData())) {
        value.setNull(true);
        return false;
    }
    value.setNull(false);
    return tagMatches;
}

bool ColumnReader::readFlags(int tag, std::vector<bool> &flags)
{
    qint16 count = 0;
    if (!readShortField(tag, count))
        return false;
    std::vector<bool> read;
    // Every flag takes a five-byte frame, so the bytes left bound what is worth reserving.
    read.reserve(static_cast<size_t>(qBound<qint64>(0, count, bytesLeft() / 5)));
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
    std::string read;
    if (!readCString(read))
        return false;
    text = QByteArray(read.data(), static_cast<int>(read.size()));
    return frameTag == static_cast<qint16>(tag);
}

bool ColumnReader::readCString(std::string &text)
{
    // The layout of QDataStream's C string: quint32 length counting the terminating zero
    // byte, then the bytes. A length of 0 carries no text at all. The length is checked
    // against the bytes that are really there before anything is allocated; a text cut short
    // by the end of the input fails, its bytes consumed.
    const quint32 length = m_bytes.takeOrZero<quint32>();
    if (length == 0 || length > static_cast<quint64>(m_bytes.bytesLeft())) {
        m_bytes.skip(length);
        return false;
    }
    const char *bytes = m_bytes.cursor();
    text.assign(bytes, qstrnlen(bytes, length));
    m_bytes.skip(length);
    return true;
}

ColumnReader::Nesting::Nesting(ColumnReader &reader)
    : m_reader(reader)
    , m_ok(++reader.m_depth <= MaxNesting)
{
}

ColumnReader::Nesting::~Nesting()
{
    --m_reader.m_depth;
}

} // namespace sigdb
