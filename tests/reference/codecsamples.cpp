#include "codecsamples.h"

#include "auxiliary/plotentry.h"
#include "auxiliary/referencedocument.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "core/locationentry.h"
#include "core/sigdbelementdetails.h"
#include "element/elementdetailslist.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "io/columnstream.h"
#include "link/linkchangedefinition.h"
#include "middleware/inforecords.h"
#include "middleware/lockrecords.h"
#include "middleware/maintenancerecords.h"
#include "middleware/namevaluerecords.h"
#include "middleware/versionrecords.h"
#include "query/queryrequest.h"

#include "recordsamples.h"

#include <cmath>
#include <limits>

namespace sigdbreference {

namespace {

using namespace sigdb;
using Text = base::DbDataType<std::string>;

// ---------------------------------------------------------------------------------------------
// Values from the corners of the formats

/// Every byte value from 1 to 255 once: a text travels with its bytes as they are.
std::string everyByte()
{
    std::string text;
    for (int byte = 1; byte < 256; ++byte)
        text.push_back(static_cast<char>(byte));
    return text;
}

template <typename T>
base::DbDataType<T> nullValue()
{
    return base::DbDataType<T>();
}

SigdbElement element(int type, unsigned long long tid, const std::string &exchangeId)
{
    SigdbElement result;
    result.setType(type);
    result.setTID(tid);
    result.setSubType(-3);
    result.setApproveType(2);
    result.setApvState(-1);
    result.setChangeType(32767);
    result.setLayer(2);
    result.setExchgId(exchangeId);
    result.setModificationUser(std::string("operator"));
    return result;
}

/// An element at the extremes: the largest TID, the smallest 16-bit attributes, NULL texts.
SigdbElement extremeElement()
{
    SigdbElement result;
    result.setType(-32768);
    result.setTID(~0ULL);
    result.setSubType(32767);
    result.setApproveType(-32768);
    result.setApvState(32767);
    result.setChangeType(-1);
    result.setLayer(-32768);
    return result;
}

LocationEntry location(double latitude, double longitude)
{
    LocationEntry result;
    result.latitude = latitude;
    result.longitude = longitude;
    result.validFrom = std::string("2026-11-23 09:35:00");
    result.indication = LocationIndication_Collocated;
    result.modification = static_cast<Location_Modification_Type>(-128);
    return result;
}

ElementOverview richOverview(int i)
{
    ElementOverview overview;
    overview.element = element(1, 100000 + static_cast<unsigned long long>(i), "UNI-" + std::to_string(i));
    overview.relatedElement = extremeElement();
    overview.exchgIdText = everyByte();
    overview.infoText2 = std::string();
    overview.infoText4 = std::string("info");
    overview.keyText1 = std::string("ALPHA ") + std::to_string(i);
    overview.keyText2 = std::string(70000, 'k'); // longer than a 16-bit frame size can say
    overview.locationIndication = LocationIndication_Collocated;
    overview.modificationState = Modification_ChangedInMdl;
    overview.linkModificationState = static_cast<Modification_State>(-128);
    overview.networkTypeWord = 127;
    overview.auxiliaryTid = 0x8000000000000000ULL;
    overview.location = location(-90.0, std::numeric_limits<double>::denorm_min());
    overview.locationList.appendEntry(location(52.5, 13.4));
    overview.locationList.appendEntry(LocationEntry());
    overview.uniqueLinks.appendEntry(element(2, 12, "LINK"));
    overview.uniqueLinks.appendEntry(extremeElement());
    overview.collocationGroupLeader = true;
    overview.orderNumber = -128;
    overview.collocationModState = 127;
    return overview;
}

ElementOverviewList overviewList()
{
    ElementOverviewList list;
    list.setParentDefinition(element(4, 4711, "NET"));
    list.setMoreResultsAvailable(0xFFFFFFFFu);
    list.setRequestedListType(static_cast<ElementList_Type>(-1));
    list.setDataLayer(-2);
    list.setCollocatedLocation(location(1.0, -1.0));
    list.listText1 = everyByte();
    for (int i = 0; i < 3; ++i)
        list.appendResult(richOverview(i), false);
    ElementOverviewList sub;
    sub.appendResult(ElementOverview(), false);
    sub.appendResultList(ElementOverviewList());
    list.appendResultList(sub);
    return list;
}

/// A network of three connections around one centre, with relays, end overviews, a NULL text
/// and separators inside the texts, and one callsign set per connection entry.
CallsignTable callsignTable()
{
    CallsignTable table;
    // The text form carries UTF-8 texts and element references of non-negative numbers.
    table.overview.element = element(4, 4711, "NET");
    table.overview.keyText1 = std::string("net %$|~#/ \xc3\xa9");
    table.overview.networkTypeWord = 2;
    table.overview.auxiliaryTid = ~0ULL;
    for (int i = 0; i < 3; ++i) {
        ConnectionEntry connection;
        connection.setTID(500 + static_cast<unsigned long long>(i));
        connection.fromDefinition.element = element(4, 4711, "NET");
        connection.fromDefinition.relay = i == 1;
        connection.toDefinition.element = element(1, 20 + static_cast<unsigned long long>(i), "M");
        connection.toDefinition.secondText = i == 2 ? Text() : Text(std::string("member ") + std::to_string(i));
        connection.toDefinition.overview.keyText1 = std::string("end");
        connection.modificationState = i;
        table.connections.appendEntry(connection);
    }
    for (const char *name : {"day", "night"}) {
        CallsignSet set;
        set.firstValue = std::string(name);
        for (int i = 0; i < 3; ++i) {
            CallsignEntry entry;
            entry.firstCallsign = std::string(name) + "/" + std::to_string(i);
            entry.fourthCallsign = std::string("Z~");
            set.entries.appendEntry(entry);
        }
        table.sets.appendEntry(set);
    }
    return table;
}

SigdbElementDetails detailsColumns(int type, int texts, int flags)
{
    SigdbElementDetails details;
    details.setType(type);
    details.setTID(static_cast<unsigned long long>(texts) + 1);
    std::vector<base::DbDataType<std::string>> columns(static_cast<size_t>(texts));
    for (int i = 0; i < texts; ++i) {
        if (i % 3 != 0)
            columns[static_cast<size_t>(i)] = i % 3 == 1 ? everyByte() : std::to_string(i);
    }
    details.setAllData(columns);
    details.profileParameterSettings().setBoolVector(std::vector<bool>(static_cast<size_t>(flags), true));
    details.profileParameterSettings().setValid(true);
    details.profileParameterSettings().parameterSet() = ~0ULL;
    return details;
}

ElementDetails richDetails()
{
    ElementDetails unit;
    unit.setType(1);
    unit.setTID(77);
    unit.setLayer(1);
    unit.str(5) = std::string("ALPHA");
    unit.collocationTID() = 9ULL;
    unit.detailsNumber() = -7;
    ReferenceDocument document;
    document.documentText1 = std::string("manual");
    document.documentText4 = everyByte();
    unit.referenceDocuments().appendEntry(document);
    unit.referenceDocuments().appendEntry(ReferenceDocument());
    unit.networkList() = overviewList();
    unit.callsignTable() = callsignTable();
    SigdbElementDetails included = detailsColumns(31, 4, 3);
    included.setLayer(1);
    unit.setIncludedDetails({included, included});
    unit.profileParameterSettings().setBoolVector({true, false, true});
    return unit;
}

ElementDetailsList detailsList(std::vector<ElementDetails> entries)
{
    ElementDetailsList list;
    for (ElementDetails &details : entries)
        list.appendDetails(details);
    return list;
}

/// The filter value of the query column at \a position, of the column's kind.
template <typename Kind>
Kind columnValue(int position);

template <>
std::string columnValue<std::string>(int position)
{
    return position == 1 ? everyByte() : "column " + std::to_string(position);
}
template <>
bool columnValue<bool>(int position)
{
    return position % 3 == 0;
}
template <>
double columnValue<double>(int position)
{
    switch (position % 4) {
    case 0:
        return -std::numeric_limits<double>::max();
    case 1:
        return -0.0;
    case 2:
        return std::numeric_limits<double>::infinity();
    default:
        return 30.0e6 + position;
    }
}
template <>
int columnValue<int>(int position)
{
    return position % 2 ? -2147483647 - 1 : 2147483647;
}
template <>
char columnValue<char>(int position)
{
    return static_cast<char>(0x80 + position);
}

QueryRequest richQuery()
{
    QueryRequest query;
    query.element().setType(1);
    query.element().setResultListMaxCount(50);
    query.exactMatch() = false;
    // Every query column gets a value of its kind, every other one sorted.
#define SIGDB_SAMPLE_COLUMN(position, Kind, name)                                                \
    query.name() = columnValue<Kind>(position);                                                 \
    query.name().setOrderBy(position % 2 == 0);                                                 \
    query.name().setAscending(position % 4 == 0);
    SIGDB_QUERY_COLUMNS(SIGDB_SAMPLE_COLUMN)
#undef SIGDB_SAMPLE_COLUMN
    return query;
}

LinkChangeDefinition linkChange()
{
    LinkChangeDefinition change;
    change.link1().setActionType(10);
    change.link1().fromElement() = element(1, 1, "FROM");
    change.link1().toElement() = element(2, 2, "TO");
    change.link1().setOrderNumber(-2147483647 - 1);
    change.link2().setActionType(16);
    change.link2().setOrderNumber(2147483647);
    change.setModificationUser(std::string("user"));
    return change;
}

PlotEntryList plots()
{
    PlotEntryList list;
    list.listId = ~0ULL;
    list.listText1 = everyByte();
    PlotEntry entry;
    entry.firstId = 1ULL;
    entry.secondId = 0x7FFFFFFFFFFFFFFFULL;
    entry.text = std::string("track");
    list.appendEntry(entry);
    list.appendEntry(PlotEntry());
    return list;
}

// ---------------------------------------------------------------------------------------------
// How a sample is written, read back and compared

template <typename Record>
using Make = std::function<Record()>;

std::string compareDecoded(bool decoded, bool equal, const QByteArray &reencoded, const QByteArray &bytes)
{
    if (!decoded)
        return "the bytes do not decode";
    if (!equal)
        return "the bytes decode to another record";
    if (reencoded != bytes)
        return "the decoded record writes other bytes";
    return {};
}

/// A column record, written by its serialize() and read as the dispatch reads an answer.
/// \a comparable is false where the record holds a NaN, which no record equals.
template <typename Record>
CodecSample columnSample(std::string name, Make<Record> make, bool comparable = true)
{
    return {std::move(name),
            [make] {
                QByteArray out;
                make().serialize(out);
                return out;
            },
            [make, comparable](const QByteArray &bytes) {
                Record back;
                back.setIDs(0);
                ColumnReader reader(bytes);
                const bool decoded = back.readFrom(reader) && reader.atEnd();
                QByteArray again;
                back.serialize(again);
                return compareDecoded(decoded, !comparable || back == make(), again, bytes);
            }};
}

/// A record that travels only inside others: written with writeTo() after setIDs(0).
template <typename Record>
CodecSample memberSample(std::string name, Make<Record> make)
{
    const auto write = [](const Record &record) {
        QByteArray out;
        Record numbered = record;
        numbered.setIDs(0);
        ColumnWriter writer(out);
        numbered.writeTo(writer);
        writer.finish();
        return out;
    };
    return {std::move(name), [make, write] { return write(make()); },
            [make, write](const QByteArray &bytes) {
                Record back;
                back.setIDs(0);
                ColumnReader reader(bytes);
                const bool decoded = back.readFrom(reader) && reader.atEnd();
                return compareDecoded(decoded, back == make(), write(back), bytes);
            }};
}

template <typename Record>
CodecSample middlewareSample(std::string name, Make<Record> make)
{
    return {std::move(name),
            [make] {
                QByteArray out;
                make().serialize(out);
                return out;
            },
            [make](const QByteArray &bytes) {
                try {
                    const Record back = Record::deserialize(bytes);
                    QByteArray again;
                    back.serialize(again);
                    return compareDecoded(true, back == make(), again, bytes);
                } catch (const QString &error) {
                    return error.toStdString();
                }
            }};
}

// Middleware records filled property by property.

ProductVersion productVersion(int i)
{
    ProductVersion version;
    version.setLayer(1);
    version.setOrigin(i % 2 ? everyByte() : std::string());
    version.setMajor(-2147483647 - 1);
    version.setMinor(2147483647);
    version.setBugfix(-1);
    version.setBuild(i);
    version.setVersionDate("2026-11-23");
    version.setBuildDate("");
    return version;
}

InterfaceVersion interfaceVersion(int major)
{
    InterfaceVersion version;
    version.setMajor(major);
    version.setMinor(-major);
    return version;
}

VersionInfo versionInfo(int i)
{
    VersionInfo info;
    info.setLayer(2);
    info.setProductVersion(productVersion(i));
    info.setInterfaceVersion(interfaceVersion(i));
    info.setRequiredInterfaceVersion(interfaceVersion(-i));
    info.setInterfaceMatching(InterfaceMatching_Match);
    info.setInterfaceIdentifier(static_cast<InterfaceIdentifier>(-i));
    return info;
}

VersionInfoVector versionInfos(int count)
{
    std::vector<VersionInfo> entries;
    for (int i = 0; i < count; ++i)
        entries.push_back(versionInfo(i));
    VersionInfoVector vector;
    vector.setVersionInfoVector(entries);
    return vector;
}

template <typename... Records>
void addMiddlewareSamples(std::vector<CodecSample> &all)
{
    (all.push_back(middlewareSample<Records>(std::string(Records::ClassName) + "_Default", [] { return Records(); })),
     ...);
    (all.push_back(middlewareSample<Records>(std::string(Records::ClassName) + "_Populated",
                                             [] { return mwtest::Sample<Records>::populated(); })),
     ...);
}

} // namespace

const std::vector<CodecSample> &codecSamples()
{
    static const std::vector<CodecSample> samples = [] {
        std::vector<CodecSample> all;

        // The element and the records around it.
        all.push_back(columnSample<SigdbElement>("SigdbElement_Default", [] { return SigdbElement(); }));
        all.push_back(columnSample<SigdbElement>("SigdbElement_Rich", [] { return element(4, 4711, everyByte()); }));
        all.push_back(columnSample<SigdbElement>("SigdbElement_Extreme", [] { return extremeElement(); }));
        all.push_back(columnSample<SigdbElementWithMaxCount>("SigdbElementWithMaxCount_Rich", [] {
            SigdbElementWithMaxCount request(element(4, 4711, "NET"));
            request.setStartIndex(~0ULL);
            request.setResultListMaxCount(0);
            request.setRequestedListType(static_cast<ElementList_Type>(-32768));
            return request;
        }));
        all.push_back(columnSample<ElementList>("ElementList_Empty", [] { return ElementList(); }));
        all.push_back(columnSample<ElementList>("ElementList_Rich", [] {
            ElementList list;
            list.appendEntry(element(1, 1, "A"));
            list.appendEntry(extremeElement());
            list.appendEntry(SigdbElement());
            return list;
        }));
        all.push_back(columnSample<LocationEntry>("LocationEntry_Rich", [] { return location(-0.0, 180.0); }));
        all.push_back(columnSample<LocationEntry>("LocationEntry_Infinite", [] {
            return location(std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity());
        }));
        all.push_back(columnSample<LocationEntry>(
            "LocationEntry_NaN", [] { return location(std::nan("1"), -std::numeric_limits<double>::quiet_NaN()); },
            false));
        all.push_back(columnSample<LocationEntryList>("LocationEntryList_Rich", [] {
            LocationEntryList list;
            list.appendEntry(location(1.0, 2.0));
            list.appendEntry(LocationEntry());
            return list;
        }));
        all.push_back(columnSample<SigdbElementDetails>("SigdbElementDetails_Default", [] { return SigdbElementDetails(); }));
        all.push_back(columnSample<SigdbElementDetails>("SigdbElementDetails_Rich", [] {
            SigdbElementDetails details = detailsColumns(1, 12, 5);
            details.setIncludedDetails({detailsColumns(31, 2, 0), SigdbElementDetails()});
            return details;
        }));
        all.push_back(columnSample<SigdbElementDetails>("SigdbElementDetails_LargestCounts",
                                                        [] { return detailsColumns(1, 32767, 32767); }));

        // Overviews, details and their lists.
        all.push_back(columnSample<ElementOverview>("ElementOverview_Default", [] { return ElementOverview(); }));
        all.push_back(columnSample<ElementOverview>("ElementOverview_Rich", [] { return richOverview(7); }));
        all.push_back(columnSample<ElementOverviewList>("ElementOverviewList_Empty", [] { return ElementOverviewList(); }));
        all.push_back(columnSample<ElementOverviewList>("ElementOverviewList_Rich", [] { return overviewList(); }));
        all.push_back(columnSample<ElementDetailsList>("ElementDetailsList_Empty", [] { return ElementDetailsList(); }));
        all.push_back(columnSample<ElementDetailsList>("ElementDetailsList_Rich", [] {
            return detailsList({richDetails(), ElementDetails(), richDetails()});
        }));

        // Queries, links, plots and documents.
        all.push_back(columnSample<QueryRequestList>("QueryRequestList_Default", [] {
            QueryRequestList list;
            list.appendEntry(QueryRequest());
            return list;
        }));
        all.push_back(columnSample<QueryRequestList>("QueryRequestList_EveryColumn", [] {
            QueryRequestList list;
            list.appendEntry(richQuery());
            list.appendEntry(QueryRequest());
            return list;
        }));
        all.push_back(columnSample<LinkChangeDefinition>("LinkChangeDefinition_Default", [] { return LinkChangeDefinition(); }));
        all.push_back(columnSample<LinkChangeDefinition>("LinkChangeDefinition_Rich", [] { return linkChange(); }));
        all.push_back(columnSample<PlotEntryList>("PlotEntryList_Empty", [] { return PlotEntryList(); }));
        all.push_back(columnSample<PlotEntryList>("PlotEntryList_Rich", [] { return plots(); }));
        all.push_back(memberSample<ReferenceDocumentList>("ReferenceDocumentList_Rich",
                                                          [] { return richDetails().referenceDocuments(); }));

        // Middleware records: default and filled, and the vectors empty and full.
        all.push_back(middlewareSample<ProductVersion>("ProductVersion_Rich", [] { return productVersion(1); }));
        all.push_back(middlewareSample<InterfaceVersion>("InterfaceVersion_Rich", [] { return interfaceVersion(-5); }));
        all.push_back(middlewareSample<VersionInfo>("VersionInfo_Rich", [] { return versionInfo(3); }));
        all.push_back(middlewareSample<VersionInfoVector>("VersionInfoVector_Empty", [] { return versionInfos(0); }));
        all.push_back(middlewareSample<VersionInfoVector>("VersionInfoVector_Many", [] { return versionInfos(500); }));
        // Every middleware class, default and with every property set.
        addMiddlewareSamples<ProductVersion, InterfaceVersion, VersionInfo, ProductVersionVector,
                             InterfaceVersionVector, VersionInfoVector, DbMaintenanceRequest, DbMaintenanceAnswer,
                             DbMaintenanceRequestVector, DbMaintenanceAnswerVector, Message, MInfoAnswer,
                             MInfoClientLogin, MInfoMessage, MInfoWarningLevel, CallbackMessage, MessageVector,
                             MInfoAnswerVector, MInfoClientLoginVector, MInfoMessageVector, MInfoWarningLevelVector,
                             CallbackMessageVector, LockedElementData, LockedElementDataVector, NameValuePair,
                             NameValueDataForElement, NameValuePairVector, NameValueDataForElementVector>(all);
        return all;
    }();
    return samples;
}

} // namespace sigdbreference
