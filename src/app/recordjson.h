#ifndef SIGDB_APP_RECORDJSON_H
#define SIGDB_APP_RECORDJSON_H

#include "base/dbdatatype.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <string>
#include <vector>

namespace sigdb {
class ElementList;
class LocationEntry;
class LocationEntryList;
class SigdbElement;
class SigdbElementDetails;
class SigdbElementWithMaxCount;
class ElementOverview;
class ElementOverviewList;
class QueryRequest;
class QueryRequestList;
class PlotEntry;
class PlotEntryList;
class LinkAction;
class LinkChangeDefinition;
class CallsignTable;
class ConnectionEntryDefinition;
class ConnectionEntry;
class CallsignEntry;
class CallsignSet;
class ReferenceDocument;
class ElementDetails;
class ElementDetailsList;
} // namespace sigdb

namespace sigdbtool {

// JSON forms of the records for the inspect command. Column values are JSON null while NULL;
// 64-bit numbers beyond what a JSON number holds exactly travel as decimal strings.

QJsonValue toJson(bool value);
QJsonValue toJson(char value);
QJsonValue toJson(int value);
QJsonValue toJson(unsigned int value);
QJsonValue toJson(double value);
QJsonValue toJson(unsigned long long value);
QJsonValue toJson(const std::string &value);

template <typename T>
QJsonValue toJson(const base::DbDataType<T> &value)
{
    if (value.isNull())
        return QJsonValue::Null;
    if constexpr (std::is_enum<T>::value)
        return toJson(static_cast<int>(value.getData()));
    else
        return toJson(value.getData());
}

QJsonValue toJson(const sigdb::SigdbElement &element);
QJsonValue toJson(const sigdb::SigdbElementWithMaxCount &request);
QJsonValue toJson(const sigdb::ElementList &list);
QJsonValue toJson(const sigdb::LocationEntry &entry);
QJsonValue toJson(const sigdb::LocationEntryList &list);
QJsonValue toJson(const sigdb::SigdbElementDetails &details);
QJsonValue toJson(const sigdb::ElementOverview &overview);
QJsonValue toJson(const sigdb::ElementOverviewList &list);
QJsonValue toJson(const sigdb::QueryRequest &request);
QJsonValue toJson(const sigdb::QueryRequestList &list);
QJsonValue toJson(const sigdb::PlotEntry &entry);
QJsonValue toJson(const sigdb::PlotEntryList &list);
QJsonValue toJson(const sigdb::LinkAction &link);
QJsonValue toJson(const sigdb::LinkChangeDefinition &change);
QJsonValue toJson(const sigdb::ConnectionEntryDefinition &end);
QJsonValue toJson(const sigdb::ConnectionEntry &connection);
QJsonValue toJson(const sigdb::CallsignEntry &entry);
QJsonValue toJson(const sigdb::CallsignSet &set);
QJsonValue toJson(const sigdb::CallsignTable &table);
QJsonValue toJson(const sigdb::ReferenceDocument &document);
QJsonValue toJson(const sigdb::ElementDetails &details);
QJsonValue toJson(const sigdb::ElementDetailsList &list);

template <typename T>
QJsonArray toJsonArray(const std::vector<T> &values)
{
    QJsonArray array;
    for (const T &value : values)
        array.append(toJson(value));
    return array;
}


} // namespace sigdbtool

#endif
