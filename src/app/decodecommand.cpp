#include "decodecommand.h"

#include "rawdissector.h"
#include "recorddecoders.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cstdio>

namespace sigdbtool {

bool readInput(const QString &path, QByteArray &data, QString &error)
{
    QFile file;
    const bool ok = path.isEmpty() || path == QLatin1String("-")
        ? file.open(stdin, QIODevice::ReadOnly)
        : (file.setFileName(path), file.open(QIODevice::ReadOnly));
    if (!ok) {
        error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    data = file.readAll();
    return true;
}

namespace {

void printJson(QTextStream &out, const QJsonObject &object)
{
    out << QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented));
    out.flush();
}

} // namespace

QString directionName(Direction direction)
{
    switch (direction) {
    case Direction::Request:
        return QStringLiteral("request");
    case Direction::Answer:
        return QStringLiteral("answer");
    case Direction::Middleware:
        return QStringLiteral("middleware");
    }
    return QString();
}

namespace {

int printRaw(const QString &format, const QByteArray &data, QTextStream &out, QTextStream &err)
{
    const Dissection dissection = format == QLatin1String("column") ? dissectColumnFrames(data)
                                                                     : dissectPropertyBlocks(data);
    QJsonObject report{{QStringLiteral("format"), format},
                       {QStringLiteral("size"), data.size()},
                       {QStringLiteral("ok"), dissection.complete},
                       {QStringLiteral("items"), dissection.items}};
    if (!dissection.complete) {
        report.insert(QStringLiteral("offset"), dissection.errorOffset);
        report.insert(QStringLiteral("error"), dissection.error);
    }
    printJson(out, report);
    if (dissection.complete)
        return Exit_Ok;
    err << "error: " << dissection.error << " at byte offset " << dissection.errorOffset << '\n';
    return Exit_DecodeFailure;
}

int printRecord(const RecordDecoder &decoder, int orderType, const QByteArray &data,
                QTextStream &out, QTextStream &err)
{
    const DecodeResult result = decoder.decode(data);
    QJsonObject report{{QStringLiteral("record"), decoder.name},
                       {QStringLiteral("direction"), directionName(decoder.direction)},
                       {QStringLiteral("size"), data.size()},
                       {QStringLiteral("ok"), result.ok}};
    if (orderType != 0)
        report.insert(QStringLiteral("orderType"), orderType);
    report.insert(result.ok ? QStringLiteral("value") : QStringLiteral("decoded"), result.value);
    if (!result.ok) {
        report.insert(QStringLiteral("offset"), result.offset);
        report.insert(QStringLiteral("error"), result.error);
    }
    printJson(out, report);
    if (result.ok)
        return Exit_Ok;
    err << "error: " << result.error << '\n';
    return Exit_DecodeFailure;
}

} // namespace

bool parseHex(const QByteArray &text, QByteArray &bytes)
{
    QByteArray digits;
    const QByteArray simplified = text.simplified();
    for (const QByteArray &word : simplified.split(' ')) {
        const QByteArray plain = word.startsWith("0x") || word.startsWith("0X") ? word.mid(2) : word;
        for (const char c : plain) {
            if (!std::isxdigit(static_cast<unsigned char>(c)))
                return false;
        }
        digits.append(plain);
    }
    if (digits.size() % 2 != 0)
        return false;
    bytes = QByteArray::fromHex(digits);
    return true;
}

int runInspect(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Decodes the bytes of a record from FILE (or standard input) and prints it as JSON."));
    parser.addHelpOption();
    const QCommandLineOption orderTypeOption(QStringLiteral("order-type"),
        QStringLiteral("Decode the record that travels under order type <n>."), QStringLiteral("n"));
    const QCommandLineOption requestOption(QStringLiteral("request"),
        QStringLiteral("With --order-type: the bytes are a request (default: an answer)."));
    const QCommandLineOption recordOption(QStringLiteral("record"),
        QStringLiteral("Decode the record called <name>."), QStringLiteral("name"));
    const QCommandLineOption rawOption(QStringLiteral("raw"),
        QStringLiteral("Take the bytes apart without knowing the record: 'column' frames or "
                       "'property' blocks."),
        QStringLiteral("format"));
    const QCommandLineOption hexOption(QStringLiteral("hex"),
        QStringLiteral("The input is hex text (pairs of digits, blanks and line breaks ignored)."));
    parser.addOptions({orderTypeOption, requestOption, recordOption, rawOption, hexOption});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Input file; '-' or none for standard input."),
                                 QStringLiteral("[file]"));

    if (!parser.parse(arguments)) {
        err << parser.errorText() << '\n';
        return Exit_Usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        out << parser.helpText();
        out << "\nAnswer records: " << decoderNames(Direction::Answer).join(QStringLiteral(", "))
            << "\nRequest records: " << decoderNames(Direction::Request).join(QStringLiteral(", "))
            << "\nMiddleware records: " << decoderNames(Direction::Middleware).join(QStringLiteral(", "))
            << '\n';
        return Exit_Ok;
    }
    const int modes = int(parser.isSet(orderTypeOption)) + int(parser.isSet(recordOption))
        + int(parser.isSet(rawOption));
    if (modes != 1 || parser.positionalArguments().size() > 1) {
        err << "inspect: give exactly one of --order-type, --record and --raw, and at most one file\n";
        return Exit_Usage;
    }

    const RecordDecoder *decoder = nullptr;
    int orderType = 0;
    QString raw;
    if (parser.isSet(orderTypeOption)) {
        bool ok = false;
        orderType = parser.value(orderTypeOption).toInt(&ok);
        const Direction direction = parser.isSet(requestOption) ? Direction::Request : Direction::Answer;
        decoder = ok ? findDecoder(direction, orderType) : nullptr;
        if (!decoder) {
            err << "inspect: no " << directionName(direction) << " record travels under order type "
                << parser.value(orderTypeOption) << '\n';
            return Exit_Usage;
        }
    } else if (parser.isSet(recordOption)) {
        decoder = findDecoder(parser.value(recordOption));
        if (!decoder) {
            err << "inspect: unknown record " << parser.value(recordOption) << '\n';
            return Exit_Usage;
        }
    } else {
        raw = parser.value(rawOption);
        if (raw != QLatin1String("column") && raw != QLatin1String("property")) {
            err << "inspect: --raw takes 'column' or 'property'\n";
            return Exit_Usage;
        }
    }

    QByteArray data;
    QString error;
    if (!readInput(parser.positionalArguments().value(0), data, error)) {
        err << "inspect: " << error << '\n';
        return Exit_Usage;
    }
    if (parser.isSet(hexOption)) {
        QByteArray decoded;
        if (!parseHex(data, decoded)) {
            err << "inspect: the input is not hex text\n";
            return Exit_DecodeFailure;
        }
        data = decoded;
    }

    if (!raw.isEmpty())
        return printRaw(raw, data, out, err);
    return printRecord(*decoder, orderType, data, out, err);
}

} // namespace sigdbtool
