#ifndef SIGDB_MIDDLEWARE_PROPERTYRECORD_H
#define SIGDB_MIDDLEWARE_PROPERTYRECORD_H

#include "sigdbref_export.h"

#include "base/dbbasetype.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string>
#include <type_traits>
#include <vector>

namespace sigdb {

// The middleware records all have the same shape: property 0 is the store type of the record
// base, and properties 1, 2, ... are values declared once, in index order, with the
// SIGDB_PROPERTY macros below. Each declaration gives the property's index, its name (which is
// also the name in the missing-property message) and its type, and yields the member, the
// accessors and one row of the record's property table. PropertyRecord walks that table to
// write, read, compare and describe every record; a record class holds nothing but its table.
//
// The type of a property fixes its kind:
//
//     plain value (int, enumeration, bool, text, nested record)   always written, required
//     nullable value (SIGDB_NULLABLE_PROPERTY)                    written when not NULL, optional
//     vector of texts or of records                               always written, optional
//
// Decoding follows the tagged property stream (io/propertystream.h) and throws a QString:
//
// - "Received incomplete structure <Class>: Missing property '<Name>'" when a required property
//   is absent while a block of a later property follows. Properties read before it keep their
//   new values; nothing is rolled back. A nested record or vector element that misses a
//   property raises its own class's message, which passes through the enclosing record.
// - "Received corrupt structure <Class>: Invalid count <n> in property '<Name>'" when a vector
//   announces a negative count or more elements than the remaining bytes could hold (every
//   element takes at least 4 bytes). No memory is reserved for such a count.
//
// A stream cut short in the middle of a value is not an error: a number cut short reads as 0,
// and a text or nested record whose length runs past the end keeps its value; the stream is
// then at its end and every later property keeps its value too. Nesting is as deep as the
// record types nest (at most three levels), whatever the bytes say.

/// One row of a record's property table: index, name and the member that holds the value.
template <typename Record, typename Value>
struct PropertyField
{
    /// The type of the property's value.
    using ValueType = Value;
    /// The property's index in the stream.
    int index;
    /// The property's name, as the messages show it.
    const char *name;
    /// The member of the record that holds the value.
    Value Record::*member;
};

/// Whether a property of type T is optional on reading (nullable values and vectors).
template <typename T>
struct IsOptionalProperty : std::false_type
{
};
template <typename T>
struct IsOptionalProperty<base::DbDataType<T>> : std::true_type
{
};
template <typename T>
struct IsOptionalProperty<std::vector<T>> : std::true_type
{
};

/// The root of every middleware record: the tagged encoding, the common operations and the
/// description of the record's properties, all driven by the record's property table.
template <typename Record>
class SIGDBREF_EXPORT PropertyRecord : public base::DbBaseType
{
public:
    /// Decodes \a bytes into a new default record; throws the QString of a missing property.
    static Record deserialize(const QByteArray &bytes);
    /// Decodes \a bytes into \a record; properties that the bytes do not carry keep their
    /// values. Throws the QString of a missing property or of a corrupt count.
    static void deserialize(const QByteArray &bytes, Record &record);
    /// As above, and tells where in \a bytes the decoding stopped: at the end of the bytes, or,
    /// when it throws, at the start of the top-level block being read (for a missing property,
    /// the block of the later property that stands in its place).
    static void deserialize(const QByteArray &bytes, Record &record, qint64 &stoppedAt);

    /// A new copy of \a source, which must be a record of this class (else null); the caller
    /// owns it.
    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    /// Store type 0 and every property back to its default (vectors emptied).
    void reset() override;
    /// Writes the property blocks into \a out from its first byte; pass an empty array.
    void serialize(QByteArray &out) const override;

    /// Every property name in index order, StoreType first.
    static QStringList propertyNames();
    /// Whether property \a index is required on reading (false for unknown indexes).
    static bool isRequiredProperty(int index);
    /// The text thrown for a missing property, "%1" standing for the property's name.
    static QString incompleteStructureMessage();

