#include "recordjson.h"

#include "auxiliary/plotentry.h"
#include "auxiliary/referencedocument.h"
#include "client/sigdbelementwithmaxcount.h"
#include "core/elementlist.h"
#include "core/locationentry.h"
#include "core/sigdbelementdetails.h"
#include "element/elementdetails.h"
#include "element/elementdetailslist.h"
#include "element/elementoverview.h"
#include "element/elementoverviewlist.h"
#include "link/linkchangedefinition.h"
#include "network/callsigntable.h"
#include "network/callsigntabletext.h"
#include "jsonstream.h"
#include "query/queryrequest.h"

#include <QRegularExpression>

#include <cmath>
#include <functional>
#include <limits>
#include <tuple>
#include <utility>

namespace sigdbtool {

namespace {

constexpr unsigned long long kLargestExactJsonInteger = 1ULL << 53;

} // namespace

// ---------------------------------------------------------------------------------------------
// JsonReader

JsonReader::JsonReader(const QString &root)
    : m_path(root)
{
}

void JsonReader::fail(const QString &message)
{
    if (m_error.isEmpty())
        m_error = m_path.isEmpty() ? message : QStringLiteral("%1: %2").arg(m_path, message);
}

JsonReader::Step::Step(JsonReader &reader, const QString &key)
    : m_reader(reader)
    , m_length(reader.m_path.size())
{
    if (!m_reader.m_path.isEmpty())
        m_reader.m_path += QLatin1Char('.');
    m_reader.m_path += key;
}

JsonReader::Step::Step(JsonReader &reader, int index)
    : m_reader(reader)
    , m_length(reader.m_path.size())
{
    m_reader.m_path += QStringLiteral("[%1]").arg(index);
}

JsonReader::Step::~Step()
{
    m_reader.m_path.truncate(m_length);
}

void checkFieldNames(JsonReader &reader, const QJsonObject &object, const QStringList &names,
                     const QString &message)
{
    for (auto it = object.begin(); it != object.end() && !reader.failed(); ++it) {
        if (!names.contains(it.key())) {
            const JsonReader::Step step(reader, it.key());
            reader.fail(message);
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Scalars

namespace {

/// An integral JSON number or a decimal string within [minimum, maximum].
template <typename Integer>
bool readInteger(const QJsonValue &json, Integer &value, Integer minimum, Integer maximum)
{
    if (json.isDouble()) {
        const double number = json.toDouble();
        if (std::trunc(number) != number || number < static_cast<double>(minimum)
            || number > static_cast<double>(maximum)
            || std::fabs(number) > static_cast<double>(kLargestExactJsonInteger))
            return false;
        value = static_cast<Integer>(number);
        return true;
    }
    if (!json.isString())
        return false;
    static const QRegularExpression decimal(QStringLiteral("^-?[0-9]+$"));
    const QString text = json.toString();
    if (!decimal.match(text).hasMatch())
        return false;
    bool ok = false;
    if constexpr (std::is_signed<Integer>::value) {
        const qint64 number = text.toLongLong(&ok);
        if (!ok || number < static_cast<qint64>(minimum) || number > static_cast<qint64>(maximum))
            return false;
        value = static_cast<Integer>(number);
    } else {
        const quint64 number = text.toULongLong(&ok);
        if (!ok || number > static_cast<quint64>(maximum))
            return false;
        value = static_cast<Integer>(number);
    }
    return true;
}

template <typename Integer>
void readInteger(JsonReader &reader, const QJsonValue &json, Integer &value, const char *expected)
{
    if (!readInteger(json, value, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()))
        reader.fail(QStringLiteral("expected %1").arg(QLatin1String(expected)));
}

/// Whether \a bytes read as UTF-8 give the same bytes back.
bool isUtf8(const std::string &bytes)
{
    const QByteArray utf8 = QString::fromStdString(bytes).toUtf8();
    return utf8.size() == static_cast<int>(bytes.size())
        && std::equal(bytes.begin(), bytes.end(), utf8.constBegin());
}

} // namespace

QJsonValue toJson(bool value)
{
    return value;
}

void fromJson(JsonReader &reader, const QJsonValue &json, bool &value)
{
    if (!json.isBool())
        return reader.fail(QStringLiteral("expected true or false"));
    value = json.toBool();
}

QJsonValue toJson(char value)
{
    return QString(QLatin1Char(value));
}

void fromJson(JsonReader &reader, const QJsonValue &json, char &value)
{
    const QString text = json.toString();
    if (!json.isString() || text.size() != 1 || text.at(0).unicode() > 0xFF)
        return reader.fail(QStringLiteral("expected one Latin-1 character"));
    value = text.at(0).toLatin1();
}

QJsonValue toJson(int value)
{
    return value;
}

void fromJson(JsonReader &reader, const QJsonValue &json, int &value)
{
    readInteger(reader, json, value, "a 32-bit integer");
}

QJsonValue toJson(unsigned int value)
{
    return static_cast<qint64>(value);
}

void fromJson(JsonReader &reader, const QJsonValue &json, unsigned int &value)
{
    readInteger(reader, json, value, "an unsigned 32-bit number");
}

QJsonValue toJson(long long value)
{
    return QString::number(value);
}

void fromJson(JsonReader &reader, const QJsonValue &json, long long &value)
{
    readInteger(reader, json, value, "a 64-bit integer");
}

QJsonValue toJson(unsigned long long value)
{
    if (value <= kLargestExactJsonInteger)
        return static_cast<qint64>(value);
    return QString::number(value);
}

void fromJson(JsonReader &reader, const QJsonValue &json, unsigned long long &value)
{
    readInteger(reader, json, value, "an unsigned 64-bit number");
}

QJsonValue toJson(double value)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
    // A JSON number keeps no sign on zero.
    if (value == 0 && std::signbit(value))
        return QStringLiteral("-0");
    return value;
}

void fromJson(JsonReader &reader, const QJsonValue &json, double &value)
{
    const QString text = json.toString();
    if (json.isDouble())
        value = json.toDouble();
    else if (text == QLatin1String("NaN"))
        value = std::numeric_limits<double>::quiet_NaN();
    else if (text == QLatin1String("Infinity"))
        value = std::numeric_limits<double>::infinity();
    else if (text == QLatin1String("-Infinity"))
        value = -std::numeric_limits<double>::infinity();
    else if (text == QLatin1String("-0"))
        value = -0.0;
    else
        reader.fail(QStringLiteral("expected a number, \"NaN\", \"Infinity\", \"-Infinity\" or \"-0\""));
}

QJsonValue toJson(const std::string &value)
{
    if (isUtf8(value))
        return QString::fromStdString(value);
    const QByteArray bytes(value.data(), static_cast<int>(value.size()));
    return QJsonObject{{QStringLiteral("hex"), QString::fromLatin1(bytes.toHex())}};
}

void fromJson(JsonReader &reader, const QJsonValue &json, std::string &value)
{
    if (json.isString()) {
        value = json.toString().toStdString();
        return;
    }
    readObject(reader, json, {QStringLiteral("hex")}, [&reader, &value](const QString &, const QJsonValue &hex) {
        // Pairs of digits, blanks between pairs allowed (the raw dissections print them so).
        static const QRegularExpression digits(QStringLiteral("^([0-9a-fA-F]{2}( (?=.))?)*$"));
        if (!hex.isString() || !digits.match(hex.toString()).hasMatch())
            return reader.fail(QStringLiteral("expected pairs of hex digits"));
        value = QByteArray::fromHex(hex.toString().toLatin1()).toStdString();
    });
}

// A query request's columns are read by name (defined with the layouts).
void fromJson(JsonReader &reader, const QJsonValue &json, sigdb::QueryColumns &columns);

// ---------------------------------------------------------------------------------------------
// The JSON layout of every record: which fields it has under which names, in which order. One
// visitor per record serves inspect (on a const record) and encode (on a mutable one), so a
// field is named once. Fields are read in layout order, which matters where setting one field
// passes a value on to others: an element's type and layer come before its columns and
// included details, a link change's modification user before its links, so that the values
// read last are the ones the bytes held.

namespace {

using namespace sigdb;

template <typename Record>
struct Layout;

/// Whether \a Record has a layout (the specialisations below are complete types, the rest are not).
template <typename Record, typename = void>
struct HasLayout : std::false_type
{
};
template <typename Record>
struct HasLayout<Record, std::void_t<decltype(sizeof(Layout<Record>))>> : std::true_type
{
};

/// A field behind a getter and a setter. The setter is only called (and only compiled) when
/// the field is read from JSON, so a layout can hand out properties of a const record.
template <typename Owner, typename Getter, typename Setter>
struct Property
{
    Owner &owner;
    Getter getter;
    Setter setter;

    decltype(auto) get() const { return std::invoke(getter, owner); }
    template <typename Value>
    void set(Value &&value) const
    {
        std::invoke(setter, owner, std::forward<Value>(value));
    }
};

template <typename Owner, typename Getter, typename Setter>
Property<Owner, Getter, Setter> property(Owner &owner, Getter getter, Setter setter)
{
    return {owner, getter, setter};
}

/// The element part of a record that is an element, with the record's constness.
template <typename Record>
auto &elementPart(Record &record)
{
    using Element = std::conditional_t<std::is_const<Record>::value, const SigdbElement, SigdbElement>;
    return static_cast<Element &>(record);
}

// Writing and reading of anything a layout hands out.

/// Where the writers write: the stream, the budget of list entries shown, and for element
/// details an optional writer of the callsign table, which then takes the place of the table
/// the record holds.
struct JsonSink
{
    JsonStream &out;
    ItemBudget &budget;
    const std::function<void()> *writeTable = nullptr;
};

template <typename Record, typename = std::enable_if_t<HasLayout<Record>::value>>
void layoutToJson(JsonSink &sink, const Record &record);
template <typename Record, typename = std::enable_if_t<HasLayout<Record>::value>>
void layoutFromJson(JsonReader &reader, const QJsonValue &json, Record &record);
void queryColumnsToJson(JsonSink &sink, const QueryColumns &columns);

template <typename T>
struct IsProperty : std::false_type
{
};
template <typename Owner, typename Getter, typename Setter>
struct IsProperty<Property<Owner, Getter, Setter>> : std::true_type
{
};

template <typename T>
struct IsVector : std::false_type
{
};
template <typename T>
struct IsVector<std::vector<T>> : std::true_type
{
};

/// Writes a field's value while it is produced; every array element is an item of the budget.
template <typename Value>
void fieldToJson(JsonSink &sink, const Value &value)
{
    if constexpr (IsProperty<Value>::value) {
        fieldToJson(sink, value.get());
    } else if constexpr (IsVector<Value>::value) {
        sink.out.beginArray();
        for (const auto &entry : value) {
            if (sink.budget.take())
                fieldToJson(sink, entry);
        }
        sink.out.endArray();
    } else if constexpr (std::is_same<Value, CallsignTable>::value) {
        if (sink.writeTable)
            (*sink.writeTable)();
        else
            layoutToJson(sink, value);
    } else if constexpr (std::is_same<Value, QueryColumns>::value) {
        queryColumnsToJson(sink, value);
    } else if constexpr (HasLayout<Value>::value) {
        layoutToJson(sink, value);
    } else {
        sink.out.value(toJson(value));
    }
}

template <typename Value>
void fieldFromJson(JsonReader &reader, const QJsonValue &json, Value &value)
{
    if constexpr (IsProperty<Value>::value) {
        std::decay_t<decltype(value.get())> read = value.get();
        fieldFromJson(reader, json, read);
        if (!reader.failed())
            value.set(std::move(read));
    } else if constexpr (IsVector<Value>::value) {
        readArray(reader, json, value, [](JsonReader &r, const QJsonValue &j, auto &entry) { fieldFromJson(r, j, entry); });
    } else if constexpr (HasLayout<Value>::value) {
        layoutFromJson(reader, json, value);
    } else {
        fromJson(reader, json, value);
    }
}

template <typename Record, typename>
void layoutToJson(JsonSink &sink, const Record &record)
{
    sink.out.beginObject();
    Layout<Record>::visit(record, [&sink](const char *name, auto &&field) {
        sink.out.key(QLatin1String(name));
        fieldToJson(sink, field);
    });
    sink.out.endObject();
}

template <typename Record, typename>
void layoutFromJson(JsonReader &reader, const QJsonValue &json, Record &record)
{
    if (!json.isObject())
        return reader.fail(QStringLiteral("expected an object"));
    const QJsonObject object = json.toObject();
    QStringList names;
    Layout<Record>::visit(record, [&names](const char *name, auto &&) { names.append(QLatin1String(name)); });
    checkFieldNames(reader, object, names);
    // In layout order, not in the document's.
    Layout<Record>::visit(record, [&reader, &object](const char *name, auto &&field) {
        if (reader.failed())
            return;
        const JsonReader::Step step(reader, QLatin1String(name));
        const auto value = object.find(QLatin1String(name));
        if (value == object.end())
            return reader.fail(QStringLiteral("missing field"));
        fieldFromJson(reader, value.value(), field);
    });
}

template <>
struct Layout<SigdbElement>
{
    template <typename E, typename Field>
    static void visit(E &e, Field &&field)
    {
        field("type", property(e, &SigdbElement::type, &SigdbElement::setType));
        field("subType", property(e, &SigdbElement::subType, &SigdbElement::setSubType));
        field("tid", e.tid());
        field("approvalType", property(e, &SigdbElement::approvalType, &SigdbElement::setApproveType));
        field("apvState", property(e, &SigdbElement::apvState, &SigdbElement::setApvState));
        field("changeType", property(e, &SigdbElement::changeType, &SigdbElement::setChangeType));
        field("layer", property(e, &SigdbElement::layer, &SigdbElement::setLayer));
        field("exchgId", e.exchgId());
        field("modificationUser", e.modificationUser());
    }
};

template <>
struct Layout<SigdbElementWithMaxCount>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        using W = SigdbElementWithMaxCount;
        field("element", elementPart(r));
        field("startIndex", property(r, &W::startIndex, &W::setStartIndex));
        field("resultListMaxCount", property(r, &W::resultListMaxCount, &W::setResultListMaxCount));
        field("requestedListType", property(r, &W::requestedListType, &W::setRequestedListType));
    }
};

template <>
struct Layout<LocationEntry>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("latitude", r.latitude);
        field("longitude", r.longitude);
        field("validFrom", r.validFrom);
        field("indication", r.indication);
        field("modification", r.modification);
    }
};

