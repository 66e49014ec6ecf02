#ifndef SIGDB_QUERY_REFDATATYPEORDER_H
#define SIGDB_QUERY_REFDATATYPEORDER_H

#include "sigdbref_export.h"

#include "base/dbdatatype.h"
#include "io/columnstream.h"

#include <string>
#include <type_traits>

namespace sigdb {

/// The sort flags of a query column packed into the one character that travels on the wire.
/// One row per combination; the fourth is "e", not "d", and must stay so for the server.
struct OrderFlagCode
{
    /// Whether the row sorts by the column.
    bool orderBy;
    /// Whether the row sorts ascending.
    bool ascending;
    /// The letter that stands for the combination on the wire.
    char code;
};

constexpr OrderFlagCode kOrderFlagCodes[] = {
    {true, true, 'a'},   // sorted by this column, ascending
    {true, false, 'b'},  // sorted by this column, descending
    {false, true, 'c'},  // not sorted by this column; direction preset to ascending
    {false, false, 'e'}, // not sorted by this column (there is no "d")
};

/// The character for the flags \a orderBy and \a ascending.
constexpr char packOrderFlags(bool orderBy, bool ascending)
{
    for (const OrderFlagCode &row : kOrderFlagCodes) {
        if (row.orderBy == orderBy && row.ascending == ascending)
            return row.code;
    }
    return 'e';
}

/// The flags that \a code stands for; every character outside the table means false/false.
constexpr OrderFlagCode unpackOrderFlags(char code)
{
    for (const OrderFlagCode &row : kOrderFlagCodes) {
        if (row.code == code)
            return row;
    }
    return {false, false, code};
}

/// A query column: a filter value (a nullable column value) together with two sort flags,
/// "order the result by this column" and "ascending". The flags travel packed into one
/// character (see kOrderFlagCodes).
///
/// Inside a query request a query column is two frames under the same tag, its column id:
///
///     value frame (the writer of T; int columns in the wide form) | tag size 2 flag character
///
/// The flag frame is never NULL, so it is always there, also behind a NULL value.
template <typename T>
class SIGDBREF_EXPORT RefDatatypeOrder : public base::DbDataType<T>
{
    static_assert(std::is_same<T, char>::value || std::is_same<T, int>::value
                      || std::is_same<T, double>::value || std::is_same<T, bool>::value
                      || std::is_same<T, unsigned long long>::value
                      || std::is_same<T, std::string>::value,
                  "query columns hold char, int, double, bool, unsigned long long or text");

public:
    /// NULL, id 0, not sorted, not ascending.
    RefDatatypeOrder() = default;
    /// The filter value \a value (not NULL), id 0, not sorted.
    explicit RefDatatypeOrder(const T &value) : base::DbDataType<T>(value) {}
    /// Copies value, NULL flag, id and both flags.
    RefDatatypeOrder(const RefDatatypeOrder &other) = default;
    ~RefDatatypeOrder() override = default;

    /// Stores a filter value (not NULL); id and flags stay.
    using base::DbDataType<T>::operator=;
    /// The column value's assignment (value and NULL flag; the id only while this column has
    /// none), then both flags.
    RefDatatypeOrder &operator=(const RefDatatypeOrder &other)
    {
        base::DbDataType<T>::operator=(other);
        m_orderBy = other.m_orderBy;
        m_ascending = other.m_ascending;
        return *this;
    }

    /// Whether the result is sorted by this column.
    bool orderBy() const { return m_orderBy; }
    /// Whether the result is to be sorted by this column.
    void setOrderBy(bool orderBy) { m_orderBy = orderBy; }
    /// Whether the sort is ascending.
    bool ascending() const { return m_ascending; }
    /// The sort direction: true for ascending.
    void setAscending(bool ascending) { m_ascending = ascending; }

    /// Both flags as their wire character: never NULL, with this column's id.
    base::DbDataType<char> getBoolValuesAsChar() const
    {
        base::DbDataType<char> code(packOrderFlags(m_orderBy, m_ascending));
        code.setID(static_cast<unsigned int>(this->getID()));
        return code;
    }

    /// Sets both flags from the character's value; its NULL flag is not looked at, and every
    /// character but "a", "b" and "c" clears both flags.
    void setBoolValuesFromChar(const base::DbDataType<char> &code)
    {
        const OrderFlagCode flags = unpackOrderFlags(code.getData());
        m_orderBy = flags.orderBy;
        m_ascending = flags.ascending;
    }

    /// Equal column values (NULL equals NULL, ids ignored) and equal flags.
    bool operator==(const RefDatatypeOrder &other) const
    {
        return base::DbDataType<T>::operator==(other) && m_orderBy == other.m_orderBy
            && m_ascending == other.m_ascending;
    }
    /// The opposite of operator==.
    bool operator!=(const RefDatatypeOrder &other) const { return !(*this == other); }

    /// Writes the value frame and the flag frame.
    void writeTo(ColumnWriter &writer) const
    {
        if constexpr (std::is_same<T, int>::value)
            writer.writeWide(*this);
        else
            writer.write(*this);
        writer.write(getBoolValuesAsChar());
    }

    /// Reads the value frame and the flag frame (expected under this column's id). A NULL
    /// flag frame, which no writer sends, reads as not sorted.
    bool readFrom(ColumnReader &reader)
    {
        bool valueOk = false;
        if constexpr (std::is_same<T, int>::value)
            valueOk = reader.readWide(*this);
        else
            valueOk = reader.read(*this);
        base::DbDataType<char> code;
        code.setID(static_cast<unsigned int>(this->getID()));
        if (!valueOk || !reader.read(code))
            return false;
        setBoolValuesFromChar(code);
        return true;
    }

private:
    bool m_orderBy = false;
    bool m_ascending = false;
};

} // namespace sigdb

#endif
