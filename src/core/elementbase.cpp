#include "core/elementbase.h"

namespace sigdb {

ElementBase::ElementBase() = default;
ElementBase::ElementBase(const ElementBase &other) = default;
ElementBase::ElementBase(const SigdbElement &element)
    : SigdbElement(element)
{
}
ElementBase::~ElementBase() = default;

ElementBase &ElementBase::operator=(const ElementBase &other)
{
    if (this == &other)
        return *this;
    SigdbElement::operator=(other);
    m_isRemoved = other.m_isRemoved;
    m_creationDate = other.m_creationDate;
    m_modificationDate = other.m_modificationDate;
    return *this;
}

base::DbBaseType *ElementBase::getCopy(const base::DbBaseType *source)
{
    auto *copy = new ElementBase;
    if (const auto *element = dynamic_cast<const ElementBase *>(source))
        *copy = *element;
    else if (const auto *plain = dynamic_cast<const SigdbElement *>(source))
        copy->SigdbElement::operator=(*plain);
    return copy;
}

void ElementBase::reset()
{
    ElementBase::operator=(ElementBase());
}

int ElementBase::setIDs(int startId)
{
    const int n = SigdbElement::setIDs(startId);
    m_isRemoved.setID(static_cast<unsigned int>(n + 1));
    m_creationDate.setID(static_cast<unsigned int>(n + 2));
    m_modificationDate.setID(static_cast<unsigned int>(n + 3));
    return n + ColumnCount;
}

void ElementBase::setIsRemoved(bool removed, bool markChange)
{
    m_isRemoved = removed;
    if (markChange && removed)
        setChangeType(ChangeType_Removed);
}

ElementBaseName::ElementBaseName() = default;
ElementBaseName::ElementBaseName(const ElementBaseName &other) = default;
ElementBaseName::ElementBaseName(const SigdbElement &element)
    : ElementBase(element)
{
}
ElementBaseName::~ElementBaseName() = default;

ElementBaseName &ElementBaseName::operator=(const ElementBaseName &other)
{
    if (this == &other)
        return *this;
    ElementBase::operator=(other);
    m_name = other.m_name;
    return *this;
}

base::DbBaseType *ElementBaseName::getCopy(const base::DbBaseType *source)
{
    auto *copy = new ElementBaseName;
    if (const auto *element = dynamic_cast<const ElementBaseName *>(source))
        *copy = *element;
    else if (const auto *plain = dynamic_cast<const SigdbElement *>(source))
        copy->SigdbElement::operator=(*plain);
    return copy;
}

void ElementBaseName::reset()
{
    ElementBaseName::operator=(ElementBaseName());
}

int ElementBaseName::setIDs(int startId)
{
    const int n = ElementBase::setIDs(startId);
    m_name.setID(static_cast<unsigned int>(n + 1));
    return n + ColumnCount;
}

bool operator==(const ElementBaseName &a, const ElementBaseName &b)
{
    return static_cast<const SigdbElement &>(a) == static_cast<const SigdbElement &>(b)
        && a.getIsRemoved() == b.getIsRemoved() && a.creationDate() == b.creationDate()
        && a.modificationDate() == b.modificationDate()
        && a.modificationUser() == b.modificationUser() && a.name() == b.name();
}

} // namespace sigdb
