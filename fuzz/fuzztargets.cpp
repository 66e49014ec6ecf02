#include "fuzztargets.h"

#include "auxiliary/plotentry.h"
#include "client/loopback.h"
#include "client/ordertype.h"
#include "client/refcallback.h"
#include "client/refcallbackforwarder.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "element/elementdetailslist.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "core/orderqueue.h"
#include "io/columnstream.h"
#include "link/linkchangedefinition.h"
#include "middleware/inforecords.h"
#include "network/callsigntable.h"
#include "middleware/lockrecords.h"
#include "middleware/maintenancerecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"

namespace sigdbfuzz {

namespace {

using namespace sigdb;

template <typename Record>
QByteArray encoded(const Record &record)
{
    QByteArray out;
    record.serialize(out);
    return out;
}

ElementOverview sampleOverview()
{
    ElementOverview overview;
    overview.element.setType(1);
    overview.element.setTID(4711);
    overview.element.setExchgId(std::string("UNI-4711"));
    overview.keyText1 = std::string("ALPHA");
    overview.modificationState = Modification_ChangedInMdl;
    overview.networkTypeWord = 2;
    SigdbElement linked;
    linked.setType(2);
    linked.setTID(12);
    overview.uniqueLinks.appendEntry(linked);
    LocationEntry location;
    location.latitude = 52.5;
    location.validFrom = std::string("2026-01-01 00:00:00");
    overview.locationList.appendEntry(location);
    return overview;
}

ElementOverviewList sampleList()
{
    ElementOverviewList list;
    list.setParentDefinition(sampleOverview().element);
    list.appendResult(sampleOverview(), false);
    ElementOverviewList sub;
    sub.appendResult(sampleOverview(), false);
    sub.appendResultList(ElementOverviewList());
    list.appendResultList(sub);
    return list;
}

LinkChangeDefinition sampleLinkChange()
{
    LinkChangeDefinition change;
    change.link1().setActionType(10);
    change.link1().fromElement().setType(1);
    change.link1().fromElement().setTID(1);
    change.link1().toElement().setType(2);
    change.link1().toElement().setTID(2);
    change.link2().setOrderNumber(3);
    change.setModificationUser(std::string("user"));
    return change;
}

PlotEntryList samplePlots()
{
    PlotEntryList plots;
    PlotEntry entry;
    entry.firstId = 1ULL;
    entry.text = std::string("track");
    plots.appendEntry(entry);
    plots.appendEntry(PlotEntry());
    return plots;
}

CallsignTable sampleTable()
{
    CallsignTable table;
    for (unsigned long long tid : {1ULL, 2ULL}) {
        ConnectionEntry connection;
        connection.setTID(100 + tid);
        connection.fromDefinition.element.setType(4);
        connection.fromDefinition.element.setTID(1);
        connection.fromDefinition.rcs = tid == 1;
        connection.toDefinition.element.setType(1);
        connection.toDefinition.element.setTID(10 + tid);
        connection.toDefinition.firstText = std::string("to|$%~#/");
        table.connections.appendEntry(connection);
    }
    CallsignSet set;
    set.firstValue = std::string("day");
    for (const char *callsign : {"A1/A2", "B|1"}) {
        CallsignEntry entry;
        entry.firstCallsign = std::string(callsign);
        entry.thirdCallsign = std::string("X");
        set.entries.appendEntry(entry);
    }
    table.sets.appendEntry(set);
    table.overview.keyText1 = std::string("NET");
    return table;
}

ElementDetailsList sampleDetails()
{
    ElementDetails unit;
    unit.setType(1);
    unit.str(5) = std::string("ALPHA");
    unit.collocationTID() = 9ULL;
    ReferenceDocument document;
    document.documentText1 = std::string("manual");
    unit.referenceDocuments().appendEntry(document);
    unit.callsignTable() = sampleTable();
    ElementDetailsList list;
    list.appendDetails(unit);
    return list;
}

QueryRequestList sampleQueries()
{
    QueryRequest query;
    query.element().setType(1);
    query.name() = std::string("AL*");
    query.frequencyMin() = 30.0e6;
    query.elementType() = 1;
    QueryRequestList queries;
    queries.appendEntry(query);
    return queries;
}

// Decodes a column-stream record as the dispatch does; the result is thrown away.
template <typename Record>
void decodeColumnRecord(const QByteArray &data)
{
    Record record;
    record.setIDs(0);
    ColumnReader reader(data);
    record.readFrom(reader);
}

template <typename Record>
Target columnTarget(const char *name, std::function<std::vector<QByteArray>()> samples)
{
    return Target{QString::fromLatin1(name), &decodeColumnRecord<Record>, std::move(samples)};
}

template <typename Record>
void decodeMiddlewareRecord(const QByteArray &data)
{
    Record record;
    try {
        Record::deserialize(data, record);
    } catch (const QString &) {
        // A rejected stream is an expected outcome.
    }
}

// Decodes into a record that already holds a decoded sample, as a client that keeps one record
// for every answer does; what the bytes do not carry must stay consistent.
std::vector<QByteArray> requestSamples()
{
    std::vector<QByteArray> all;
    for (const Target &target : requestTargets())
        all.push_back(target.samples().front());
    return all;
}

template <typename Record>
void decodeColumnRecordAgain(const QByteArray &data)
{
    static const std::vector<QByteArray> samples = requestSamples();
    Record record;
    record.setIDs(0);
    for (const QByteArray &sample : samples) {
        ColumnReader reader(sample);
        if (record.readFrom(reader))
            break;
    }
    ColumnReader reader(data);
    record.readFrom(reader);
}

template <typename Record>
Target columnAgainTarget(const char *name)
{
    // Seeded with every request sample: the record decoded before may be of any kind.
    return Target{QString::fromLatin1(name) + QStringLiteral("-again"), &decodeColumnRecordAgain<Record>,
                  &requestSamples};
}

template <typename Record>
std::vector<QByteArray> middlewareSamples()
{
    Record record;
    Record transient;
    transient.setStoreType(base::StoreType_Transient);
    return std::vector<QByteArray>{encoded(record), encoded(transient)};
}

// The other ways into a middleware decoder: the one-argument deserialize, the byte-array
// constructor, and decoding into a record that holds a decoded value already.
template <typename Record>
void decodeMiddlewareRecordEveryWay(const QByteArray &data)
{
    try {
        const Record record = Record::deserialize(data);
        Record again(record);
        Record::deserialize(data, again);
    } catch (const QString &) {
    }
    try {
        const Record record(data);
    } catch (const QString &) {
    }
}

template <typename Record>
Target middlewareEveryWayTarget()
{
    return Target{QString::fromLatin1(Record::ClassName) + QStringLiteral("-everyway"),
                  &decodeMiddlewareRecordEveryWay<Record>, &middlewareSamples<Record>};
}

template <typename Record>
Target middlewareTarget()
{
    return Target{QString::fromLatin1(Record::ClassName), &decodeMiddlewareRecord<Record>,
                  &middlewareSamples<Record>};
}

class SilentCallback : public RefCallback
{
};

} // namespace

void decodeWithChosenTarget(const std::vector<Target> &targets, const unsigned char *data, std::size_t size)
{
    if (size < 1)
        return;
    targets[data[0] % targets.size()].decode(
        QByteArray(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1)));
}

