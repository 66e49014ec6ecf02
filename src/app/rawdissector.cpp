#include "rawdissector.h"

#include "jsonstream.h"
#include "recordjson.h"

#include <QJsonObject>
#include <QtEndian>

#include <cstring>

namespace sigdbtool {

namespace {

constexpr int kMaxNesting = 64;
constexpr qint64 kBlockHeaderSize = 8;
constexpr qint64 kFrameHeaderSize = 4;

template <typename T>
T bigEndianAt(const char *data)
{
    return qFromBigEndian<T>(reinterpret_cast<const uchar *>(data));
}

// A QDataStream C string or byte array at data: quint32 length, then that many bytes. Returns
// the total size, or -1 when the bytes do not hold one.
qint64 lengthPrefixed(const char *data, qint64 available)
{
    if (available < 4)
        return -1;
    const quint32 length = bigEndianAt<quint32>(data);
    if (length > static_cast<quint64>(available - 4))
        return -1;
    return 4 + static_cast<qint64>(length);
}

bool isCString(const char *data, qint64 length)
{
    return length > 0 && data[length - 1] == '\0'
        && std::memchr(data, '\0', static_cast<size_t>(length - 1)) == nullptr;
}

QJsonValue cStringValue(const char *data, qint64 length)
{
    return toJson(std::string(data, length - 1));
}

// The readings of a value of 1, 2, 4 or 8 bytes as numbers (nothing for other sizes).
QJsonObject fixedReadings(const char *data, qint64 size)
{
    QJsonObject value;
    switch (size) {
    case 1:
        value.insert(QStringLiteral("int8"), static_cast<qint8>(data[0]));
        break;
    case 2:
        value.insert(QStringLiteral("int16"), bigEndianAt<qint16>(data));
        break;
    case 4:
        value.insert(QStringLiteral("int32"), bigEndianAt<qint32>(data));
        break;
    case 8: {
        const qint64 number = bigEndianAt<qint64>(data);
        double real = 0;
        const quint64 bits = static_cast<quint64>(number);
        std::memcpy(&real, &bits, sizeof real);
        value.insert(QStringLiteral("int64"), QString::number(number));
        value.insert(QStringLiteral("double"), real);
        break;
    }
    default:
        break;
    }
    return value;
}

// Writes the members of a fixed-size value: its readings as numbers and its bytes.
void writeFixedMembers(JsonStream &out, const char *data, qint64 size)
{
    const QJsonObject readings = fixedReadings(data, size);
    for (auto it = readings.begin(); it != readings.end(); ++it) {
        out.key(QLatin1String(it.key().toLatin1()));
        out.value(it.value());
    }
    out.key(QLatin1String("hex"));
    out.hexValue(data, size);
}

// Opens the object of a frame or block: where it starts, its tag or index (\a idName) and its
// size. Its value follows.
void beginItem(JsonStream &out, qint64 offset, QLatin1String idName, qint32 id, qint32 size)
{
    out.beginObject();
    out.key(QLatin1String("offset"));
    out.number(offset);
    out.key(idName);
    out.number(id);
    out.key(QLatin1String("size"));
    out.number(size);
}

// Follows the block headers from begin to end, calling onBlock(offset, index, size) for each
// block that fits. The values are not looked at, so this takes time in proportion to the
// number of blocks.
template <typename OnBlock>
Dissection walkBlocks(const char *data, qint64 begin, qint64 end, OnBlock onBlock)
{
    Dissection result;
    qint64 at = begin;
    while (at < end) {
        if (end - at < kBlockHeaderSize) {
            result.complete = false;
            result.errorOffset = at;
            result.error = QStringLiteral("block header cut short");
            return result;
        }
        const qint32 index = bigEndianAt<qint32>(data + at);
        const qint32 size = bigEndianAt<qint32>(data + at + 4);
        const qint64 left = end - at - kBlockHeaderSize;
        if (size < 0 || size > left) {
            result.complete = false;
            result.errorOffset = at;
            result.error = QStringLiteral("block size %1 does not fit the %2 bytes left").arg(size).arg(left);
            return result;
        }
        onBlock(at, index, size);
        at += kBlockHeaderSize + size;
    }
    return result;
}

// Takes a property stream apart. Each value is given one reading only, decided by looking at
// the block headers inside it (never by trying a reading out in full and falling back to
// another), so every byte is looked at a bounded number of times.
class PropertyDissector
{
public:
    PropertyDissector(const QByteArray &data, JsonStream &out, qint64 maxItems)
        : m_data(data.constData())
        , m_out(out)
        , m_budget(out, maxItems)
    {
    }

