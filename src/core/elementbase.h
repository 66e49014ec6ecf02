#ifndef SIGDB_CORE_ELEMENTBASE_H
#define SIGDB_CORE_ELEMENTBASE_H

#include "sigdbcore_export.h"

#include "core/sigdbelement.h"

namespace sigdb {

/// An element with the bookkeeping that stored elements carry: the removed flag and the
/// creation and modification dates.
class SIGDBCORE_EXPORT ElementBase : public SigdbElement
{
public:
    /// The number of column values that setIDs() numbers beyond the element's.
    static constexpr int ColumnCount = 3;

    ElementBase();
    /// A copy of \a other.
    ElementBase(const ElementBase &other);
    /// Takes over the contents of \a other without copying them.
    ElementBase(ElementBase &&other) = default;
    /// The identity of \a element, with empty bookkeeping.
    explicit ElementBase(const SigdbElement &element);
    ~ElementBase() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Replaces the contents with a copy of \a other.
    ElementBase &operator=(const ElementBase &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    int setIDs(int startId) override;

    /// Whether the element is marked removed (a NULL flag is not removed).
    bool isRemoved() const { return !m_isRemoved.isNull() && m_isRemoved.getData(); }
    /// The removed flag as a column value.
    base::DbDataType<bool> &getIsRemoved() { return m_isRemoved; }
    /// The removed flag as a column value, read-only.
    const base::DbDataType<bool> &getIsRemoved() const { return m_isRemoved; }
    /// Marks the element removed or not; with \a markChange the change kind records it too.
    void setIsRemoved(bool removed, bool markChange);

    /// When the element was created, as the server writes it.
    base::DbDataType<std::string> &creationDate() { return m_creationDate; }
    /// When the element was created, read-only.
    const base::DbDataType<std::string> &creationDate() const { return m_creationDate; }
    /// Sets when the element was created.
    void setCreationDate(const base::DbDataType<std::string> &date) { m_creationDate = date; }
    /// When the element was last changed, as the server writes it.
    base::DbDataType<std::string> &modificationDate() { return m_modificationDate; }
    /// When the element was last changed, read-only.
    const base::DbDataType<std::string> &modificationDate() const { return m_modificationDate; }
    /// Sets when the element was last changed.
    void setModificationDate(const base::DbDataType<std::string> &date) { m_modificationDate = date; }

    /// The change kind that setIsRemoved(true, true) records.
    static constexpr int ChangeType_Removed = 3;

private:
    base::DbDataType<bool> m_isRemoved;
    base::DbDataType<std::string> m_creationDate;
    base::DbDataType<std::string> m_modificationDate;
};

/// A stored element with a name.
class SIGDBCORE_EXPORT ElementBaseName : public ElementBase
{
public:
    /// The number of column values that setIDs() numbers beyond those of ElementBase.
    static constexpr int ColumnCount = 1;

    ElementBaseName();
    /// A copy of \a other.
    ElementBaseName(const ElementBaseName &other);
    /// Takes over the contents of \a other without copying them.
    ElementBaseName(ElementBaseName &&other) = default;
    /// The identity of \a element, with empty bookkeeping and no name.
    explicit ElementBaseName(const SigdbElement &element);
    ~ElementBaseName() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Replaces the contents with a copy of \a other.
    ElementBaseName &operator=(const ElementBaseName &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    int setIDs(int startId) override;

    /// The element's name.
    base::DbDataType<std::string> &name() { return m_name; }
    /// The element's name, read-only.
    const base::DbDataType<std::string> &name() const { return m_name; }
    /// Sets the element's name.
    void setName(const base::DbDataType<std::string> &name) { m_name = name; }

private:
    base::DbDataType<std::string> m_name;
};

/// Element identity plus equal bookkeeping and name.
SIGDBCORE_EXPORT bool operator==(const ElementBaseName &a, const ElementBaseName &b);

} // namespace sigdb

#endif