template <>
struct Layout<SigdbElementDetails>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        using D = SigdbElementDetails;
        using P = ProfileParameterSettings;
        // Type and layer first: setting them rearranges the columns and passes the layer on to
        // the included details, which then get their own values.
        field("element", elementPart(r));
        field("columns", property(r, &D::allData, &D::setAllData));
        field("includedDetails", property(r, &D::includedDetails, &D::setIncludedDetails));
        auto &profile = r.profileParameterSettings();
        field("profileFlags", property(profile, &P::boolVector, &P::setBoolVector));
        field("profileValid", property(profile, &P::isValid, &P::setValid));
        field("parameterSet", profile.parameterSet());
    }
};

template <>
struct Layout<ElementOverview>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("element", r.element);
        field("relatedElement", r.relatedElement);
        field("exchgIdText", r.exchgIdText);
        field("infoText2", r.infoText2);
        field("infoText3", r.infoText3);
        field("infoText4", r.infoText4);
        field("keyText1", r.keyText1);
        field("keyText2", r.keyText2);
        field("keyText3", r.keyText3);
        field("locationIndication", r.locationIndication);
        field("modificationState", r.modificationState);
        field("linkModificationState", r.linkModificationState);
        field("networkTypeWord", r.networkTypeWord);
        field("auxiliaryTid", r.auxiliaryTid);
        field("location", r.location);
        field("locationList", r.locationList.container());
        field("uniqueLinks", r.uniqueLinks.container());
        field("collocationGroupLeader", r.collocationGroupLeader);
        field("orderNumber", r.orderNumber);
        field("collocationModState", r.collocationModState);
    }
};

