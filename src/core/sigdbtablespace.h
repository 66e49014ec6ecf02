#ifndef SIGDB_CORE_SIGDBTABLESPACE_H
#define SIGDB_CORE_SIGDBTABLESPACE_H

#include "sigdbcore_export.h"

#include "core/sigdbtable.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace sigdb {

/// The process-wide schema: the table of every element type and the link types between them.
///
/// It starts with a built-in default schema that covers the element types this library works
/// with, so everything works out of the box. An application that knows its server's schema
/// replaces it with clear(), addTable() and addLinkType() before it builds records; changing
/// the schema while other threads read it is not safe.
class SIGDBCORE_EXPORT SigdbTableSpace
{
public:
    /// The schema of this process.
    static SigdbTableSpace &instance();

    SigdbTableSpace(const SigdbTableSpace &) = delete;
    SigdbTableSpace &operator=(const SigdbTableSpace &) = delete;

    /// The table of \a type; an empty table (type 0, no columns) for an unknown type.
    const SigdbTable &tableForType(int type) const;
    /// Whether \a type has a table.
    bool hasTableForType(int type) const;
    /// All element types with a table, ascending.
    std::vector<int> types() const;

    /// Whether a link from \a typeA to \a typeB exists in this direction.
    bool isValidLinkType(int typeA, int typeB) const;
    /// Whether an element of \a typeB has at most one link from an element of \a typeA.
    bool isUniqueLinkType(int typeA, int typeB) const;
    /// The database table that stores links from \a typeA to \a typeB.
    std::string linkTableName(int typeA, int typeB) const;

    /// Forgets every table and link type.
    void clear();
    /// Replaces the schema with the built-in default.
    void loadDefaultSchema();
    /// Adds a table, replacing one of the same type.
    void addTable(const SigdbTable &table);
    /// Declares a valid link type; \a tableName overrides the generated link table name.
    void addLinkType(int typeA, int typeB, bool unique = false, const std::string &tableName = {});

private:
    SigdbTableSpace();

    struct LinkType
    {
        bool unique = false;
        std::string tableName;
    };

    std::map<int, SigdbTable> m_tables;
    std::map<std::pair<int, int>, LinkType> m_linkTypes;
};

} // namespace sigdb

#endif
