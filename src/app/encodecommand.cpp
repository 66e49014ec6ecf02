#include "encodecommand.h"

#include "decodecommand.h"
#include "toolinput.h"
#include "rawencoder.h"
#include "recorddecoders.h"
#include "recordjson.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cstdio>

namespace sigdbtool {

namespace {

// The fields of an inspect document of a record and of a raw dissection; size and ok are what
// inspect found and are not checked.
const QStringList kRecordFields{QStringLiteral("record"),    QStringLiteral("direction"),
                                QStringLiteral("orderType"), QStringLiteral("size"),
                                QStringLiteral("ok"),        QStringLiteral("value")};
const QStringList kRawFields{QStringLiteral("format"), QStringLiteral("size"), QStringLiteral("ok"),
                             QStringLiteral("items")};

/// The value of the field \a field of \a document, which must be there.
QJsonValue requiredField(JsonReader &reader, const QJsonObject &document, const QString &field)
{
    if (!document.contains(field)) {
        const JsonReader::Step step(reader, field);
        reader.fail(QStringLiteral("missing field"));
    }
    return document.value(field);
}

/// The bytes of a raw dissection document.
void encodeRaw(JsonReader &reader, const QJsonObject &document, QByteArray &bytes)
{
    checkFieldNames(reader, document, kRawFields);
    const QJsonValue items = requiredField(reader, document, QStringLiteral("items"));
    if (reader.failed())
        return;
    const QString format = document.value(QStringLiteral("format")).toString();
    if (format != QLatin1String("column") && format != QLatin1String("property")) {
        const JsonReader::Step step(reader, QStringLiteral("format"));
        return reader.fail(QStringLiteral("expected \"column\" or \"property\""));
    }
    const JsonReader::Step step(reader, QStringLiteral("items"));
    if (format == QLatin1String("column"))
        encodeColumnFrames(reader, items, bytes);
    else
        encodePropertyBlocks(reader, items, bytes);
}

/// The record that \a document names, checked against its direction and order type.
const RecordDecoder *documentRecord(JsonReader &reader, const QJsonObject &document)
{
    for (const QString &field : {QStringLiteral("record"), QStringLiteral("direction")}) {
        const QJsonValue text = requiredField(reader, document, field);
        if (reader.failed())
            return nullptr;
        if (!text.isString()) {
            const JsonReader::Step step(reader, field);
            reader.fail(QStringLiteral("expected a text"));
            return nullptr;
        }
    }
    const QString name = document.value(QStringLiteral("record")).toString();
    const QString direction = document.value(QStringLiteral("direction")).toString();
    const RecordDecoder *record = nullptr;
    for (const RecordDecoder &candidate : recordDecoders()) {
        if (candidate.name == name && directionName(candidate.direction) == direction)
            record = &candidate;
    }
    if (!record) {
        const JsonReader::Step step(reader, QStringLiteral("record"));
        reader.fail(QStringLiteral("no %1 record is called %2").arg(direction, name));
        return nullptr;
    }
    if (document.contains(QStringLiteral("orderType"))) {
        const JsonReader::Step step(reader, QStringLiteral("orderType"));
        int orderType = 0;
        fromJson(reader, document.value(QStringLiteral("orderType")), orderType);
        if (reader.failed())
            return nullptr;
        if (std::find(record->orderTypes.begin(), record->orderTypes.end(), orderType) == record->orderTypes.end()) {
            reader.fail(QStringLiteral("%1 does not travel under order type %2").arg(name).arg(orderType));
            return nullptr;
        }
    }
    return record;
}

} // namespace

bool encodeDocument(const QByteArray &document, QByteArray &bytes, QString &error)
{
    QJsonParseError parseError;
    const QJsonDocument json = QJsonDocument::fromJson(document, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        error = QStringLiteral("not a JSON document: %1 at byte offset %2")
                    .arg(parseError.errorString())
                    .arg(parseError.offset);
        return false;
    }
    JsonReader reader;
    const QJsonObject object = json.object();
    if (!json.isObject()) {
        reader.fail(QStringLiteral("expected an object"));
    } else if (object.contains(QStringLiteral("format"))) {
        encodeRaw(reader, object, bytes);
    } else {
        checkFieldNames(reader, object, kRecordFields);
        const RecordDecoder *record = reader.failed() ? nullptr : documentRecord(reader, object);
        const QJsonValue value = record ? requiredField(reader, object, QStringLiteral("value")) : QJsonValue();
        if (record && !reader.failed()) {
            const JsonReader::Step step(reader, QStringLiteral("value"));
            record->encode(reader, value, bytes);
        }
    }
    error = reader.error();
    return !reader.failed();
}

int runEncode(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Reads the JSON document that 'sigdbref inspect' prints from FILE (or standard input) "
        "and writes the bytes of the record it describes."));
    parser.addHelpOption();
    const QCommandLineOption hexOption(QStringLiteral("hex"),
        QStringLiteral("Write hex text (pairs of digits) instead of the bytes."));
    parser.addOption(hexOption);
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Input file; '-' or none for standard input."),
                                 QStringLiteral("[file]"));
    if (!parser.parse(arguments)) {
        err << parser.errorText() << '\n';
        return Exit_Usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        out << parser.helpText();
        return Exit_Ok;
    }
    if (parser.positionalArguments().size() > 1) {
        err << "encode: give at most one file\n";
        return Exit_Usage;
    }

    QByteArray document;
    if (const int status = readCommandInput("encode", parser.positionalArguments().value(0), kDefaultMaxInput, document, err))
        return status;
    QString error;
    QByteArray bytes;
    if (!encodeDocument(document, bytes, error)) {
        err << "encode: " << error << '\n';
        return Exit_DecodeFailure;
    }
    if (parser.isSet(hexOption)) {
        out << bytes.toHex() << '\n';
        out.flush();
        return Exit_Ok;
    }
    out.flush();
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly) || output.write(bytes) != bytes.size()) {
        err << "encode: cannot write the bytes: " << output.errorString() << '\n';
        return Exit_DecodeFailure;
    }
    return Exit_Ok;
}

} // namespace sigdbtool
