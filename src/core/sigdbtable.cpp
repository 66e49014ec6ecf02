#include "core/sigdbtable.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace sigdb {

SigdbTable::SigdbTable() = default;

SigdbTable::SigdbTable(int type, std::string typeName, std::string tablePrefix,
                       std::string tableAbbrevation)
    : m_type(type)
    , m_typeName(std::move(typeName))
    , m_tablePrefix(std::move(tablePrefix))
    , m_tableAbbrevation(std::move(tableAbbrevation))
{
    std::string upper = m_typeName;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    m_tableName = m_tablePrefix + upper;
    m_columnPrefix = m_tableAbbrevation;
}

void SigdbTable::addColumn(const SigdbColumn &column)
{
    const auto found = m_columnIndex.find(column.id());
    if (found != m_columnIndex.end()) {
        m_columns[static_cast<size_t>(found->second)] = column;
        return;
    }
    m_columnIndex.emplace(column.id(), static_cast<int>(m_columns.size()));
    m_columns.push_back(column);
}

const SigdbColumn &SigdbTable::allColumnAt(int index) const
{
    static const SigdbColumn none;
    if (index < 0 || index >= allColumnCount())
        return none;
    return m_columns[static_cast<size_t>(index)];
}

bool SigdbTable::hasColumnWithId(int columnId) const
{
    return m_columnIndex.count(columnId) != 0;
}

int SigdbTable::columnIndex(int columnId) const
{
    const auto found = m_columnIndex.find(columnId);
    return found == m_columnIndex.end() ? -1 : found->second;
}

int SigdbTable::columnReplace(int columnId) const
{
    const auto found = m_columnReplace.find(columnId);
    return found == m_columnReplace.end() ? -1 : found->second;
}

void SigdbTable::setColumnReplace(int columnId, int replacementId)
{
    m_columnReplace[columnId] = replacementId;
}

bool SigdbTable::hasOrderedLinkType(int otherType) const
{
    return m_orderedLinkTypes.count(otherType) != 0;
}

void SigdbTable::addOrderedLinkType(int otherType)
{
    m_orderedLinkTypes.insert(otherType);
}

} // namespace sigdb