template <>
struct Layout<ElementOverviewList>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        using L = ElementOverviewList;
        field("parentDefinition", r.parentDefinition());
        field("moreResultsAvailable", property(r, &L::moreResultsAvailable, &L::setMoreResultsAvailable));
        field("requestedListType", property(r, &L::requestedListType, &L::setRequestedListType));
        field("dataLayer", property(r, &L::dataLayer, &L::setDataLayer));
        field("collocationModState", r.collocationModState);
        field("listText1", r.listText1);
        field("listText2", r.listText2);
        field("listText3", r.listText3);
        field("collocatedLocation", property(r, &L::collocatedLocation, &L::setCollocatedLocation));
        field("results", property(r, &L::results, [](L &list, const std::vector<ElementOverview> &results) {
                  for (const ElementOverview &result : results)
                      list.appendResult(result, false);
              }));
        field("subLists", property(r, &L::subLists, [](L &list, const std::vector<L> &subLists) {
                  for (const L &subList : subLists)
                      list.appendResultList(subList);
              }));
    }
};

/// The filter value and sort flags of one query column.
template <typename T>
struct Layout<RefDatatypeOrder<T>>
{
    template <typename C, typename Field>
    static void visit(C &c, Field &&field)
    {
        using Column = RefDatatypeOrder<T>;
        using Value = std::conditional_t<std::is_const<C>::value, const base::DbDataType<T>, base::DbDataType<T>>;
        field("value", static_cast<Value &>(c));
        field("orderBy", property(c, &Column::orderBy, &Column::setOrderBy));
        field("ascending", property(c, &Column::ascending, &Column::setAscending));
    }
};

