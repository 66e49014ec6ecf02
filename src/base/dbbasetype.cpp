#include "base/dbbasetype.h"

namespace base {

DbBaseType::~DbBaseType() = default;

DbBaseType &DbBaseType::operator=(const DbBaseType &other)
{
    if (this != &other)
        m_storeType = other.m_storeType;
    return *this;
}

StoreType DbBaseType::getStoreType()
{
    return m_storeType;
}

int DbBaseType::getLayerType() const
{
    return m_storeType;
}

DbDataType<int> DbBaseType::getStoreType_T()
{
    return DbDataType<int>(static_cast<int>(m_storeType));
}

void DbBaseType::setStoreType(StoreType storeType)
{
    m_storeType = storeType;
}

void DbBaseType::setLayer(int layer)
{
    m_storeType = static_cast<StoreType>(layer);
}

int DbBaseType::layer() const
{
    return m_storeType;
}

} // namespace base