const std::vector<std::pair<int, std::function<std::vector<QByteArray>()>>> &answerSamples()
{
    static const std::vector<std::pair<int, std::function<std::vector<QByteArray>()>>> samples = {
        {5001, [] { return std::vector<QByteArray>{encoded(sampleOverview()), encoded(ElementOverview())}; }},
        {5002, [] { return std::vector<QByteArray>{encoded(sampleList()), encoded(ElementOverviewList())}; }},
        {5004, [] { return std::vector<QByteArray>{encoded(sampleDetails()), encoded(ElementDetailsList())}; }},
        {5005, [] { return std::vector<QByteArray>{encoded(sampleOverview())}; }},
        {5006, [] { return std::vector<QByteArray>{encoded(sampleOverview())}; }},
        {5009, [] { return std::vector<QByteArray>{encoded(sampleLinkChange())}; }},
        {5011, [] { return std::vector<QByteArray>{encoded(samplePlots()), encoded(PlotEntryList())}; }},
        {5012, [] { return std::vector<QByteArray>{encoded(sampleList())}; }},
    };
    return samples;
}

void dispatchAnswer(int orderType, const QByteArray &data)
{
    SilentCallback callback;
    callback.deliverRawData(orderType, data);
}

const std::vector<Target> &middlewareTargets()
{
    static const std::vector<Target> targets = {
        middlewareTarget<ProductVersion>(),
        middlewareTarget<InterfaceVersion>(),
        middlewareTarget<VersionInfo>(),
        middlewareTarget<ProductVersionVector>(),
        middlewareTarget<InterfaceVersionVector>(),
        middlewareTarget<VersionInfoVector>(),
        middlewareTarget<DbMaintenanceRequest>(),
        middlewareTarget<DbMaintenanceAnswer>(),
        middlewareTarget<DbMaintenanceRequestVector>(),
        middlewareTarget<DbMaintenanceAnswerVector>(),
        middlewareTarget<Message>(),
        middlewareTarget<MInfoAnswer>(),
        middlewareTarget<MInfoClientLogin>(),
        middlewareTarget<MInfoMessage>(),
        middlewareTarget<MInfoWarningLevel>(),
        middlewareTarget<CallbackMessage>(),
        middlewareTarget<MessageVector>(),
        middlewareTarget<MInfoAnswerVector>(),
        middlewareTarget<MInfoClientLoginVector>(),
        middlewareTarget<MInfoMessageVector>(),
        middlewareTarget<MInfoWarningLevelVector>(),
        middlewareTarget<CallbackMessageVector>(),
        middlewareTarget<LockedElementData>(),
        middlewareTarget<LockedElementDataVector>(),
        middlewareTarget<NameValuePair>(),
        middlewareTarget<NameValueDataForElement>(),
        middlewareTarget<NameValuePairVector>(),
        middlewareTarget<NameValueDataForElementVector>(),
    };
    return targets;
}

