#ifndef SIGDB_LINK_LINKDEFINITIONLIST_H
#define SIGDB_LINK_LINKDEFINITIONLIST_H

#include "sigdbref_export.h"

#include "core/linkdefinition.h"
#include "link/linkentrylist.h"

namespace sigdb {

/// An in-memory list of the core library's stored links, for example the links of an element
/// gathered for display. Every entry is numbered from the list's start id itself.
class SIGDBREF_EXPORT LinkDefinitionList : public LinkEntryList<LinkDefinitionList, LinkDefinition>
{
public:
    LinkDefinitionList();
    /// A copy of \a other.
    LinkDefinitionList(const LinkDefinitionList &other);
    /// Takes over the contents of \a other without copying them.
    LinkDefinitionList(LinkDefinitionList &&other) = default;
    ~LinkDefinitionList() override;
    using base::DbBaseType::operator=;
    /// Replaces the contents with a copy of \a other.
    LinkDefinitionList &operator=(const LinkDefinitionList &other);
};

} // namespace sigdb

#endif
