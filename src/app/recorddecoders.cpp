#include "recorddecoders.h"

#include "jsonstream.h"
#include "middlewarejson.h"
#include "rawdissector.h"
#include "recordjson.h"

#include "auxiliary/plotentry.h"
#include "client/ordertype.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "core/sigdbelementdetails.h"
#include "element/elementdetailslist.h"
#include "network/callsigntable.h"
#include "network/callsigntabletext.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "middleware/inforecords.h"
#include "middleware/lockrecords.h"
#include "middleware/maintenancerecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"
#include "io/columnstream.h"

#include <memory>

namespace sigdbtool {

namespace {

using namespace sigdb;

// Reads a column-stream record with its own decoder.
template <typename Record>
bool readColumnRecord(Record &record, ColumnReader &reader)
{
    return record.readFrom(reader);
}

// A link change copies its modification user into every element of its links when it is read;
// the tool keeps the users that the bytes hold, so that encoding gives the same bytes back.
bool readColumnRecord(LinkChangeDefinition &change, ColumnReader &reader)
{
    base::DbDataType<std::string> user;
    user.setID(static_cast<unsigned int>(change.modificationUser().getID()));
    LinkAction link1 = change.link1();
    LinkAction link2 = change.link2();
    const bool read = reader.read(user) && link1.readLinkFrom(reader) && link2.readLinkFrom(reader);
    change.setModificationUser(user);
    change.setLink1(link1);
    change.setLink2(link2);
    return read;
}

// How reading a column-stream record ended, told the way the tool tells it.
DecodeResult columnOutcome(bool read, const ColumnReader &reader, const QString &name)
{
    DecodeResult result;
    if (!read && reader.nestedTooDeep()) {
        result.offset = reader.offset();
        result.error = QStringLiteral("%1 did not decode: its records nest too deep (more than %2 levels) "
                                      "at byte offset %3")
                           .arg(name)
                           .arg(ColumnReader::MaxNesting)
                           .arg(reader.offset());
    } else if (!read) {
        result.offset = reader.offset();
        result.error = QStringLiteral("%1 did not decode: the frame ending at byte offset %2 does not fit")
                           .arg(name)
                           .arg(reader.offset());
    } else if (!reader.atEnd()) {
        result.offset = reader.offset();
        result.error = QStringLiteral("%1 ends at byte offset %2, but %3 more bytes follow")
                           .arg(name)
                           .arg(reader.offset())
                           .arg(reader.bytesLeft());
    } else {
        result.ok = true;
    }
    return result;
}

// Decodes a column-stream record the way the answer dispatch does: a fresh record numbered
// from 0, read with its own decoder, and nothing may be left over.
template <typename Record>
DecodeResult decodeColumnRecord(const QByteArray &data, const QString &name)
{
    auto record = std::make_shared<Record>();
    record->setIDs(0);
    ColumnReader reader(data);
    const bool read = readColumnRecord(*record, reader);
    DecodeResult result = columnOutcome(read, reader, name);
    result.writeValue = [record](JsonStream &out, ItemBudget &budget) { writeJson(out, budget, *record); };
    return result;
}

// Drops every record of a callsign table text; only whether the text reads counts.
class DroppedTable : public CallsignTableText::Visitor
{
public:
    void connection(ConnectionEntry &&) override {}
    void beginSet(CallsignSet &&) override {}
    void entry(CallsignEntry &&) override {}
    void endSet() override {}
    void overview(ElementOverview &&) override {}
};

// An element details list is never held whole: the callsign table text of one detail can stand
// for millions of connections. It is read twice, one detail at a time: once to learn whether
// and where it fails and how many details read in full, and once more to write those. What is
// written is what the library's own decoder keeps.
template <>
DecodeResult decodeColumnRecord<ElementDetailsList>(const QByteArray &data, const QString &name)
{
    qint64 complete = 0;
    bool tableMalformed = false;
    ElementDetailsList list;
    list.setIDs(0);
    ColumnReader reader(data);
    const bool read = list.readEach(reader, [&](ElementDetails &, const QByteArray &tableText) {
        DroppedTable dropped;
        tableMalformed = !CallsignTableText::readUtf8(tableText, dropped);
        complete += tableMalformed ? 0 : 1;
        return !tableMalformed;
    });
    DecodeResult result = columnOutcome(read, reader, name);
    if (tableMalformed) {
        result.error = QStringLiteral("%1 did not decode: the callsign table text of details[%2], ending at "
                                      "byte offset %3, is malformed")
                           .arg(name)
                           .arg(complete)
                           .arg(reader.offset());
    }
    result.writeValue = [data, complete](JsonStream &out, ItemBudget &budget) {
        ElementDetailsList written;
        written.setIDs(0);
        ColumnReader again(data);
        qint64 details = 0;
        // The fields of an element details list's JSON form: its details, then its list number
        // (which is known before the first detail, but written after the last).
        out.beginObject();
        out.key(QLatin1String("details"));
        out.beginArray();
        written.readEach(again, [&](ElementDetails &detail, const QByteArray &tableText) {
            if (details++ == complete)
                return false;
            if (budget.take())
                writeJson(out, budget, detail, tableText);
            return true;
        });
        out.endArray();
        budget.finish();
        out.key(QLatin1String("listNumber"));
        out.value(toJson(written.listNumber()));
        out.endObject();
    };
    return result;
}

// Builds a record from its JSON value and encodes it as the library sends it.
template <typename Record, typename FromJson>
auto encodeFromJson(FromJson fromJson)
{
    return [fromJson](JsonReader &reader, const QJsonValue &value, QByteArray &bytes) {
        Record record;
        fromJson(reader, value, record);
        if (!reader.failed())
            record.serialize(bytes);
    };
}

template <typename Record>
RecordDecoder columnRecord(const char *name, Direction direction, std::vector<int> orderTypes)
{
    const QString recordName = QString::fromLatin1(name);
    return RecordDecoder{recordName, direction, std::move(orderTypes),
                           [recordName](const QByteArray &data) {
                               return decodeColumnRecord<Record>(data, recordName);
                           },
                           encodeFromJson<Record>([](JsonReader &reader, const QJsonValue &value, Record &record) {
                               fromJson(reader, value, record);
                           })};
}

// Decodes a middleware record. The decoder tells where it stopped, so a failure is placed in
// its top-level block without decoding anything twice.
template <typename Record>
DecodeResult decodeMiddlewareRecord(const QByteArray &data, const QString &name)
{
    DecodeResult result;
    auto record = std::make_shared<Record>();
    qint64 stoppedAt = 0;
    try {
        Record::deserialize(data, *record, stoppedAt);
        result.ok = true;
    } catch (const QString &error) {
        result.offset = stoppedAt;
        result.error = QStringLiteral("%1 did not decode: %2 (in the block at byte offset %3)")
                           .arg(name, error, QString::number(stoppedAt));
    }
    result.writeValue = [record](JsonStream &out, ItemBudget &budget) { writeMiddlewareJson(out, budget, *record); };
    if (result.ok) {
        // The library takes a stream that ends inside a block (what was read stays); for
        // someone looking at captured bytes that is a cut capture and worth failing on.
        const Dissection blocks = checkPropertyBlocks(data);
        if (!blocks.complete) {
            result.ok = false;
            result.offset = blocks.errorOffset;
            result.error = QStringLiteral("%1 is cut short: the stream ends inside the block at byte offset %2")
                               .arg(name)
                               .arg(blocks.errorOffset);
        }
    }
    return result;
}

template <typename Record>
RecordDecoder middlewareRecord()
{
    const QString recordName = QString::fromLatin1(Record::ClassName);
    return RecordDecoder{recordName, Direction::Middleware, {}, [recordName](const QByteArray &data) {
                               return decodeMiddlewareRecord<Record>(data, recordName);
                           },
                           encodeFromJson<Record>(&middlewareFromJson<Record>)};
}

std::vector<RecordDecoder> buildDecoders()
{
    return {
        columnRecord<SigdbElement>("SigdbElement", Direction::Request,
                                   {OrderType_GetElementOverview, OrderType_DeleteElement,
                                    OrderType_ApproveElement}),
        columnRecord<SigdbElementWithMaxCount>("SigdbElementWithMaxCount", Direction::Request,
                                               {OrderType_GetElementSubElementList}),
        columnRecord<ElementList>("ElementList", Direction::Request, {OrderType_GetElementDetailList}),
        columnRecord<SigdbElementDetails>("SigdbElementDetails", Direction::Request, {}),
        columnRecord<ElementDetailsList>("ElementDetailsList", Direction::Request,
                                         {OrderType_CreateElement, OrderType_ChangeElement}),
        columnRecord<QueryRequestList>("QueryRequestList", Direction::Request,
                                       {OrderType_GetElementOverviewList}),
        columnRecord<ElementOverviewList>("ElementOverviewList", Direction::Request,
                                          {OrderType_ChangeCollocation}),
        columnRecord<LinkChangeDefinition>("LinkChangeDefinition", Direction::Request,
                                           {OrderType_ChangeLink}),
        columnRecord<PlotEntryList>("PlotEntryList", Direction::Request, {OrderType_ChangePlotEntry}),

        columnRecord<ElementOverview>("ElementOverview", Direction::Answer,
                                      {OrderType_GetElementOverview, OrderType_CreateElement,
                                       OrderType_ChangeElement}),
        columnRecord<ElementDetailsList>("ElementDetailsList", Direction::Answer,
                                         {OrderType_GetElementDetailList}),
        columnRecord<ElementOverviewList>("ElementOverviewList", Direction::Answer,
                                          {OrderType_GetElementOverviewList,
                                           OrderType_NewElementWithLink}),
        columnRecord<LinkChangeDefinition>("LinkChangeDefinition", Direction::Answer,
                                           {OrderType_ChangeLink}),
        columnRecord<PlotEntryList>("PlotEntryList", Direction::Answer, {OrderType_ChangePlotEntry}),

        middlewareRecord<ProductVersion>(),
        middlewareRecord<InterfaceVersion>(),
        middlewareRecord<VersionInfo>(),
        middlewareRecord<ProductVersionVector>(),
        middlewareRecord<InterfaceVersionVector>(),
        middlewareRecord<VersionInfoVector>(),
        middlewareRecord<DbMaintenanceRequest>(),
        middlewareRecord<DbMaintenanceAnswer>(),
        middlewareRecord<DbMaintenanceRequestVector>(),
        middlewareRecord<DbMaintenanceAnswerVector>(),
        middlewareRecord<Message>(),
        middlewareRecord<MInfoAnswer>(),
        middlewareRecord<MInfoClientLogin>(),
        middlewareRecord<MInfoMessage>(),
        middlewareRecord<MInfoWarningLevel>(),
        middlewareRecord<CallbackMessage>(),
        middlewareRecord<MessageVector>(),
        middlewareRecord<MInfoAnswerVector>(),
        middlewareRecord<MInfoClientLoginVector>(),
        middlewareRecord<MInfoMessageVector>(),
        middlewareRecord<MInfoWarningLevelVector>(),
        middlewareRecord<CallbackMessageVector>(),
        middlewareRecord<LockedElementData>(),
        middlewareRecord<LockedElementDataVector>(),
        middlewareRecord<NameValuePair>(),
        middlewareRecord<NameValueDataForElement>(),
        middlewareRecord<NameValuePairVector>(),
        middlewareRecord<NameValueDataForElementVector>(),
    };
}

} // namespace

const std::vector<RecordDecoder> &recordDecoders()
{
    static const std::vector<RecordDecoder> decoders = buildDecoders();
    return decoders;
}

const RecordDecoder *findDecoder(Direction direction, int orderType)
{
    for (const RecordDecoder &decoder : recordDecoders()) {
        if (decoder.direction != direction)
            continue;
        for (int type : decoder.orderTypes) {
            if (type == orderType)
                return &decoder;
        }
    }
    return nullptr;
}

const RecordDecoder *findDecoder(const QString &name)
{
    for (const RecordDecoder &decoder : recordDecoders()) {
        if (decoder.name == name)
            return &decoder;
    }
    return nullptr;
}

QStringList decoderNames(Direction direction)
{
    QStringList names;
    for (const RecordDecoder &decoder : recordDecoders()) {
        if (decoder.direction == direction)
            names.append(decoder.name);
    }
    return names;
}

} // namespace sigdbtool
