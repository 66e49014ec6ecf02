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
    ElementBase(const ElementBase &other);
    ElementBase(ElementBase &&other) = default;
    explicit ElementBase(const SigdbElement &element);
    ~ElementBase() override;

    using SigdbElement::operator=;
    ElementBase &operator=(const ElementBase &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    int setIDs(int startId) override;

    bool isRemoved() const { return !m_isRemoved.isNull() && m_isRemoved.getData(); }
    base::DbDataType<bool> &getIsRemoved() { return m_isRemoved; }
    const base::DbDataType<bool> &getIsRemoved() const { return m_isRemoved; }
    /// Marks the element removed or not; with \a markChange the change kind records it too.
    void setIsRemoved(bool removed, bool markChange);

    base::DbDataType<std::string> &creationDate() { return m_creationDate; }
    const base::DbDataType<std::string> &creationDate() const { return m_creationDate; }
    void setCreationDate(const base::DbDataType<std::string> &date) { m_creationDate = date; }
    base::DbDataType<std::string> &modificationDate() { return m_modificationDate; }
    const base::DbDataType<std::string> &modificationDate() const { return m_modificationDate; }
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
    static constexpr int ColumnCount = 1;

    ElementBaseName();
    ElementBaseName(const ElementBaseName &other);
    ElementBaseName(ElementBaseName &&other) = default;
    explicit ElementBaseName(const SigdbElement &element);
    ~ElementBaseName() override;

    using SigdbElement::operator=;
    ElementBaseName &operator=(const ElementBaseName &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    int setIDs(int startId) override;

    base::DbDataType<std::string> &name() { return m_name; }
    const base::DbDataType<std::string> &name() const { return m_name; }
    void setName(const base::DbDataType<std::string> &name) { m_name = name; }

private:
    base::DbDataType<std::string> m_name;
};

/// Element identity plus equal bookkeeping and name.
SIGDBCORE_EXPORT bool operator==(const ElementBaseName &a, const ElementBaseName &b);

} // namespace sigdb

#endif