template <>
struct Layout<QueryRequest>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("element", r.element());
        field("detailsTemplate", r.detailsTemplate());
        field("exactMatch", r.exactMatch());
        field("columns", r.columns());
    }
};

template <>
struct Layout<QueryRequestList>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        using L = QueryRequestList;
        field("queryId", r.queryId());
        field("requestType", r.requestType());
        field("queryName", r.queryName());
        field("queryOwner", r.queryOwner());
        field("clientReference", property(r, &L::clientReference, &L::setClientReference));
        field("requests", r.container());
    }
};

template <>
struct Layout<PlotEntry>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("modificationState", r.modificationState);
        field("firstId", r.firstId);
        field("secondId", r.secondId);
        field("text", r.text);
    }
};

template <>
struct Layout<PlotEntryList>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("listId", r.listId);
        field("listText1", r.listText1);
        field("listText2", r.listText2);
        field("entries", r.container());
    }
};

template <>
struct Layout<LinkAction>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("actionType", property(r, &LinkAction::actionType, &LinkAction::setActionType));
        field("fromElement", r.fromElement());
        field("toElement", r.toElement());
        field("orderNumber", property(r, &LinkAction::orderNumber, [](LinkAction &link, const base::DbDataType<int> &number) {
                  link.setOrderNumber(number);
              }));
    }
};

