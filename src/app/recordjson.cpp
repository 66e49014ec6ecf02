#include "recordjson.h"

#include "auxiliary/plotentry.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "core/locationentry.h"
#include "core/sigdbelementdetails.h"
#include "element/elementdetailslist.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "network/callsigntable.h"
#include "query/queryrequest.h"

#include <tuple>

namespace sigdbtool {

namespace {

constexpr unsigned long long kLargestExactJsonInteger = 1ULL << 53;

} // namespace

QJsonValue toJson(bool value)
{
    return value;
}

QJsonValue toJson(char value)
{
    return QString(QLatin1Char(value));
}

QJsonValue toJson(int value)
{
    return value;
}

QJsonValue toJson(unsigned int value)
{
    return static_cast<qint64>(value);
}

QJsonValue toJson(double value)
{
    return value;
}

QJsonValue toJson(unsigned long long value)
{
    if (value <= kLargestExactJsonInteger)
        return static_cast<qint64>(value);
    return QString::number(value);
}

QJsonValue toJson(const std::string &value)
{
    return QString::fromStdString(value);
}

QJsonValue toJson(const sigdb::SigdbElement &element)
{
    return QJsonObject{
        {QStringLiteral("type"), element.type()},
        {QStringLiteral("subType"), element.subType()},
        {QStringLiteral("tid"), toJson(element.tid())},
        {QStringLiteral("approvalType"), static_cast<int>(element.approvalType())},
        {QStringLiteral("apvState"), element.apvState()},
        {QStringLiteral("changeType"), element.changeType()},
        {QStringLiteral("layer"), element.layer()},
        {QStringLiteral("exchgId"), toJson(element.exchgId())},
        {QStringLiteral("modificationUser"), toJson(element.modificationUser())},
    };
}

QJsonValue toJson(const sigdb::SigdbElementWithMaxCount &request)
{
    return QJsonObject{
        {QStringLiteral("element"), toJson(static_cast<const sigdb::SigdbElement &>(request))},
        {QStringLiteral("startIndex"), toJson(request.startIndex())},
        {QStringLiteral("resultListMaxCount"), toJson(request.resultListMaxCount())},
        {QStringLiteral("requestedListType"), static_cast<int>(request.requestedListType())},
    };
}

QJsonValue toJson(const sigdb::ElementList &list)
{
    return toJsonArray(list.container());
}

QJsonValue toJson(const sigdb::LocationEntry &entry)
{
    return QJsonObject{
        {QStringLiteral("latitude"), toJson(entry.latitude)},
        {QStringLiteral("longitude"), toJson(entry.longitude)},
        {QStringLiteral("validFrom"), toJson(entry.validFrom)},
        {QStringLiteral("indication"), toJson(entry.indication)},
        {QStringLiteral("modification"), toJson(entry.modification)},
    };
}

QJsonValue toJson(const sigdb::LocationEntryList &list)
{
    return toJsonArray(list.container());
}

QJsonValue toJson(const sigdb::SigdbElementDetails &details)
{
    QJsonArray columns;
    const std::vector<base::DbDataType<std::string>> &texts = details.allData();
    for (const base::DbDataType<std::string> &text : texts)
        columns.append(toJson(text));
    QJsonArray included;
    for (const sigdb::SigdbElementDetails &detail : details.includedDetails())
        included.append(toJson(detail));
    const sigdb::ProfileParameterSettings &profile = details.profileParameterSettings();
    return QJsonObject{
        {QStringLiteral("element"), toJson(static_cast<const sigdb::SigdbElement &>(details))},
        {QStringLiteral("columns"), columns},
        {QStringLiteral("includedDetails"), included},
        {QStringLiteral("profileFlags"), toJsonArray(profile.boolVector())},
        {QStringLiteral("profileValid"), profile.isValid()},
        {QStringLiteral("parameterSet"), toJson(profile.parameterSet())},
    };
}

QJsonValue toJson(const sigdb::ElementOverview &overview)
{
    return QJsonObject{
        {QStringLiteral("element"), toJson(overview.element)},
        {QStringLiteral("relatedElement"), toJson(overview.relatedElement)},
        {QStringLiteral("exchgIdText"), toJson(overview.exchgIdText)},
        {QStringLiteral("infoText2"), toJson(overview.infoText2)},
        {QStringLiteral("infoText3"), toJson(overview.infoText3)},
        {QStringLiteral("infoText4"), toJson(overview.infoText4)},
        {QStringLiteral("keyText1"), toJson(overview.keyText1)},
        {QStringLiteral("keyText2"), toJson(overview.keyText2)},
        {QStringLiteral("keyText3"), toJson(overview.keyText3)},
        {QStringLiteral("locationIndication"), toJson(overview.locationIndication)},
        {QStringLiteral("modificationState"), toJson(overview.modificationState)},
        {QStringLiteral("linkModificationState"), toJson(overview.linkModificationState)},
        {QStringLiteral("networkTypeWord"), toJson(overview.networkTypeWord)},
        {QStringLiteral("auxiliaryTid"), toJson(overview.auxiliaryTid)},
        {QStringLiteral("location"), toJson(overview.location)},
        {QStringLiteral("locationList"), toJson(overview.locationList)},
        {QStringLiteral("uniqueLinks"), toJson(overview.uniqueLinks)},
        {QStringLiteral("collocationGroupLeader"), toJson(overview.collocationGroupLeader)},
        {QStringLiteral("orderNumber"), toJson(overview.orderNumber)},
        {QStringLiteral("collocationModState"), toJson(overview.collocationModState)},
    };
}

QJsonValue toJson(const sigdb::ElementOverviewList &list)
{
    return QJsonObject{
        {QStringLiteral("parentDefinition"), toJson(list.parentDefinition())},
        {QStringLiteral("moreResultsAvailable"), toJson(list.moreResultsAvailable())},
        {QStringLiteral("requestedListType"), static_cast<int>(list.requestedListType())},
        {QStringLiteral("dataLayer"), list.dataLayer()},
        {QStringLiteral("collocationModState"), toJson(list.collocationModState)},
        {QStringLiteral("listText1"), toJson(list.listText1)},
        {QStringLiteral("listText2"), toJson(list.listText2)},
        {QStringLiteral("listText3"), toJson(list.listText3)},
        {QStringLiteral("collocatedLocation"), toJson(list.collocatedLocation())},
        {QStringLiteral("results"), toJsonArray(list.results())},
        {QStringLiteral("subLists"), toJsonArray(list.subLists())},
    };
}

QJsonValue toJson(const sigdb::QueryRequest &request)
{
    QJsonObject columns;
    int position = 0;
    // Only the columns that filter or sort are shown; every other one is NULL and unsorted.
    const auto addColumn = [&columns, &position](const auto &column) {
        const QString name = QString::fromLatin1(sigdb::QueryRequest::columnName(position++));
        if (column.isNull() && !column.orderBy() && !column.ascending())
            return;
        columns.insert(name, QJsonObject{{QStringLiteral("value"), toJson(column)},
                                         {QStringLiteral("orderBy"), column.orderBy()},
                                         {QStringLiteral("ascending"), column.ascending()}});
    };
    std::apply([&addColumn](const auto &...column) { (addColumn(column), ...); }, request.columns());
    return QJsonObject{
        {QStringLiteral("element"), toJson(request.element())},
        {QStringLiteral("detailsTemplate"), toJson(request.detailsTemplate())},
        {QStringLiteral("exactMatch"), toJson(request.exactMatch())},
        {QStringLiteral("columns"), columns},
    };
}

QJsonValue toJson(const sigdb::QueryRequestList &list)
{
    return QJsonObject{
        {QStringLiteral("queryId"), toJson(list.queryId())},
        {QStringLiteral("requestType"), toJson(list.requestType())},
        {QStringLiteral("queryName"), toJson(list.queryName())},
        {QStringLiteral("queryOwner"), toJson(list.queryOwner())},
        {QStringLiteral("clientReference"), QString::number(list.clientReference())},
        {QStringLiteral("requests"), toJsonArray(list.container())},
    };
}

QJsonValue toJson(const sigdb::PlotEntry &entry)
{
    return QJsonObject{
        {QStringLiteral("modificationState"), toJson(entry.modificationState)},
        {QStringLiteral("firstId"), toJson(entry.firstId)},
        {QStringLiteral("secondId"), toJson(entry.secondId)},
        {QStringLiteral("text"), toJson(entry.text)},
    };
}

QJsonValue toJson(const sigdb::PlotEntryList &list)
{
    return QJsonObject{
        {QStringLiteral("listId"), toJson(list.listId)},
        {QStringLiteral("listText1"), toJson(list.listText1)},
        {QStringLiteral("listText2"), toJson(list.listText2)},
        {QStringLiteral("entries"), toJsonArray(list.container())},
    };
}

QJsonValue toJson(const sigdb::LinkAction &link)
{
    return QJsonObject{
        {QStringLiteral("actionType"), link.actionType()},
        {QStringLiteral("fromElement"), toJson(link.fromElement())},
        {QStringLiteral("toElement"), toJson(link.toElement())},
        {QStringLiteral("orderNumber"), toJson(link.orderNumber())},
    };
}

QJsonValue toJson(const sigdb::LinkChangeDefinition &change)
{
    return QJsonObject{
        {QStringLiteral("modificationUser"), toJson(change.modificationUser())},
        {QStringLiteral("link1"), toJson(change.link1())},
        {QStringLiteral("link2"), toJson(change.link2())},
    };
}

QJsonValue toJson(const sigdb::ConnectionEntryDefinition &end)
{
    return QJsonObject{
        {QStringLiteral("element"), toJson(end.element)},
        {QStringLiteral("firstText"), toJson(end.firstText)},
        {QStringLiteral("secondText"), toJson(end.secondText)},
        {QStringLiteral("rcs"), toJson(end.rcs)},
        {QStringLiteral("relay"), toJson(end.relay)},
    };
}

QJsonValue toJson(const sigdb::ConnectionEntry &connection)
{
    return QJsonObject{
        {QStringLiteral("tid"), toJson(connection.tid())},
        {QStringLiteral("name"), toJson(connection.name())},
        {QStringLiteral("from"), toJson(connection.fromDefinition)},
        {QStringLiteral("to"), toJson(connection.toDefinition)},
        {QStringLiteral("connectionFlag"), toJson(connection.connectionFlag)},
        {QStringLiteral("modificationState"), toJson(connection.modificationState)},
        {QStringLiteral("secondNumber"), toJson(connection.secondNumber)},
    };
}

QJsonValue toJson(const sigdb::CallsignEntry &entry)
{
    return QJsonArray{toJson(entry.firstCallsign), toJson(entry.secondCallsign), toJson(entry.thirdCallsign),
                      toJson(entry.fourthCallsign)};
}

QJsonValue toJson(const sigdb::CallsignSet &set)
{
    return QJsonObject{
        {QStringLiteral("firstValue"), toJson(set.firstValue)},
        {QStringLiteral("secondValue"), toJson(set.secondValue)},
        {QStringLiteral("entries"), toJsonArray(set.entries.container())},
    };
}

QJsonValue toJson(const sigdb::CallsignTable &table)
{
    return QJsonObject{
        {QStringLiteral("connections"), toJsonArray(table.connections.container())},
        {QStringLiteral("sets"), toJsonArray(table.sets.container())},
        {QStringLiteral("overview"), toJson(table.overview)},
    };
}

QJsonValue toJson(const sigdb::ReferenceDocument &document)
{
    return QJsonArray{toJson(document.documentText1), toJson(document.documentText2),
                      toJson(document.documentText3), toJson(document.documentText4)};
}

QJsonValue toJson(const sigdb::ElementDetails &details)
{
    QJsonObject object = toJson(static_cast<const sigdb::SigdbElementDetails &>(details)).toObject();
    object.insert(QStringLiteral("elementDefinition"), toJson(details.elementDefinition()));
    object.insert(QStringLiteral("detailsNumber"), toJson(details.detailsNumber()));
    object.insert(QStringLiteral("collocationTID"), toJson(details.collocationTID()));
    object.insert(QStringLiteral("referenceDocuments"), toJsonArray(details.referenceDocuments().container()));
    object.insert(QStringLiteral("networkList"), toJson(details.networkList()));
    object.insert(QStringLiteral("callsignTable"), toJson(details.callsignTable()));
    return object;
}

QJsonValue toJson(const sigdb::ElementDetailsList &list)
{
    return QJsonObject{
        {QStringLiteral("listNumber"), toJson(list.listNumber())},
        {QStringLiteral("details"), toJsonArray(list.container())},
    };
}

} // namespace sigdbtool