    Dissection writeBlocks(qint64 begin, qint64 end, int depth)
    {
        m_out.beginArray();
        Dissection result = walkBlocks(m_data, begin, end, [&](qint64 at, qint32 index, qint32 size) {
            m_budget.take();
            beginItem(m_out, at, QLatin1String("index"), index, size);
            m_out.key(QLatin1String("value"));
            writeValue(at + kBlockHeaderSize, size, depth);
            m_out.endObject();
        });
        m_out.endArray();
        result.itemsLeftOut = m_budget.leftOut();
        return result;
    }

private:
    enum class Reading { Bytes, String, Record, TooDeep, Vector };

    bool isRecord(qint64 begin, qint64 length) const
    {
        return walkBlocks(m_data, begin, begin + length, [](qint64, qint32, qint32) {}).complete;
    }

    // A record nested one level deeper than depth may be read at begin.
    bool mayNest(int depth) const { return depth < kMaxNesting; }

    // A vector: qint32 count, then that many strings or nested records, filling the value.
    bool isVector(qint64 begin, qint64 size, int depth) const
    {
        const qint32 count = bigEndianAt<qint32>(m_data + begin);
        if (count < 0 || count > (size - 4) / 4)
            return false;
        const qint64 end = begin + size;
        qint64 at = begin + 4;
        for (qint32 i = 0; i < count; ++i) {
            const qint64 element = lengthPrefixed(m_data + at, end - at);
            if (element < 0)
                return false;
            const qint64 length = element - 4;
            if (!isCString(m_data + at + 4, length) && !(mayNest(depth) && isRecord(at + 4, length)))
                return false;
            at += element;
        }
        return at == end && (count > 0 || size == 4);
    }

    Reading readingOf(qint64 begin, qint64 size, int depth) const
    {
        const char *data = m_data + begin;
        if (lengthPrefixed(data, size) == size) {
            const qint64 length = size - 4;
            if (isCString(data + 4, length))
                return Reading::String;
            if (length >= kBlockHeaderSize && isRecord(begin + 4, length))
                return mayNest(depth) ? Reading::Record : Reading::TooDeep;
        }
        if (size >= 4 && isVector(begin, size, depth))
            return Reading::Vector;
        return Reading::Bytes;
    }

    void writeValue(qint64 begin, qint64 size, int depth)
    {
        const char *data = m_data + begin;
        const bool fixed = size == 1 || size == 4 || size == 8;
        m_out.beginObject();
        if (fixed)
            writeFixedMembers(m_out, data, size);
        switch (readingOf(begin, size, depth)) {
        case Reading::String:
            m_out.key(QLatin1String("string"));
            m_out.value(cStringValue(data + 4, size - 4));
            break;
        case Reading::Record:
            m_out.key(QLatin1String("record"));
            writeBlocks(begin + 4, begin + size, depth + 1);
            break;
        case Reading::Vector:
            m_out.key(QLatin1String("vector"));
            writeVector(begin, depth);
            break;
        case Reading::TooDeep:
            m_out.key(QLatin1String("tooDeep"));
            m_out.value(QStringLiteral("a record nested more than %1 levels deep, not taken apart").arg(kMaxNesting));
            m_out.key(QLatin1String("hex"));
            m_out.hexValue(data, size);
            break;
        case Reading::Bytes:
            if (!fixed) {
                m_out.key(QLatin1String("hex"));
                m_out.hexValue(data, size);
            }
            break;
        }
        m_out.endObject();
    }