template <>
struct Layout<LinkChangeDefinition>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        // The user first: setting it copies it into every element of both links, whose own
        // users are read afterwards.
        field("modificationUser", property(r, &LinkChangeDefinition::modificationUser,
                                           &LinkChangeDefinition::setModificationUser));
        field("link1", r.link1());
        field("link2", r.link2());
    }
};

template <>
struct Layout<ConnectionEntryDefinition>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("element", r.element);
        field("firstText", r.firstText);
        field("secondText", r.secondText);
        field("rcs", r.rcs);
        field("relay", r.relay);
        field("overview", r.overview);
    }
};

template <>
struct Layout<ConnectionEntry>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("element", elementPart(r));
        field("name", r.name());
        field("creationDate", r.creationDate());
        field("modificationDate", r.modificationDate());
        field("from", r.fromDefinition);
        field("to", r.toDefinition);
        field("connectionFlag", r.connectionFlag);
        field("modificationState", r.modificationState);
        field("secondNumber", r.secondNumber);
    }
};

template <>
struct Layout<CallsignEntry>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("firstCallsign", r.firstCallsign);
        field("secondCallsign", r.secondCallsign);
        field("thirdCallsign", r.thirdCallsign);
        field("fourthCallsign", r.fourthCallsign);
    }
};

