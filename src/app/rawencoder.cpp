#include "rawencoder.h"

#include "recordjson.h"

#include <QDataStream>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonObject>

#include <limits>
#include <string>

namespace sigdbtool {

namespace {

const QStringList kItemFields{QStringLiteral("offset"), QStringLiteral("tag"), QStringLiteral("size"),
                              QStringLiteral("value")};
const QStringList kBlockFields{QStringLiteral("offset"), QStringLiteral("index"), QStringLiteral("size"),
                               QStringLiteral("value")};
// Every view a dissected value can have; the first present of kWrittenViews gives the bytes.
const QStringList kValueViews{QStringLiteral("text"),  QStringLiteral("string"), QStringLiteral("record"),
                              QStringLiteral("vector"), QStringLiteral("hex"),   QStringLiteral("int8"),
                              QStringLiteral("int16"), QStringLiteral("int32"),  QStringLiteral("int64"),
                              QStringLiteral("double")};
const QStringList kWrittenViews{QStringLiteral("text"), QStringLiteral("string"), QStringLiteral("record"),
                                QStringLiteral("vector"), QStringLiteral("hex")};

/// A C string as QDataStream writes it: quint32 length counting the zero byte, the bytes, zero.
void writeCString(QDataStream &out, const std::string &text)
{
    out.writeBytes(text.c_str(), static_cast<uint>(text.size() + 1));
}

void writeBlocks(JsonReader &reader, const QJsonValue &items, QDataStream &out);

/// A nested record stream: quint32 length, then its blocks.
void writeNestedRecord(JsonReader &reader, const QJsonValue &items, QDataStream &out)
{
    QByteArray nested;
    QDataStream stream(&nested, QIODevice::WriteOnly);
    writeBlocks(reader, items, stream);
    out.writeBytes(nested.constData(), static_cast<uint>(nested.size()));
}

/// The bytes of one dissected value, from the first of its written views.
void writeValue(JsonReader &reader, const QJsonValue &json, QDataStream &out)
{
    if (!json.isObject())
        return reader.fail(QStringLiteral("expected an object"));
    const QJsonObject value = json.toObject();
    checkFieldNames(reader, value, kValueViews);
    for (const QString &view : kWrittenViews) {
        if (reader.failed())
            return;
        if (!value.contains(view))
            continue;
        const QJsonValue content = value.value(view);
        if (view == QLatin1String("hex")) {
            // Read as a text in its hex form, which is what the view is.
            std::string raw;
            fromJson(reader, QJsonObject{{view, content}}, raw);
            out.writeRawData(raw.data(), static_cast<int>(raw.size()));
            return;
        }
        const JsonReader::Step step(reader, view);
        if (view == QLatin1String("record")) {
            writeNestedRecord(reader, content, out);
        } else if (view == QLatin1String("vector")) {
            if (!content.isArray())
                return reader.fail(QStringLiteral("expected an array"));
            const QJsonArray elements = content.toArray();
            out << static_cast<qint32>(elements.size());
            for (int i = 0; i < elements.size() && !reader.failed(); ++i) {
                const JsonReader::Step element(reader, i);
                if (elements.at(i).toObject().contains(QStringLiteral("record"))) {
                    readObject(reader, elements.at(i), {QStringLiteral("record")},
                               [&reader, &out](const QString &, const QJsonValue &items) {
                                   writeNestedRecord(reader, items, out);
                               });
                } else {
                    std::string text;
                    fromJson(reader, elements.at(i), text);
                    writeCString(out, text);
                }
            }
        } else {
            std::string text;
            fromJson(reader, content, text);
            writeCString(out, text);
        }
        return;
    }
    reader.fail(QStringLiteral("expected one of text, string, record, vector or hex"));
}

/// The items of \a items, each through \a writeItem(item object) after its fields are checked.
template <typename WriteItem>
void writeItems(JsonReader &reader, const QJsonValue &items, const QStringList &fields, WriteItem writeItem)
{
    if (!items.isArray())
        return reader.fail(QStringLiteral("expected an array"));
    const QJsonArray array = items.toArray();
    for (int i = 0; i < array.size() && !reader.failed(); ++i) {
        const JsonReader::Step step(reader, i);
        readObject(reader, array.at(i), fields, [](const QString &, const QJsonValue &) {});
        if (!reader.failed())
            writeItem(array.at(i).toObject());
    }
}

/// A header number of the item: its tag or index.
template <typename Number>
Number headerNumber(JsonReader &reader, const QJsonObject &item, const QString &field)
{
    const JsonReader::Step step(reader, field);
    int number = 0;
    fromJson(reader, item.value(field), number);
    if (number < std::numeric_limits<Number>::min() || number > std::numeric_limits<Number>::max())
        reader.fail(QStringLiteral("out of range"));
    return static_cast<Number>(number);
}

void writeBlocks(JsonReader &reader, const QJsonValue &items, QDataStream &out)
{
    writeItems(reader, items, kBlockFields, [&reader, &out](const QJsonObject &block) {
        const qint32 index = headerNumber<qint32>(reader, block, QStringLiteral("index"));
        QByteArray value;
        QDataStream stream(&value, QIODevice::WriteOnly);
        const JsonReader::Step step(reader, QStringLiteral("value"));
        writeValue(reader, block.value(QStringLiteral("value")), stream);
        out << index << static_cast<qint32>(value.size());
        out.writeRawData(value.constData(), value.size());
    });
}

} // namespace

void encodeColumnFrames(JsonReader &reader, const QJsonValue &items, QByteArray &bytes)
{
    QByteArray frames;
    QDataStream out(&frames, QIODevice::WriteOnly);
    writeItems(reader, items, kItemFields, [&reader, &out](const QJsonObject &frame) {
        const qint16 tag = headerNumber<qint16>(reader, frame, QStringLiteral("tag"));
        const JsonReader::Step step(reader, QStringLiteral("value"));
        const QJsonValue json = frame.value(QStringLiteral("value"));
        if (json.isNull()) {
            out << tag << qint16(0);
            return;
        }
        QByteArray value;
        QDataStream stream(&value, QIODevice::WriteOnly);
        writeValue(reader, json, stream);
        // A text frame's size is the text's length with its zero byte, cut to 16 bits.
        const bool text = json.toObject().contains(QStringLiteral("text"));
        const qint64 size = text ? value.size() - 4 : value.size();
        out << tag << static_cast<qint16>(static_cast<quint16>(size));
        out.writeRawData(value.constData(), value.size());
    });
    if (!reader.failed())
        bytes = frames;
}

void encodePropertyBlocks(JsonReader &reader, const QJsonValue &items, QByteArray &bytes)
{
    QByteArray blocks;
    QDataStream out(&blocks, QIODevice::WriteOnly);
    writeBlocks(reader, items, out);
    if (!reader.failed())
        bytes = blocks;
}

} // namespace sigdbtool
