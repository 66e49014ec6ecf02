#ifndef SIGDB_APP_RECORDJSON_H
#define SIGDB_APP_RECORDJSON_H

#include "base/dbdatatype.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <string>
#include <type_traits>
#include <vector>

namespace sigdb {
class ElementList;
class SigdbElement;
class SigdbElementDetails;
class SigdbElementWithMaxCount;
class ElementOverview;
class ElementOverviewList;
class QueryRequestList;
class PlotEntryList;
class LinkChangeDefinition;
class ElementDetails;
class ElementDetailsList;
} // namespace sigdb

namespace sigdbtool {

class ItemBudget;
class JsonStream;

// JSON forms of the records, shared by inspect (record to JSON) and encode (JSON to record).
// Column values are JSON null while NULL. Numbers that JSON cannot hold exactly travel as
// strings: 64-bit values beyond 2^53 as decimal digits, doubles that are not finite as "NaN",
// "Infinity" and "-Infinity", and a negative zero as "-0". Texts are JSON strings when they
// are UTF-8, otherwise an object {"hex": "<their bytes>"}, so that every byte comes back.

/// Reads JSON into record fields and keeps the JSON path of the value at hand, so that the
/// first value that does not fit can be named ("value.results[3].element.tid: ...").
class JsonReader
{
public:
    /// \a root is the path of the value the reading starts at (empty: the document).
    explicit JsonReader(const QString &root = QString());

    /// Records the first problem at the current path; later ones are ignored.
    void fail(const QString &message);
    bool failed() const { return !m_error.isEmpty(); }
    /// "<path>: <message>" of the first problem.
    const QString &error() const { return m_error; }

    /// Steps into a field or an array element while it lives.
    class Step
    {
    public:
        Step(JsonReader &reader, const QString &key);
        Step(JsonReader &reader, int index);
        ~Step();
        Step(const Step &) = delete;
        Step &operator=(const Step &) = delete;

    private:
        JsonReader &m_reader;
        int m_length;
    };

private:
    QString m_path;
    QString m_error;
};

// Scalars, each writer beside its reader.
QJsonValue toJson(bool value);
void fromJson(JsonReader &reader, const QJsonValue &json, bool &value);
QJsonValue toJson(char value);
void fromJson(JsonReader &reader, const QJsonValue &json, char &value);
QJsonValue toJson(int value);
void fromJson(JsonReader &reader, const QJsonValue &json, int &value);
QJsonValue toJson(unsigned int value);
void fromJson(JsonReader &reader, const QJsonValue &json, unsigned int &value);
QJsonValue toJson(long long value);
void fromJson(JsonReader &reader, const QJsonValue &json, long long &value);
QJsonValue toJson(unsigned long long value);
void fromJson(JsonReader &reader, const QJsonValue &json, unsigned long long &value);
QJsonValue toJson(double value);
void fromJson(JsonReader &reader, const QJsonValue &json, double &value);
QJsonValue toJson(const std::string &value);
void fromJson(JsonReader &reader, const QJsonValue &json, std::string &value);

/// Enumerations travel as their numbers.
template <typename E, typename = std::enable_if_t<std::is_enum<E>::value>>
QJsonValue toJson(E value)
{
    return toJson(static_cast<int>(value));
}
template <typename E, typename = std::enable_if_t<std::is_enum<E>::value>>
void fromJson(JsonReader &reader, const QJsonValue &json, E &value)
{
    int number = 0;
    fromJson(reader, json, number);
    value = static_cast<E>(number);
}

template <typename T>
QJsonValue toJson(const base::DbDataType<T> &value)
{
    if (value.isNull())
        return QJsonValue::Null;
    return toJson(value.getData());
}
/// null reads as NULL (the value stays as it is); anything else as the value. The column id
/// is kept.
template <typename T>
void fromJson(JsonReader &reader, const QJsonValue &json, base::DbDataType<T> &value)
{
    if (json.isNull()) {
        value.setNull(true);
        return;
    }
    fromJson(reader, json, value.getData());
    value.setNull(false);
}

/// Replaces \a values by one value per array element, each read by \a readEntry(reader,
/// json, value).
template <typename T, typename ReadEntry>
void readArray(JsonReader &reader, const QJsonValue &json, std::vector<T> &values, ReadEntry readEntry)
{
    if (!json.isArray())
        return reader.fail(QStringLiteral("expected an array"));
    const QJsonArray array = json.toArray();
    std::vector<T> read;
    read.reserve(static_cast<size_t>(array.size()));
    for (int i = 0; i < array.size() && !reader.failed(); ++i) {
        const JsonReader::Step step(reader, i);
        T value{};
        readEntry(reader, array.at(i), value);
        read.push_back(std::move(value));
    }
    values = std::move(read);
}

/// Fails on the first field of \a object that \a names does not hold.
void checkFieldNames(JsonReader &reader, const QJsonObject &object, const QStringList &names,
                     const QString &message = QStringLiteral("unknown field"));

/// Reads the fields of an object whose field names are \a names: an unknown or missing field
/// fails the reading; \a readField(name, json) reads one present field.
template <typename ReadField>
void readObject(JsonReader &reader, const QJsonValue &json, const QStringList &names, ReadField readField)
{
    if (!json.isObject())
        return reader.fail(QStringLiteral("expected an object"));
    const QJsonObject object = json.toObject();
    checkFieldNames(reader, object, names);
    for (const QString &name : names) {
        if (reader.failed())
            return;
        const JsonReader::Step step(reader, name);
        const auto field = object.find(name);
        if (field == object.end())
            return reader.fail(QStringLiteral("missing field"));
        readField(name, field.value());
    }
}

// The column records that travel on their own, as inspect prints them and encode reads them.
#define SIGDB_APP_JSON_RECORDS(RECORD)                                                         \
    RECORD(SigdbElement)                                                                       \
    RECORD(SigdbElementWithMaxCount)                                                           \
    RECORD(ElementList)                                                                        \
    RECORD(SigdbElementDetails)                                                                \
    RECORD(ElementOverview)                                                                    \
    RECORD(ElementOverviewList)                                                                \
    RECORD(QueryRequestList)                                                                   \
    RECORD(PlotEntryList)                                                                      \
    RECORD(LinkChangeDefinition)                                                               \
    RECORD(ElementDetailsList)

// Each record is written while it is produced (never held as a JSON tree); every array element
// at any depth is an item of \a budget.
#define SIGDB_APP_DECLARE_RECORD_JSON(Record)                                                  \
    void writeJson(JsonStream &out, ItemBudget &budget, const sigdb::Record &record);         \
    void fromJson(JsonReader &reader, const QJsonValue &json, sigdb::Record &record);
SIGDB_APP_JSON_RECORDS(SIGDB_APP_DECLARE_RECORD_JSON)
#undef SIGDB_APP_DECLARE_RECORD_JSON

/// Writes one element details record with the callsign table of \a tableText (UTF-8, as it
/// travels), read record by record, in place of the table the record holds; false when the
/// text is malformed (what did read is written all the same).
bool writeJson(JsonStream &out, ItemBudget &budget, const sigdb::ElementDetails &details,
               const QByteArray &tableText);

} // namespace sigdbtool

#endif