template <>
struct Layout<CallsignSet>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("firstValue", r.firstValue);
        field("secondValue", r.secondValue);
        field("entries", r.entries.container());
    }
};

template <>
struct Layout<CallsignTable>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("connections", r.connections.container());
        field("sets", r.sets.container());
        field("overview", r.overview);
    }
};

template <>
struct Layout<ReferenceDocument>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("documentText1", r.documentText1);
        field("documentText2", r.documentText2);
        field("documentText3", r.documentText3);
        field("documentText4", r.documentText4);
    }
};

template <>
struct Layout<ElementDetails>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        Layout<SigdbElementDetails>::visit(r, field);
        field("elementDefinition", property(r, &ElementDetails::elementDefinition, &ElementDetails::setElementDefinition));
        field("detailsNumber", r.detailsNumber());
        field("collocationTID", r.collocationTID());
        field("referenceDocuments", r.referenceDocuments().container());
        field("networkList", r.networkList());
        field("callsignTable", r.callsignTable());
    }
};

template <>
struct Layout<ElementDetailsList>
{
    template <typename R, typename Field>
    static void visit(R &r, Field &&field)
    {
        field("listNumber", r.listNumber());
        field("details", r.container());
    }
};

} // namespace

namespace {

// A query request shows only the columns that filter or sort; every other one is NULL and
// unsorted, and reads back so when it is left out.
void queryColumnsToJson(JsonSink &sink, const QueryColumns &columns)
{
    sink.out.beginObject();
    int position = 0;
    const auto addColumn = [&sink, &position](const auto &column) {
        const char *name = QueryRequest::columnName(position++);
        if (!column.isNull() || column.orderBy() || column.ascending()) {
            sink.out.key(QLatin1String(name));
            layoutToJson(sink, column);
        }
    };
    std::apply([&addColumn](const auto &...column) { (addColumn(column), ...); }, columns);
    sink.out.endObject();
}

} // namespace

void fromJson(JsonReader &reader, const QJsonValue &json, sigdb::QueryColumns &columns)
{
    if (!json.isObject())
        return reader.fail(QStringLiteral("expected an object"));
    const QJsonObject object = json.toObject();
    QStringList names;
    for (int position = 0; position < QueryColumnCount; ++position)
        names.append(QString::fromLatin1(QueryRequest::columnName(position)));
    checkFieldNames(reader, object, names, QStringLiteral("unknown query column"));
    int position = 0;
    const auto readColumn = [&](auto &column) {
        const QString name = names.at(position++);
        if (reader.failed() || !object.contains(name))
            return;
        const JsonReader::Step step(reader, name);
        layoutFromJson(reader, object.value(name), column);
    };
    std::apply([&readColumn](auto &...column) { (readColumn(column), ...); }, columns);
}