const std::vector<Target> &requestTargets()
{
    static const std::vector<Target> targets = {
        columnTarget<SigdbElement>("SigdbElement", [] { return std::vector<QByteArray>{encoded(sampleOverview().element)}; }),
        columnTarget<SigdbElementWithMaxCount>("SigdbElementWithMaxCount", [] {
            return std::vector<QByteArray>{encoded(SigdbElementWithMaxCount(sampleOverview().element))};
        }),
        columnTarget<ElementList>("ElementList", [] { return std::vector<QByteArray>{encoded(sampleOverview().uniqueLinks)}; }),
        columnTarget<QueryRequestList>("QueryRequestList", [] { return std::vector<QByteArray>{encoded(sampleQueries())}; }),
        columnTarget<ElementOverviewList>("ElementOverviewList", [] { return std::vector<QByteArray>{encoded(sampleList())}; }),
        columnTarget<LinkChangeDefinition>("LinkChangeDefinition", [] { return std::vector<QByteArray>{encoded(sampleLinkChange())}; }),
        columnTarget<PlotEntryList>("PlotEntryList", [] { return std::vector<QByteArray>{encoded(samplePlots())}; }),
        columnTarget<ElementDetailsList>("ElementDetailsList", [] { return std::vector<QByteArray>{encoded(sampleDetails())}; }),
    };
    return targets;
}

const Target &callsignTextTarget()
{
    static const Target target{QStringLiteral("CallsignTable"),
                               [](const QByteArray &data) {
                                   CallsignTable table;
                                   table.fromUtf8Text(data);
                               },
                               [] {
                                   return std::vector<QByteArray>{sampleTable().toUtf8Text(),
                                                                  CallsignTable().toUtf8Text()};
                               }};
    return target;
}

namespace {

// The first byte of an answer's input chooses its order type among the reference orders.
int orderTypeOf(const QByteArray &data)
{
    return OrderType_GetElementOverview + (data.isEmpty() ? 0 : static_cast<quint8>(data[0]) % 12);
}

template <typename... Records>
std::vector<Target> middlewareEveryWayTargets()
{
    return {middlewareEveryWayTarget<Records>()...};
}

} // namespace

