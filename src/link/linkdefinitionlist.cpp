#include "link/linkdefinitionlist.h"

namespace sigdb {

LinkDefinitionList::LinkDefinitionList() = default;
LinkDefinitionList::LinkDefinitionList(const LinkDefinitionList &other) = default;
LinkDefinitionList::~LinkDefinitionList() = default;
LinkDefinitionList &LinkDefinitionList::operator=(const LinkDefinitionList &other) = default;

void LinkDefinitionList::prependEntry(const LinkDefinition &entry)
{
    m_entries.insert(m_entries.begin(), entry);
}

} // namespace sigdb
