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
    LinkDefinition(const LinkDefinition &other);
    ~LinkDefinition() override;

    using SigdbElement::operator=;
    using ElementBaseName::operator=;
    LinkDefinition &operator=(const LinkDefinition &other);

    base::DbBaseType *getCopy(const base::DbBaseType *source) override;
    void reset() override;
    /// Numbers the link's own columns, then element A and element B.
    int setIDs(int startId) override;

    SigdbElement &elementA() { return m_elementA; }
    const SigdbElement &elementA() const { return m_elementA; }
    void setElementA(const SigdbElement &element) { m_elementA = element; }
    SigdbElement &elementB() { return m_elementB; }
    const SigdbElement &elementB() const { return m_elementB; }
    void setElementB(const SigdbElement &element) { m_elementB = element; }

private:
    SigdbElement m_elementA;
    SigdbElement m_elementB;
};

/// Equal link identity and bookkeeping and equal ends.
SIGDBCORE_EXPORT bool operator==(LinkDefinition &a, LinkDefinition &b);

} // namespace sigdb

#endif
