#include "link/linkdefinitionlist.h"

namespace sigdb {

LinkDefinitionList::LinkDefinitionList() = default;
LinkDefinitionList::LinkDefinitionList(const LinkDefinitionList &other) = default;
LinkDefinitionList::~LinkDefinitionList() = default;
LinkDefinitionList &LinkDefinitionList::operator=(const LinkDefinitionList &other) = default;

} // namespace sigdb
