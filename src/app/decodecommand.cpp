#include "decodecommand.h"

#include "jsonstream.h"
#include "rawdissector.h"
#include "recorddecoders.h"
#include "toolinput.h"

#include <QCommandLineParser>
#include <QIODevice>
#include <QTextStream>

namespace sigdbtool {

namespace {

// Items a report shows unless asked for more: a few hundred megabytes of JSON at most. A short
// input can stand for millions of records (an empty part of a callsign table text is a whole
// connection), and their JSON would be thousands of times the input's size.
constexpr qint64 kDefaultMaxItems = 100000;

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

// Whether the bytes decoded, and where and why not.
void writeOutcome(JsonStream &json, bool ok, qint64 offset, const QString &error)
{
    json.key(QLatin1String("ok"));
    json.value(ok);
    if (!ok) {
        json.key(QLatin1String("offset"));
        json.number(offset);
        json.key(QLatin1String("error"));
        json.value(error);
    }
}

// Items a report leaves out are counted in it and said on the error stream.
void writeItemsLeftOut(JsonStream &json, qint64 itemsLeftOut)
{
    if (itemsLeftOut > 0) {
        json.key(QLatin1String("itemsLeftOut"));
        json.number(itemsLeftOut);
    }
}

void noteItemsLeftOut(QTextStream &err, qint64 itemsLeftOut)
{
    if (itemsLeftOut > 0)
        err << "note: " << itemsLeftOut << " more items are left out (--max-items)\n";
}

// The items are written while they are found; what is known only at the end follows them.
int printRaw(const QString &format, const QByteArray &data, qint64 maxItems, QTextStream &out,
             QTextStream &err)
{
    out.flush();
    Dissection dissection;
    {
        JsonStream json(out.device());
        json.beginObject();
        json.key(QLatin1String("format"));
        json.value(format);
        json.key(QLatin1String("size"));
        json.number(data.size());
        json.key(QLatin1String("items"));
        dissection = format == QLatin1String("column") ? dissectColumnFrames(data, json, maxItems)
                                                       : dissectPropertyBlocks(data, json, maxItems);
        writeItemsLeftOut(json, dissection.itemsLeftOut);
        writeOutcome(json, dissection.complete, dissection.errorOffset, dissection.error);
        json.endObject();
    }
    noteItemsLeftOut(err, dissection.itemsLeftOut);
    if (dissection.complete)
        return Exit_Ok;
    err << "error: " << dissection.error << " at byte offset " << dissection.errorOffset << '\n';
    return Exit_DecodeFailure;
}

// The record is decoded first, so that the report can say how that went before the record's
// JSON, which is written while it is produced.
int printRecord(const RecordDecoder &decoder, int orderType, const QByteArray &data, qint64 maxItems,
                QTextStream &out, QTextStream &err)
{
    const DecodeResult result = decoder.decode(data);
    out.flush();
    qint64 itemsLeftOut = 0;
    {
        JsonStream json(out.device());
        json.beginObject();
        json.key(QLatin1String("record"));
        json.value(decoder.name);
        json.key(QLatin1String("direction"));
        json.value(directionName(decoder.direction));
        if (orderType != 0) {
            json.key(QLatin1String("orderType"));
            json.number(orderType);
        }
        json.key(QLatin1String("size"));
        json.number(data.size());
        writeOutcome(json, result.ok, result.offset, result.error);
        json.key(result.ok ? QLatin1String("value") : QLatin1String("decoded"));
        {
            ItemBudget budget(json, maxItems);
            result.writeValue(json, budget);
            itemsLeftOut = budget.leftOut();
        }
        writeItemsLeftOut(json, itemsLeftOut);
        json.endObject();
    }
    noteItemsLeftOut(err, itemsLeftOut);
    if (result.ok)
        return Exit_Ok;
    err << "error: " << result.error << '\n';
    return Exit_DecodeFailure;
}

} // namespace

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
    const QCommandLineOption maxInputOption(QStringLiteral("max-input"),
        QStringLiteral("Refuse input larger than <size> bytes (suffix K, M or G; default 256M)."),
        QStringLiteral("size"), QStringLiteral("256M"));
    const QCommandLineOption maxItemsOption(QStringLiteral("max-items"),
        QStringLiteral("Write at most <n> items (list entries, frames, blocks, vector elements, "
                       "at any depth) and count the rest; 'all' writes every item (default %1).")
            .arg(kDefaultMaxItems),
        QStringLiteral("n"), QString::number(kDefaultMaxItems));
    parser.addOptions({orderTypeOption, requestOption, recordOption, rawOption, hexOption,
                       maxInputOption, maxItemsOption});
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

    const qint64 maxInput = parseSize(parser.value(maxInputOption));
    if (maxInput < 0 || maxInput > kLargestInput) {
        err << "inspect: --max-input takes a size in bytes up to 1G, such as 1048576 or 64M\n";
        return Exit_Usage;
    }
    qint64 maxItems = -1;
    if (parser.value(maxItemsOption) != QLatin1String("all")) {
        bool ok = false;
        maxItems = parser.value(maxItemsOption).toLongLong(&ok);
        if (!ok || maxItems < 0) {
            err << "inspect: --max-items takes a number of items or 'all'\n";
            return Exit_Usage;
        }
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
    if (const int status = readCommandInput("inspect", parser.positionalArguments().value(0), maxInput, data, err))
        return status;
    if (parser.isSet(hexOption)) {
        QByteArray decoded;
        if (!parseHex(data, decoded)) {
            err << "inspect: the input is not hex text\n";
            return Exit_DecodeFailure;
        }
        data = std::move(decoded);
    }

    if (!raw.isEmpty())
        return printRaw(raw, data, maxItems, out, err);
    return printRecord(*decoder, orderType, data, maxItems, out, err);
}

} // namespace sigdbtool
