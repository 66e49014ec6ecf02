#include "recordjson.h"

#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "core/locationentry.h"
#include "core/sigdbelementdetails.h"

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

} // namespace sigdbtool
