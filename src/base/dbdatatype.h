#ifndef SIGDB_BASE_DBDATATYPE_H
#define SIGDB_BASE_DBDATATYPE_H

#include "sigdbcore_export.h"

#include <string>
#include <type_traits>
#include <utility>

namespace base {

/// A nullable column value: a value of type T, a NULL flag and the id of the database column
/// (or of the position in a numbered record tree) that it stands for.
///
/// Equality looks at the values only: two NULLs are equal whatever stale value they hold, and
/// the column id never takes part. Assignment from another column value keeps an id that was
/// already assigned, so that a record tree numbered by setIDs() keeps its numbering when new
/// values are assigned into it.
template <typename T>
class SIGDBCORE_EXPORT DbDataType
{
public:
    /// NULL, zero value, column id 0.
    DbDataType() : m_value() {}
    /// The value \a v, not NULL, column id 0.
    DbDataType(const T &v) : m_null(false), m_value(v) {}
    /// The value \a v, moved in, not NULL, column id 0.
    DbDataType(T &&v) : m_null(false), m_value(std::move(v)) {}
    /// A text with an explicit NULL flag (text columns only).
    template <typename U = T, typename = std::enable_if_t<std::is_same<U, std::string>::value>>
    DbDataType(const std::string &v, bool isNull) : m_null(isNull), m_value(v) {}

    /// Copies NULL flag, value and column id.
    DbDataType(const DbDataType &other) = default;
    /// Takes over the contents of \a other without copying them.
    DbDataType(DbDataType &&other) noexcept(std::is_nothrow_move_constructible<T>::value) = default;
    virtual ~DbDataType() = default;

    /// Stores \a v and clears the NULL flag; the column id is left as it is.
    DbDataType &operator=(const T &v)
    {
        m_value = v;
        m_null = false;
        return *this;
    }

    /// Copies value and NULL flag; takes the id of \a other only while this value has none.
    DbDataType &operator=(const DbDataType &other)
    {
        if (this != &other) {
            m_value = other.m_value;
            m_null = other.m_null;
            if (m_id == 0)
                m_id = other.m_id;
        }
        return *this;
    }

    /// Takes over the contents of \a other without copying them.
    DbDataType &operator=(DbDataType &&other) noexcept(std::is_nothrow_move_assignable<T>::value)
    {
        if (this != &other) {
            m_value = std::move(other.m_value);
            m_null = other.m_null;
            if (m_id == 0)
                m_id = other.m_id;
        }
        return *this;
    }

    /// The value, also while NULL (then the last value stored, or the zero of T).
    T &getData() { return m_value; }
    /// The value, read-only, also while NULL.
    const T &getData() const { return m_value; }

    /// Whether the column is NULL.
    bool isNull() const { return m_null; }
    /// Writes the NULL flag only; setNull(true) keeps the value.
    void setNull(bool isNull) { m_null = isNull; }

    /// The id of the column this value stands for; 0 while unnumbered.
    int getID() const { return static_cast<int>(m_id); }
    /// Sets the column id, as setIDs() of a record does.
    void setID(unsigned int id) { m_id = id; }

    /// True when both are NULL, or both hold equal values (T's own equality).
    bool operator==(const DbDataType &other) const
    {
        if (m_null || other.m_null)
            return m_null == other.m_null;
        return m_value == other.m_value;
    }
    /// The opposite of operator==.
    bool operator!=(const DbDataType &other) const { return !(*this == other); }

private:
    bool m_null = true;
    T m_value;
    unsigned int m_id = 0;
};

} // namespace base

#endif
