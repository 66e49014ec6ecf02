#include "encodecommand.h"

#include "decodecommand.h"
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

// The fields of an inspect document besides the record's value; size and ok are what inspect
// found and are not checked.
const QStringList kDocumentFields{QStringLiteral("record"),    QStringLiteral("direction"),
                                  QStringLiteral("orderType"), QStringLiteral("size"),
                                  QStringLiteral("ok"),        QStringLiteral("value")};

/// The record that \a document names, checked against its direction and order type.
const RecordDecoder *documentRecord(JsonReader &reader, const QJsonObject &document)
{
    for (const QString &field : {QStringLiteral("record"), QStringLiteral("direction")}) {
        if (!document.value(field).isString()) {
            const JsonReader::Step step(reader, field);
            reader.fail(document.contains(field) ? QStringLiteral("expected a text") : QStringLiteral("missing field"));
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
    } else {
        for (auto it = object.begin(); it != object.end() && !reader.failed(); ++it) {
            if (!kDocumentFields.contains(it.key())) {
                const JsonReader::Step step(reader, it.key());
                reader.fail(QStringLiteral("unknown field"));
            }
        }
    }
    const RecordDecoder *record = reader.failed() ? nullptr : documentRecord(reader, object);
    if (record) {
        const JsonReader::Step step(reader, QStringLiteral("value"));
        if (object.contains(QStringLiteral("value")))
            record->encode(reader, object.value(QStringLiteral("value")), bytes);
        else
            reader.fail(QStringLiteral("missing field"));
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
    QString error;
    if (!readInput(parser.positionalArguments().value(0), document, error)) {
        err << "encode: " << error << '\n';
        return Exit_Usage;
    }
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
