#include "element/refiodata.h"

namespace sigdb {

RefIoData::RefIoData() = default;

std::string RefIoData::value(const std::string &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::string() : found->second;
}

void RefIoData::setValue(const std::string &name, const std::string &value)
{
    m_values[name] = value;
}

void RefIoData::clear()
{
    m_values.clear();
    m_payload.clear();
}

bool operator==(const RefIoData &a, const RefIoData &b)
{
    return a.values() == b.values() && a.payload() == b.payload();
}

} // namespace sigdb
