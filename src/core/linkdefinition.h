#ifndef SIGDB_CORE_LINKDEFINITION_H
#define SIGDB_CORE_LINKDEFINITION_H

#include "sigdbcore_export.h"

#include "core/elementbase.h"

namespace sigdb {

/// A stored link between two elements: the link's own identity and bookkeeping (TID, removed
/// flag, dates, name) and the elements at its two ends, in the link's stored direction.
class SIGDBCORE_EXPORT LinkDefinition : public ElementBaseName
{
public:
    LinkDefinition();
    /// A copy of \a other.
    LinkDefinition(const LinkDefinition &other);
    ~LinkDefinition() override;

    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using SigdbElement::operator=;
    /// Assigns only the part that the base record holds; the fields this class adds stay as they are.
    using ElementBaseName::operator=;
    /// Replaces the contents with a copy of \a other.
    LinkDefinition &operator=(const LinkDefinition &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    /// Numbers the link's own columns, then element A and element B.
    int setIDs(int startId) override;

    /// Element A, the end the link starts from in its stored direction.
    SigdbElement &elementA() { return m_elementA; }
    /// Element A, read-only.
    const SigdbElement &elementA() const { return m_elementA; }
    /// Sets element A.
    void setElementA(const SigdbElement &element) { m_elementA = element; }
    /// Element B, the end the link leads to in its stored direction.
    SigdbElement &elementB() { return m_elementB; }
    /// Element B, read-only.
    const SigdbElement &elementB() const { return m_elementB; }
    /// Sets element B.
    void setElementB(const SigdbElement &element) { m_elementB = element; }

private:
    SigdbElement m_elementA;
    SigdbElement m_elementB;
};

/// Equal link identity and bookkeeping and equal ends.
SIGDBCORE_EXPORT bool operator==(LinkDefinition &a, LinkDefinition &b);

} // namespace sigdb

#endif
