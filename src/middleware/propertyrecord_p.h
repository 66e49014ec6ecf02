#ifndef SIGDB_MIDDLEWARE_PROPERTYRECORD_P_H
#define SIGDB_MIDDLEWARE_PROPERTYRECORD_P_H

// The table-driven implementation of PropertyRecord. Only the sources of the record families
// include this header; each instantiates PropertyRecord for its classes, so applications link
// to one copy of the code in the library.

#include "middleware/propertyrecord.h"

#include "io/propertystream.h"

#include <QChar>
#include <QLatin1String>

#include <utility>

namespace sigdb {

namespace propertyrecord {

/// The record class and the property being read, named by a corrupt-count message.
struct PropertyPlace
{
    const char *record;
    const char *property;
};

inline QString corruptCountMessage(const PropertyPlace &place, qint32 count)
{
    return QStringLiteral("Received corrupt structure %1: Invalid count %2 in property '%3'")
        .arg(QLatin1String(place.record), QString::number(count), QLatin1String(place.property));
}

template <typename Record>
void writeProperties(PropertyWriter &writer, const Record &record);
template <typename Record>
void readRecord(PropertyReader &reader, Record &record);

// ---------------------------------------------------------------------------------------------
// Value codecs: how one value of a property type is written and read. Each codec declares its
// writer and its reader side by side.

template <typename T, typename = void>
struct PropertyCodec;

/// int, unsigned int and every enumeration: qint32 (an unsigned value keeps its 32 bits).
template <typename T>
struct PropertyCodec<T, std::enable_if_t<std::is_enum<T>::value || std::is_same<T, int>::value
                                         || std::is_same<T, unsigned int>::value>>
{
    static void write(PropertyWriter &writer, T value) { writer.writeInt32(static_cast<qint32>(value)); }
    static void read(PropertyReader &reader, T &value, const PropertyPlace &)
    {
        qint32 wire = 0;
        reader.readInt32(wire);
        value = static_cast<T>(wire);
    }
};

template <>
struct PropertyCodec<bool>
{
    static void write(PropertyWriter &writer, bool value) { writer.writeBool(value); }
    static void read(PropertyReader &reader, bool &value, const PropertyPlace &) { reader.readBool(value); }
};

/// unsigned long long: qint64 (all 64 bits kept, so the largest value travels as -1).
template <>
struct PropertyCodec<unsigned long long>
{
    static void write(PropertyWriter &writer, unsigned long long value)
    {
        writer.writeInt64(static_cast<qint64>(value));
    }
    static void read(PropertyReader &reader, unsigned long long &value, const PropertyPlace &)
    {
        qint64 wire = 0;
        reader.readInt64(wire);
        value = static_cast<unsigned long long>(wire);
    }
};

template <>
struct PropertyCodec<std::string>
{
    static constexpr qint64 MinimumSize = PropertyReader::MinimumElementSize;
    static void write(PropertyWriter &writer, const std::string &value) { writer.writeString(value); }
    static void read(PropertyReader &reader, std::string &value, const PropertyPlace &)
    {
        reader.readString(value);
    }
};

/// A nullable value travels as its value; the NULL flag is the absence of the block, so a
/// block that is there clears the flag before the value is read.
template <typename T>
struct PropertyCodec<base::DbDataType<T>>
{
    static void write(PropertyWriter &writer, const base::DbDataType<T> &value)
    {
        PropertyCodec<T>::write(writer, value.getData());
    }
    static void read(PropertyReader &reader, base::DbDataType<T> &value, const PropertyPlace &place)
    {
        value.setNull(false);
        PropertyCodec<T>::read(reader, value.getData(), place);
    }
};

/// A nested record: its own record stream inside a byte array, written in place and decoded in
/// place from a reader of the array's bytes (no copy either way).
template <typename Record>
struct PropertyCodec<Record, std::enable_if_t<std::is_base_of<PropertyRecord<Record>, Record>::value>>
{
    static constexpr qint64 MinimumSize = PropertyReader::MinimumElementSize;
    static void write(PropertyWriter &writer, const Record &value)
    {
        writer.writeNested([&] { writeProperties(writer, value); });
    }
    static void read(PropertyReader &reader, Record &value, const PropertyPlace &)
    {
        PropertyReader nested = reader.readNested();
        readRecord(nested, value);
    }
};

/// A vector: the count, then every element. Count 0 leaves the vector as it is; any other
/// count resizes it and decodes the elements in place, in order.
template <typename Element>
struct PropertyCodec<std::vector<Element>>
{
    static void write(PropertyWriter &writer, const std::vector<Element> &value)
    {
        writer.writeCount(value.size());
        for (const Element &element : value)
            PropertyCodec<Element>::write(writer, element);
    }
    static void read(PropertyReader &reader, std::vector<Element> &value, const PropertyPlace &place)
    {
        qint32 count = 0;
        if (!reader.readCount(count, PropertyCodec<Element>::MinimumSize))
            throw corruptCountMessage(place, count);
        if (count == 0)
            return;
        value.resize(static_cast<std::size_t>(count));
        for (Element &element : value)
            PropertyCodec<Element>::read(reader, element, place);
    }
};

/// Whether a property's block is written: always, except for a NULL nullable value.
template <typename T>
bool isWritten(const T &)
{
    return true;
}
template <typename T>
bool isWritten(const base::DbDataType<T> &value)
{
    return !value.isNull();
}

// ---------------------------------------------------------------------------------------------
// The property table of a record: the rows declared by its SIGDB_PROPERTY macros, found by
// their index from 1 upward.

template <typename Record, int Index, typename = void>
struct HasPropertyAt : std::false_type
{
};
template <typename Record, int Index>
struct HasPropertyAt<Record, Index,
                     std::void_t<decltype(Record::propertyAt(std::integral_constant<int, Index>{}))>>
    : std::true_type
{
};

/// Calls \a visit with every row of the table in index order while it returns true; returns
/// false when a visit returned false.
template <typename Record, int Index = 1, typename Visit>
bool visitProperties(Visit &&visit)
{
    if constexpr (HasPropertyAt<Record, Index>::value) {
        if (!visit(Record::propertyAt(std::integral_constant<int, Index>{})))
            return false;
        return visitProperties<Record, Index + 1>(std::forward<Visit>(visit));
    } else {
        return true;
    }
}

/// The number of rows, properties 1 .. n.
template <typename Record, int Index = 1>
constexpr int propertyRows()
{
    if constexpr (HasPropertyAt<Record, Index>::value)
        return propertyRows<Record, Index + 1>();
    else
        return Index - 1;
}

/// Whether any row has an index in From .. To.
template <typename Record, int From, int To>
constexpr bool hasRowsIn()
{
    if constexpr (From > To)
        return false;
    else
        return HasPropertyAt<Record, From>::value || hasRowsIn<Record, From + 1, To>();
}

template <typename Field>
using FieldValue = typename Field::ValueType;

/// Writes every property block of \a record; NULL nullable values are left out.
template <typename Record>
void writeProperties(PropertyWriter &writer, const Record &record)
{
    // The rows are found by counting up from 1; a gap would hide every row behind it.
    constexpr int rows = propertyRows<Record>();
    static_assert(!hasRowsIn<Record, rows + 2, rows + 16>(),
                  "property indexes must follow each other without a gap");
    writer.writeBlock(0, [&] { writer.writeInt32(record.layer()); });
    visitProperties<Record>([&](auto field) {
        using Value = FieldValue<decltype(field)>;
        const Value &value = record.*field.member;
        if (isWritten(value))
            writer.writeBlock(field.index, [&] { PropertyCodec<Value>::write(writer, value); });
        return true;
    });
}

/// Reads every property of \a record from \a reader; returns the index of a missing required
/// property, or -1 when none was missing. \a stoppedAt follows the reader: the start of the
/// block whose value is being read, then where the reading ended (see deserialize()).
template <typename Record>
int readProperties(PropertyReader &reader, Record &record, qint64 &stoppedAt)
{
    const auto readBlock = [&](qint32 index, bool required, auto readValue) {
        const bool read = reader.readProperty(index, required, [&] {
            stoppedAt = reader.offset() - 8; // the value follows its index and size
            readValue();
        });
        if (!read)
            stoppedAt = reader.offset();
        return read;
    };
    const bool storeTypeRead = readBlock(0, true, [&] {
        qint32 storeType = 0;
        reader.readInt32(storeType);
        record.setLayer(storeType);
    });
    if (!storeTypeRead)
        return 0;
    int missing = -1;
    visitProperties<Record>([&](auto field) {
        using Value = FieldValue<decltype(field)>;
        const bool read = readBlock(field.index, !IsOptionalProperty<Value>::value, [&] {
            PropertyCodec<Value>::read(reader, record.*field.member, {Record::ClassName, field.name});
        });
        if (!read)
            missing = field.index;
        return read;
    });
    if (missing < 0)
        stoppedAt = reader.offset() + reader.bytesLeft();
    return missing;
}

/// Reads \a record from \a reader and throws the record's own message when a required
/// property is missing; \a stoppedAt as for readProperties().
template <typename Record>
void readRecord(PropertyReader &reader, Record &record, qint64 &stoppedAt)
{
    const int missing = readProperties(reader, record, stoppedAt);
    if (missing >= 0)
        throw Record::incompleteStructureMessage().arg(Record::propertyNames().value(missing), 0, QChar(u' '));
}

template <typename Record>
void readRecord(PropertyReader &reader, Record &record)
{
    qint64 stoppedAt = 0;
    readRecord(reader, record, stoppedAt);
}

} // namespace propertyrecord

// ---------------------------------------------------------------------------------------------
// PropertyRecord

template <typename Record>
Record PropertyRecord<Record>::deserialize(const QByteArray &bytes)
{
    Record record;
    deserialize(bytes, record);
    return record;
}

template <typename Record>
void PropertyRecord<Record>::deserialize(const QByteArray &bytes, Record &record)
{
    qint64 stoppedAt = 0;
    deserialize(bytes, record, stoppedAt);
}

template <typename Record>
void PropertyRecord<Record>::deserialize(const QByteArray &bytes, Record &record, qint64 &stoppedAt)
{
    stoppedAt = 0;
    PropertyReader reader(bytes);
    propertyrecord::readRecord(reader, record, stoppedAt);
}

template <typename Record>
base::DbBaseType *PropertyRecord<Record>::getCopy(const base::DbBaseType *source)
{
    const auto *record = dynamic_cast<const Record *>(source);
    return record ? new Record(*record) : nullptr;
}

template <typename Record>
void PropertyRecord<Record>::reset()
{
    static_cast<Record &>(*this) = Record();
}

template <typename Record>
void PropertyRecord<Record>::serialize(QByteArray &out) const
{
    PropertyWriter writer(out);
    propertyrecord::writeProperties(writer, static_cast<const Record &>(*this));
}

template <typename Record>
QStringList PropertyRecord<Record>::propertyNames()
{
    QStringList names{QStringLiteral("StoreType")};
    propertyrecord::visitProperties<Record>([&](auto field) {
        names << QLatin1String(field.name);
        return true;
    });
    return names;
}

template <typename Record>
bool PropertyRecord<Record>::isRequiredProperty(int index)
{
    bool required = index == 0;
    propertyrecord::visitProperties<Record>([&](auto field) {
        using Value = propertyrecord::FieldValue<decltype(field)>;
        if (field.index == index)
            required = !IsOptionalProperty<Value>::value;
        return true;
    });
    return required;
}

template <typename Record>
QString PropertyRecord<Record>::incompleteStructureMessage()
{
    return QStringLiteral("Received incomplete structure ") + QLatin1String(Record::ClassName)
        + QStringLiteral(": Missing property '%1'");
}

template <typename Record>
bool PropertyRecord<Record>::equals(const Record &other) const
{
    const Record &self = static_cast<const Record &>(*this);
    if (self.layer() != other.layer())
        return false;
    return propertyrecord::visitProperties<Record>(
        [&](auto field) { return self.*field.member == other.*field.member; });
}

} // namespace sigdb

#endif