    // Writes a value that isVector() accepted.
    void writeVector(qint64 begin, int depth)
    {
        const qint32 count = bigEndianAt<qint32>(m_data + begin);
        m_out.beginArray();
        qint64 at = begin + 4;
        for (qint32 i = 0; i < count; ++i) {
            const qint64 length = bigEndianAt<quint32>(m_data + at);
            const char *element = m_data + at + 4;
            m_budget.take();
            if (isCString(element, length)) {
                m_out.value(cStringValue(element, length));
            } else {
                m_out.beginObject();
                m_out.key(QLatin1String("record"));
                writeBlocks(at + 4, at + 4 + length, depth + 1);
                m_out.endObject();
            }
            at += 4 + length;
        }
        m_out.endArray();
    }

    const char *m_data;
    JsonStream &m_out;
    ItemBudget m_budget;
};

} // namespace

Dissection dissectColumnFrames(const QByteArray &data, JsonStream &items, qint64 maxItems)
{
    Dissection result;
    ItemBudget budget(items, maxItems);
    const char *bytes = data.constData();
    const qint64 size = data.size();
    const auto fail = [&](qint64 offset, const QString &error) {
        result.complete = false;
        result.errorOffset = offset;
        result.error = error;
    };
    items.beginArray();
    qint64 at = 0;
    while (at < size) {
        if (size - at < kFrameHeaderSize) {
            fail(at, QStringLiteral("frame header cut short"));
            break;
        }
        const qint16 tag = bigEndianAt<qint16>(bytes + at);
        const qint16 frameSize = bigEndianAt<qint16>(bytes + at + 2);
        const qint64 valueAt = at + kFrameHeaderSize;
        const qint64 left = size - valueAt;
        budget.take();
        beginItem(items, at, QLatin1String("tag"), tag, frameSize);
        // A text frame's size is its length + 1 (16 bits) and a C string follows.
        const qint64 text = frameSize != 0 ? lengthPrefixed(bytes + valueAt, left) : -1;
        const quint32 length = text >= 0 ? bigEndianAt<quint32>(bytes + valueAt) : 0;
        qint64 consumed = 0;
        if (frameSize == 0) {
            items.key(QLatin1String("value"));
            items.value(QJsonValue(QJsonValue::Null));
        } else if (text >= 0 && length > 0 && static_cast<quint16>(length) == static_cast<quint16>(frameSize)) {
            items.key(QLatin1String("value"));
            items.value(QJsonObject{{QStringLiteral("text"), cStringValue(bytes + valueAt + 4, length)}});
            consumed = text;
        } else if (frameSize > 0 && frameSize <= left) {
            items.key(QLatin1String("value"));
            items.beginObject();
            writeFixedMembers(items, bytes + valueAt, frameSize);
            items.endObject();
            consumed = frameSize;
        } else {
            items.endObject();
            fail(valueAt, QStringLiteral("value of %1 bytes does not fit the %2 bytes left").arg(frameSize).arg(left));
            break;
        }
        items.endObject();
        at = valueAt + consumed;
    }
    items.endArray();
    result.itemsLeftOut = budget.leftOut();
    return result;
}

Dissection dissectPropertyBlocks(const QByteArray &data, JsonStream &items, qint64 maxItems)
{
    return PropertyDissector(data, items, maxItems).writeBlocks(0, data.size(), 0);
}

Dissection checkPropertyBlocks(const QByteArray &data)
{
    return walkBlocks(data.constData(), 0, data.size(), [](qint64, qint32, qint32) {});
}

} // namespace sigdbtool
