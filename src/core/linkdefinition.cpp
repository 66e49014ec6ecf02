#include "core/linkdefinition.h"

namespace sigdb {

LinkDefinition::LinkDefinition() = default;
LinkDefinition::LinkDefinition(const LinkDefinition &other) = default;
LinkDefinition::~LinkDefinition() = default;

LinkDefinition &LinkDefinition::operator=(const LinkDefinition &other)
{
    if (this == &other)
        return *this;
    ElementBaseName::operator=(other);
    m_elementA = other.m_elementA;
    m_elementB = other.m_elementB;
    return *this;
}

base::DbBaseType *LinkDefinition::getCopy(const base::DbBaseType *source)
{
    auto *copy = new LinkDefinition;
    if (const auto *link = dynamic_cast<const LinkDefinition *>(source))
        *copy = *link;
    return copy;
}

void LinkDefinition::reset()
{
    *this = LinkDefinition();
}

int LinkDefinition::setIDs(int startId)
{
    const int n = ElementBaseName::setIDs(startId);
    return m_elementB.setIDs(m_elementA.setIDs(n));
}

bool operator==(LinkDefinition &a, LinkDefinition &b)
{
    return static_cast<const ElementBaseName &>(a) == static_cast<const ElementBaseName &>(b)
        && a.elementA() == b.elementA() && a.elementB() == b.elementB();
}

} // namespace sigdb
