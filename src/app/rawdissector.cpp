#include "rawdissector.h"

#include "recordjson.h"

#include <QJsonObject>
#include <QtEndian>

#include <cstring>

namespace sigdbtool {

namespace {

constexpr int kMaxNesting = 64;

QString hexOf(const char *data, qint64 size)
{
    return QString::fromLatin1(QByteArray(data, static_cast<int>(size)).toHex(' '));
}

quint32 bigEndian32(const char *data)
{
    return qFromBigEndian<quint32>(reinterpret_cast<const uchar *>(data));
}

// A QDataStream C string or byte array at data: quint32 length, then that many bytes. Returns
// the total size, or -1 when the bytes do not hold one.
qint64 lengthPrefixed(const char *data, qint64 available)
{
    if (available < 4)
        return -1;
    const quint32 length = bigEndian32(data);
    if (length > static_cast<quint64>(available - 4))
        return -1;
    return 4 + static_cast<qint64>(length);
}

bool isCString(const char *data, quint32 length)
{
    return length > 0 && data[length - 1] == '\0'
        && std::memchr(data, '\0', length - 1) == nullptr;
}

QJsonValue cStringValue(const char *data, quint32 length)
{
    return toJson(std::string(data, length - 1));
}

QJsonObject fixedValue(const char *data, qint64 size)
{
    QJsonObject value;
    switch (size) {
    case 1:
        value.insert(QStringLiteral("int8"), static_cast<qint8>(data[0]));
        break;
    case 2:
        value.insert(QStringLiteral("int16"), qFromBigEndian<qint16>(reinterpret_cast<const uchar *>(data)));
        break;
    case 4:
        value.insert(QStringLiteral("int32"), qFromBigEndian<qint32>(reinterpret_cast<const uchar *>(data)));
        break;
    case 8: {
        const qint64 number = qFromBigEndian<qint64>(reinterpret_cast<const uchar *>(data));
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
    value.insert(QStringLiteral("hex"), hexOf(data, size));
    return value;
}

Dissection dissectProperties(const char *data, qint64 size, qint64 base, int depth);

// Tries to read the value of a property block as something more telling than bytes.
QJsonObject propertyValue(const char *data, qint64 size, qint64 base, int depth)
{
    QJsonObject value;
    if (size == 1 || size == 4 || size == 8)
        value = fixedValue(data, size);

    const qint64 prefixed = lengthPrefixed(data, size);
    if (prefixed == size) {
        const quint32 length = static_cast<quint32>(size - 4);
        if (isCString(data + 4, length)) {
            value.insert(QStringLiteral("string"), cStringValue(data + 4, length));
            return value;
        }
        if (depth < kMaxNesting && length >= 8) {
            const Dissection nested = dissectProperties(data + 4, length, base + 4, depth + 1);
            if (nested.complete) {
                value.insert(QStringLiteral("record"), nested.items);
                return value;
            }
        }
    }

    // A vector: qint32 count, then that many strings or nested records.
    if (size >= 4) {
        const qint32 count = qFromBigEndian<qint32>(reinterpret_cast<const uchar *>(data));
        qint64 at = 4;
        QJsonArray elements;
        bool fits = count >= 0;
        for (qint32 i = 0; fits && i < count; ++i) {
            const qint64 element = lengthPrefixed(data + at, size - at);
            if (element < 0) {
                fits = false;
                break;
            }
            const quint32 length = static_cast<quint32>(element - 4);
            if (isCString(data + at + 4, length)) {
                elements.append(cStringValue(data + at + 4, length));
            } else {
                const Dissection nested =
                    depth < kMaxNesting ? dissectProperties(data + at + 4, length, base + at + 4, depth + 1)
                                        : Dissection{QJsonArray(), false, 0, QString()};
                if (!nested.complete) {
                    fits = false;
                    break;
                }
                elements.append(QJsonObject{{QStringLiteral("record"), nested.items}});
            }
            at += element;
        }
        if (fits && at == size && (count > 0 || size == 4))
            value.insert(QStringLiteral("vector"), elements);
    }
    if (value.isEmpty())
        value.insert(QStringLiteral("hex"), hexOf(data, size));
    return value;
}

Dissection dissectProperties(const char *data, qint64 size, qint64 base, int depth)
{
    Dissection result;
    qint64 at = 0;
    while (at < size) {
        if (size - at < 8) {
            result.complete = false;
            result.errorOffset = base + at;
            result.error = QStringLiteral("block header cut short");
            return result;
        }
        const qint32 index = qFromBigEndian<qint32>(reinterpret_cast<const uchar *>(data + at));
        const qint32 blockSize = qFromBigEndian<qint32>(reinterpret_cast<const uchar *>(data + at + 4));
        if (blockSize < 0 || blockSize > size - at - 8) {
            result.complete = false;
            result.errorOffset = base + at;
            result.error = QStringLiteral("block size %1 does not fit the %2 bytes left")
                               .arg(blockSize)
                               .arg(size - at - 8);
            return result;
        }
        QJsonObject block{{QStringLiteral("offset"), base + at},
                          {QStringLiteral("index"), index},
                          {QStringLiteral("size"), blockSize}};
        block.insert(QStringLiteral("value"), propertyValue(data + at + 8, blockSize, base + at + 8, depth));
        result.items.append(block);
        at += 8 + blockSize;
    }
    return result;
}

} // namespace

Dissection dissectColumnFrames(const QByteArray &data)
{
    Dissection result;
    const char *bytes = data.constData();
    const qint64 size = data.size();
    qint64 at = 0;
    while (at < size) {
        if (size - at < 4) {
            result.complete = false;
            result.errorOffset = at;
            result.error = QStringLiteral("frame header cut short");
            return result;
        }
        const qint16 tag = qFromBigEndian<qint16>(reinterpret_cast<const uchar *>(bytes + at));
        const qint16 frameSize = qFromBigEndian<qint16>(reinterpret_cast<const uchar *>(bytes + at + 2));
        QJsonObject frame{{QStringLiteral("offset"), at},
                          {QStringLiteral("tag"), tag},
                          {QStringLiteral("size"), frameSize}};
        const qint64 valueAt = at + 4;
        const qint64 left = size - valueAt;
        qint64 consumed = 0;
        if (frameSize == 0) {
            frame.insert(QStringLiteral("value"), QJsonValue::Null);
        } else {
            // A text frame's size is its length + 1 (16 bits) and a C string follows.
            const qint64 text = lengthPrefixed(bytes + valueAt, left);
            const quint32 length = text >= 0 ? bigEndian32(bytes + valueAt) : 0;
            if (text >= 0 && length > 0 && static_cast<quint16>(length) == static_cast<quint16>(frameSize)) {
                frame.insert(QStringLiteral("value"),
                             QJsonObject{{QStringLiteral("text"), cStringValue(bytes + valueAt + 4, length)}});
                consumed = text;
            } else if (frameSize > 0 && frameSize <= left) {
                frame.insert(QStringLiteral("value"), fixedValue(bytes + valueAt, frameSize));
                consumed = frameSize;
            } else {
                result.items.append(frame);
                result.complete = false;
                result.errorOffset = valueAt;
                result.error = QStringLiteral("value of %1 bytes does not fit the %2 bytes left")
                                   .arg(frameSize)
                                   .arg(left);
                return result;
            }
        }
        result.items.append(frame);
        at = valueAt + consumed;
    }
    return result;
}

Dissection dissectPropertyBlocks(const QByteArray &data)
{
    return dissectProperties(data.constData(), data.size(), 0, 0);
}

} // namespace sigdbtool
