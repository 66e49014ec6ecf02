#include "columnstream.h"

#include <QIODevice>

#include <cstring>

namespace sigdb {

namespace {

constexpr QDataStream::Version kStreamVersion = QDataStream::Qt_4_8; // version 12

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

ColumnWriter::ColumnWriter(QByteArray &target)
    : m_stream(&target, QIODevice::WriteOnly)
{
    m_stream.setVersion(kStreamVersion);
}

void ColumnWriter::writeHeader(int tag, int size)
{
    ++m_frames;
    m_stream << static_cast<qint16>(tag) << static_cast<qint16>(size);
}

void ColumnWriter::writeByteField(int tag, qint8 value)
{
    writeHeader(tag, ColumnSize_Narrow);
    m_stream << value;
}

void ColumnWriter::writeShortField(int tag, qint16 value)
{
    writeHeader(tag, ColumnSize_Short);
    m_stream << value;
}

void ColumnWriter::writeLongField(int tag, qint64 value)
{
    writeHeader(tag, ColumnSize_Wide);
    m_stream << value;
}

void ColumnWriter::write(const base::DbDataType<unsigned long long> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeLongField(value.getID(), static_cast<qint64>(value.getData()));
}

void ColumnWriter::write(const base::DbDataType<double> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeHeader(value.getID(), ColumnSize_Wide);
    m_stream << value.getData();
}

void ColumnWriter::write(const base::DbDataType<bool> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeShortField(value.getID(), value.getData() ? 1 : 0);
}

void ColumnWriter::write(const base::DbDataType<char> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    // The byte is sign-extended: a character above 0x7F travels as a negative number.
    writeShortField(value.getID(), static_cast<qint16>(static_cast<signed char>(value.getData())));
}

void ColumnWriter::write(const base::DbDataType<int> &value)
{
    writeNarrow(value.getID(), value.isNull(), value.getData());
}

void ColumnWriter::writeWide(const base::DbDataType<int> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeLongField(value.getID(), value.getData());
}

void ColumnWriter::writeWide(const base::DbDataType<unsigned int> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeLongField(value.getID(), static_cast<qint64>(value.getData()));
}

void ColumnWriter::write(const base::DbDataType<std::string> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeText(value.getID(), value.getData());
}

void ColumnWriter::writeUntagged(const base::DbDataType<std::string> &value)
{
    if (value.isNull())
        return writeHeader(value.getID(), ColumnSize_Null);
    writeText(0, value.getData());
}

void ColumnWriter::writeFlags(int tag, const std::vector<bool> &flags)
{
    writeShortField(tag, static_cast<qint16>(flags.size()));
    for (const bool flag : flags)
        writeByteField(tag, flag ? 1 : 0);
}

void ColumnWriter::writeTextField(int tag, const QByteArray &text)
{
    const size_t length = qstrnlen(text.constData(), static_cast<uint>(text.size()));
    writeHeader(tag, textFrameSize(length));
    m_stream.writeBytes(text.constData(), static_cast<uint>(length + 1));
}

void ColumnWriter::writeNarrow(int tag, bool isNull, int value)
{
    if (isNull)
        return writeHeader(tag, ColumnSize_Null);
    writeByteField(tag, static_cast<qint8>(value));
}

void ColumnWriter::writeText(int tag, const std::string &text)
{
    // Texts travel as C strings: a string holding a zero byte is cut there.
    const size_t length = std::strlen(text.c_str());
    writeHeader(tag, textFrameSize(length));
    m_stream.writeBytes(text.c_str(), static_cast<uint>(length + 1));
}

// ---------------------------------------------------------------------------------------------
// ColumnReader

ColumnReader::ColumnReader(const QByteArray &source)
    : m_stream(source)
    , m_size(source.size())
{
    m_stream.setVersion(kStreamVersion);
}

qint64 ColumnReader::offset() const
{
    return m_stream.device()->pos();
}

qint64 ColumnReader::bytesLeft() const
{
    return m_size - m_stream.device()->pos();
}

void ColumnReader::readHeader(qint16 &tag, qint16 &size)
{
    // A header cut short by the end of the input reads like one past the end: tag 0, size 0.
    // Keeping a complete tag with a missing size would read a truncated frame as a valid NULL.
    if (bytesLeft() < 4) {
        m_stream.skipRawData(static_cast<int>(qMax<qint64>(bytesLeft(), 0)));
        tag = 0;
        size = 0;
        return;
    }
    m_stream >> tag >> size;
}

template <typename Column, typename Wire>
bool ColumnReader::readFixed(Column &value, qint16 expectedSize)
{
    qint16 tag = 0;
    qint16 size = 0;
    readHeader(tag, size);
    const bool tagMatches = tag == static_cast<qint16>(value.getID());
    if (size == ColumnSize_Null) {
        value.setNull(true);
        return tagMatches;
    }
    if (size != expectedSize)
        return false;
    if (bytesLeft() < expectedSize) {
        // A value cut short by the end of the input is not a value.
        m_stream.skipRawData(static_cast<int>(bytesLeft()));
        return false;
    }
    Wire wire = 0;
    m_stream >> wire;
    using Value = std::decay_t<decltype(value.getData())>;
    if constexpr (std::is_same<Value, bool>::value)
        value.getData() = wire != 0;
    else
        value.getData() = static_cast<Value>(wire);
    value.setNull(false);
    return tagMatches;
}

bool ColumnReader::readByteField(int tag, qint8 &value)
{
    base::DbDataType<qint8> field;
    field.setID(static_cast<unsigned int>(tag));
    const bool ok = readFixed<base::DbDataType<qint8>, qint8>(field, ColumnSize_Narrow);
    value = field.getData();
    return ok && !field.isNull();
}

bool ColumnReader::readShortField(int tag, qint16 &value)
{
    base::DbDataType<qint16> field;
    field.setID(static_cast<unsigned int>(tag));
    const bool ok = readFixed<base::DbDataType<qint16>, qint16>(field, ColumnSize_Short);
    value = field.getData();
    return ok && !field.isNull();
}

bool ColumnReader::readLongField(int tag, qint64 &value)
{
    base::DbDataType<qint64> field;
    field.setID(static_cast<unsigned int>(tag));
    const bool ok = readFixed<base::DbDataType<qint64>, qint64>(field, ColumnSize_Wide);
    value = field.getData();
    return ok && !field.isNull();
}

bool ColumnReader::read(base::DbDataType<unsigned long long> &value)
{
    return readFixed<base::DbDataType<unsigned long long>, qint64>(value, ColumnSize_Wide);
}

bool ColumnReader::read(base::DbDataType<double> &value)
{
    return readFixed<base::DbDataType<double>, double>(value, ColumnSize_Wide);
}

bool ColumnReader::read(base::DbDataType<bool> &value)
{
    return readFixed<base::DbDataType<bool>, qint16>(value, ColumnSize_Short);
}

bool ColumnReader::read(base::DbDataType<char> &value)
{
    return readFixed<base::DbDataType<char>, qint16>(value, ColumnSize_Short);
}

bool ColumnReader::read(base::DbDataType<int> &value)
{
    return readFixed<base::DbDataType<int>, qint8>(value, ColumnSize_Narrow);
}

bool ColumnReader::readWide(base::DbDataType<int> &value)
{
    return readFixed<base::DbDataType<int>, qint64>(value, ColumnSize_Wide);
}

bool ColumnReader::readWide(base::DbDataType<unsigned int> &value)
{
    return readFixed<base::DbDataType<unsigned int>, qint64>(value, ColumnSize_Wide);
}

bool ColumnReader::read(base::DbDataType<std::string> &value)
{
    qint16 tag = 0;
    qint16 size = 0;
    readHeader(tag, size);
    const bool tagMatches = tag == static_cast<qint16>(value.getID());
    if (size == ColumnSize_Null) {
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
    if (size == ColumnSize_Null)
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
    // against the bytes that are really there before anything is allocated.
    quint32 length = 0;
    m_stream >> length;
    if (length == 0 || length > static_cast<quint64>(bytesLeft())) {
        m_stream.skipRawData(static_cast<int>(qMin<qint64>(bytesLeft(), length)));
        return false;
    }
    std::string buffer(length, '\0');
    if (m_stream.readRawData(&buffer[0], static_cast<int>(length)) != static_cast<int>(length))
        return false;
    buffer.resize(qstrnlen(buffer.data(), length));
    text = std::move(buffer);
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