    /// Equal store types and equal properties (NULL values compare as column values do).
    bool equals(const Record &other) const;

    /// Records of one class are equal when their store types and all properties are.
    friend bool operator==(const Record &a, const Record &b) { return a.equals(b); }
    /// The opposite of operator==.
    friend bool operator!=(const Record &a, const Record &b) { return !a.equals(b); }

protected:
    PropertyRecord() = default;
};

} // namespace sigdb

/// Opens a record class: the class name used in its messages and the constructors of the
/// common shape besides the implicit copy and move (default; decoding from bytes, which throws
/// like deserialize).
#define SIGDB_PROPERTY_RECORD(Class)                                                           \
public:                                                                                        \
    using PropertyOwner = Class;                                                               \
    static constexpr char ClassName[] = #Class;                                                \
    Class() = default;                                                                         \
    explicit Class(const QByteArray &bytes) { deserialize(bytes, *this); }

/// Declares the table row of property \a Index without accessors (used by the macros below).
#define SIGDB_PROPERTY_ROW(Index, Name, MemberType)                                            \
public:                                                                                        \
    static constexpr auto propertyAt(std::integral_constant<int, Index>)                       \
    {                                                                                          \
        return ::sigdb::PropertyField<PropertyOwner, MemberType>{Index, #Name,                 \
                                                                &PropertyOwner::m_##Name};     \
    }                                                                                          \
                                                                                               \
private:                                                                                       \
    MemberType m_##Name{};                                                                     \
                                                                                               \
public:

/// A plain or vector property: get<Name>() (const and modifiable) and set<Name>(value).
#define SIGDB_PROPERTY(Index, Name, ...)                                                       \
    SIGDB_PROPERTY_ROW(Index, Name, __VA_ARGS__)                                               \
    const __VA_ARGS__ &get##Name() const { return m_##Name; }                                  \
    __VA_ARGS__ &get##Name() { return m_##Name; }                                              \
    void set##Name(const __VA_ARGS__ &value) { m_##Name = value; }

/// A nullable property of value type T: get<Name>() returns the value, get<Name>_T() the
/// column value; set<Name>() takes either and a plain value clears the NULL flag;
/// set<Name>Null(bool) writes the flag only and is<Name>Null() reads it.
#define SIGDB_NULLABLE_PROPERTY(Index, Name, ...)                                              \
    SIGDB_PROPERTY_ROW(Index, Name, ::base::DbDataType<__VA_ARGS__>)                           \
    const __VA_ARGS__ &get##Name() const { return m_##Name.getData(); }                        \
    __VA_ARGS__ &get##Name() { return m_##Name.getData(); }                                    \
    const ::base::DbDataType<__VA_ARGS__> &get##Name##_T() const { return m_##Name; }          \
    ::base::DbDataType<__VA_ARGS__> &get##Name##_T() { return m_##Name; }                      \
    void set##Name(const __VA_ARGS__ &value) { m_##Name = value; }                             \
    void set##Name(const ::base::DbDataType<__VA_ARGS__> &value) { m_##Name = value; }         \
    void set##Name##Null(bool isNull) { m_##Name.setNull(isNull); }                            \
    bool is##Name##Null() const { return m_##Name.isNull(); }

/// The entry vector of a ...Vector record: a vector property of \a Element plus the entry
/// cursor of the record's lists (setIteratorToStart(), then getNextEntry() until null).
#define SIGDB_ENTRY_VECTOR_PROPERTY(Index, Name, Element)                                      \
    SIGDB_PROPERTY(Index, Name, std::vector<Element>)                                          \
    void setIteratorToStart() { m_entryCursor = 0; }                                           \
    Element *getNextEntry()                                                                    \
    {                                                                                          \
        return m_entryCursor < m_##Name.size() ? &m_##Name[m_entryCursor++] : nullptr;         \
    }                                                                                          \
                                                                                               \
private:                                                                                       \
    std::size_t m_entryCursor = 0;                                                             \
                                                                                               \
public:

#endif