namespace {

// An element list is its entries and nothing else: a bare array.
void recordToJson(JsonSink &sink, const ElementList &list)
{
    fieldToJson(sink, list.container());
}

void recordFromJson(JsonReader &reader, const QJsonValue &json, ElementList &list)
{
    fieldFromJson(reader, json, list.container());
}

template <typename Record>
void recordToJson(JsonSink &sink, const Record &record)
{
    layoutToJson(sink, record);
}

template <typename Record>
void recordFromJson(JsonReader &reader, const QJsonValue &json, Record &record)
{
    layoutFromJson(reader, json, record);
}

/// Writes the records of a callsign table text as the JSON of a table, one record at a time: a
/// short text can stand for millions of records. The table's three fields are named here as
/// its layout above names them (the records arrive between them); a set is written by its
/// layout.
class TableJsonWriter : public CallsignTableText::Visitor
{
public:
    explicit TableJsonWriter(JsonSink &sink)
        : m_sink(sink)
    {
        m_sink.out.beginObject();
        m_sink.out.key(QLatin1String("connections"));
        m_sink.out.beginArray();
    }

    void connection(ConnectionEntry &&connection) override
    {
        if (m_sink.budget.take())
            layoutToJson(m_sink, connection);
    }
    void beginSet(CallsignSet &&set) override
    {
        startSets();
        m_sink.budget.take();
        // The set's fields as its layout names them; its entries (the last of them, still
        // empty here) arrive one by one into the array left open.
        m_sink.out.beginObject();
        Layout<CallsignSet>::visit(std::as_const(set), [this](const char *name, auto &&field) {
            m_sink.out.key(QLatin1String(name));
            if constexpr (IsVector<std::decay_t<decltype(field)>>::value)
                m_sink.out.beginArray();
            else
                fieldToJson(m_sink, field);
        });
    }
    void entry(CallsignEntry &&entry) override
    {
        if (m_sink.budget.take())
            layoutToJson(m_sink, entry);
    }
    void endSet() override
    {
        m_sink.out.endArray();
        m_sink.out.endObject();
    }
    /// Comes last, always.
    void overview(ElementOverview &&overview) override
    {
        startSets();
        m_sink.out.endArray();
        m_sink.out.key(QLatin1String("overview"));
        layoutToJson(m_sink, overview);
        m_sink.out.endObject();
    }

private:
    void startSets()
    {
        if (m_inSets)
            return;
        m_inSets = true;
        m_sink.out.endArray();
        m_sink.out.key(QLatin1String("sets"));
        m_sink.out.beginArray();
    }

    JsonSink &m_sink;
    bool m_inSets = false;
};

} // namespace

#define SIGDB_APP_DEFINE_RECORD_JSON(Record)                                                   \
    void writeJson(JsonStream &out, ItemBudget &budget, const sigdb::Record &record)          \
    {                                                                                          \
        JsonSink sink{out, budget};                                                            \
        recordToJson(sink, record);                                                            \
    }                                                                                          \
    void fromJson(JsonReader &reader, const QJsonValue &json, sigdb::Record &record)          \
    {                                                                                          \
        recordFromJson(reader, json, record);                                                 \
    }
SIGDB_APP_JSON_RECORDS(SIGDB_APP_DEFINE_RECORD_JSON)
#undef SIGDB_APP_DEFINE_RECORD_JSON

bool writeJson(JsonStream &out, ItemBudget &budget, const sigdb::ElementDetails &details,
               const QByteArray &tableText)
{
    bool tableRead = true;
    JsonSink sink{out, budget};
    const std::function<void()> writeTable = [&sink, &tableText, &tableRead] {
        TableJsonWriter writer(sink);
        tableRead = CallsignTableText::readUtf8(tableText, writer);
    };
    sink.writeTable = &writeTable;
    layoutToJson(sink, details);
    return tableRead;
}

} // namespace sigdbtool