const std::vector<Target> &recordTargets()
{
    static const std::vector<Target> targets = [] {
        std::vector<Target> all = middlewareEveryWayTargets<
            ProductVersion, InterfaceVersion, VersionInfo, ProductVersionVector, InterfaceVersionVector,
            VersionInfoVector, DbMaintenanceRequest, DbMaintenanceAnswer, DbMaintenanceRequestVector,
            DbMaintenanceAnswerVector, Message, MInfoAnswer, MInfoClientLogin, MInfoMessage,
            MInfoWarningLevel, CallbackMessage, MessageVector, MInfoAnswerVector, MInfoClientLoginVector,
            MInfoMessageVector, MInfoWarningLevelVector, CallbackMessageVector, LockedElementData,
            LockedElementDataVector, NameValuePair, NameValueDataForElement, NameValuePairVector,
            NameValueDataForElementVector>();
        for (Target again : {columnAgainTarget<SigdbElement>("SigdbElement"),
                             columnAgainTarget<ElementList>("ElementList"),
                             columnAgainTarget<QueryRequestList>("QueryRequestList"),
                             columnAgainTarget<ElementOverviewList>("ElementOverviewList"),
                             columnAgainTarget<LinkChangeDefinition>("LinkChangeDefinition"),
                             columnAgainTarget<PlotEntryList>("PlotEntryList"),
                             columnAgainTarget<ElementDetailsList>("ElementDetailsList")})
            all.push_back(std::move(again));
        all.push_back(Target{QStringLiteral("CallsignTable-utf16"),
                             [](const QByteArray &data) {
                                 // Any UTF-16, unpaired surrogates included.
                                 CallsignTable table;
                                 table.fromText(QString(reinterpret_cast<const QChar *>(data.constData()),
                                                        data.size() / 2));
                             },
                             [] {
                                 const QString text = sampleTable().toText();
                                 return std::vector<QByteArray>{QByteArray(reinterpret_cast<const char *>(text.utf16()),
                                                                           text.size() * 2)};
                             }});
        all.push_back(Target{QStringLiteral("Loopback-order"),
                             [](const QByteArray &data) {
                                 // An order of the chosen type whose bytes are the rest; the
                                 // answers go back to a callback as from a server.
                                 OrderQueue queue;
                                 Loopback server(queue);
                                 SilentCallback callback;
                                 const Order order{1, orderTypeOf(data), data.mid(1), &callback};
                                 for (const Loopback::Answer &answer : server.answer(order))
                                     OrderQueue::deliverAnswer(order, answer.orderType, answer.data);
                             },
                             [] {
                                 std::vector<QByteArray> all;
                                 for (const QByteArray &sample : requestSamples()) {
                                     for (quint8 type = 0; type < 12; ++type)
                                         all.push_back(QByteArray(1, static_cast<char>(type)) + sample);
                                 }
                                 return all;
                             }});
        all.push_back(Target{QStringLiteral("Loopback-versioninfo"),
                             [](const QByteArray &data) {
                                 OrderQueue queue;
                                 const Loopback server(queue);
                                 try {
                                     server.answerVersionInfo(data);
                                 } catch (const QString &) {
                                 }
                             },
                             &middlewareSamples<VersionInfo>});
        all.push_back(Target{QStringLiteral("RefCallbackForwarder"),
                             [](const QByteArray &data) {
                                 SilentCallback target;
                                 RefCallbackForwarder forwarder(target);
                                 forwarder.deliverRawData(orderTypeOf(data), data.mid(1));
                             },
                             [] {
                                 std::vector<QByteArray> all;
                                 for (const auto &answer : answerSamples())
                                     all.push_back(QByteArray(1, static_cast<char>(answer.first - OrderType_GetElementOverview))
                                                   + answer.second().front());
                                 return all;
                             }});
        return all;
    }();
    return targets;
}

} // namespace sigdbfuzz
