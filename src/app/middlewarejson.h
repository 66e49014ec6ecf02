#ifndef SIGDB_APP_MIDDLEWAREJSON_H
#define SIGDB_APP_MIDDLEWAREJSON_H

#include "jsonstream.h"
#include "recordjson.h"

#include "middleware/propertyrecord.h"

#include <QJsonArray>
#include <QJsonObject>

#include <type_traits>
#include <utility>
#include <vector>

namespace sigdbtool {

// JSON forms of the middleware records, walked from their property tables: every property
// under its own name, nested records as objects, vectors as arrays. Writers first, readers
// below.

template <typename T>
using IsMiddlewareRecord = std::is_base_of<sigdb::PropertyRecord<T>, T>;

template <typename Record, int Index, typename = void>
struct HasProperty : std::false_type
{
};
template <typename Record, int Index>
struct HasProperty<Record, Index,
                   std::void_t<decltype(Record::propertyAt(std::integral_constant<int, Index>{}))>>
    : std::true_type
{
};

template <typename Record>
void writeMiddlewareJson(JsonStream &out, ItemBudget &budget, const Record &record);

template <typename T>
void writePropertyValue(JsonStream &out, ItemBudget &budget, const T &value)
{
    if constexpr (IsMiddlewareRecord<T>::value) {
        writeMiddlewareJson(out, budget, value);
    } else if constexpr (std::is_enum<T>::value) {
        out.value(toJson(static_cast<int>(value)));
    } else {
        out.value(toJson(value));
    }
}

/// Every element of a vector is an item of \a budget.
template <typename T>
void writePropertyValue(JsonStream &out, ItemBudget &budget, const std::vector<T> &values)
{
    out.beginArray();
    for (const T &value : values) {
        if (budget.take())
            writePropertyValue(out, budget, value);
    }
    out.endArray();
}

template <typename Record, int Index>
void writeProperties(JsonStream &out, ItemBudget &budget, const Record &record)
{
    if constexpr (HasProperty<Record, Index>::value) {
        const auto field = Record::propertyAt(std::integral_constant<int, Index>{});
        out.key(QLatin1String(field.name));
        writePropertyValue(out, budget, record.*(field.member));
        writeProperties<Record, Index + 1>(out, budget, record);
    }
}

/// Writes \a record while it is produced: its store type, then its properties in table order.
template <typename Record>
void writeMiddlewareJson(JsonStream &out, ItemBudget &budget, const Record &record)
{
    out.beginObject();
    out.key(QLatin1String("StoreType"));
    out.number(record.layer());
    writeProperties<Record, 1>(out, budget, record);
    out.endObject();
}

template <typename Record>
void middlewareFromJson(JsonReader &reader, const QJsonValue &json, Record &record);

template <typename T>
void propertyValueFromJson(JsonReader &reader, const QJsonValue &json, T &value)
{
    if constexpr (IsMiddlewareRecord<T>::value)
        middlewareFromJson(reader, json, value);
    else
        fromJson(reader, json, value);
}

template <typename T>
void propertyValueFromJson(JsonReader &reader, const QJsonValue &json, std::vector<T> &values)
{
    readArray(reader, json, values, [](JsonReader &r, const QJsonValue &j, T &value) { propertyValueFromJson(r, j, value); });
}

/// Reads the property called \a name.
template <typename Record, int Index>
void readProperty(JsonReader &reader, const QString &name, const QJsonValue &json, Record &record)
{
    if constexpr (HasProperty<Record, Index>::value) {
        const auto field = Record::propertyAt(std::integral_constant<int, Index>{});
        if (name == QLatin1String(field.name))
            return propertyValueFromJson(reader, json, record.*(field.member));
        readProperty<Record, Index + 1>(reader, name, json, record);
    }
}

template <typename Record>
void middlewareFromJson(JsonReader &reader, const QJsonValue &json, Record &record)
{
    readObject(reader, json, Record::propertyNames(), [&reader, &record](const QString &name, const QJsonValue &value) {
        if (name == QLatin1String("StoreType")) {
            int layer = 0;
            fromJson(reader, value, layer);
            record.setLayer(layer);
        } else {
            readProperty<Record, 1>(reader, name, value, record);
        }
    });
}

} // namespace sigdbtool

#endif
