#ifndef SIGDB_CORE_SIGDBTABLE_H
#define SIGDB_CORE_SIGDBTABLE_H

#include "sigdbcore_export.h"

#include "core/sigdbcolumn.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace sigdb {

/// The table of one element type: its names, its columns in table order and the type rules
/// that the element logic asks for (superior type, ordered links, collocation, local data).
/// A default-constructed table (type 0) stands for an unknown type and has no columns.
class SIGDBCORE_EXPORT SigdbTable
{
public:
    SigdbTable();
    /// A table of element type \a type; prefix and abbreviation name its database table.
    SigdbTable(int type, std::string typeName, std::string tablePrefix, std::string tableAbbrevation);

    int type() const { return m_type; }
    bool isValid() const { return m_type != 0; }
    const std::string &typeName() const { return m_typeName; }
    /// The database table: prefix followed by the type name in upper case.
    const std::string &tableName() const { return m_tableName; }
    const std::string &tablePrefix() const { return m_tablePrefix; }
    const std::string &tableAbbrevation() const { return m_tableAbbrevation; }
    const std::string &columnPrefix() const { return m_columnPrefix; }
    void setTableName(const std::string &name) { m_tableName = name; }
    void setColumnPrefix(const std::string &prefix) { m_columnPrefix = prefix; }

    /// Columns in table order.
    void addColumn(const SigdbColumn &column);
    int allColumnCount() const { return static_cast<int>(m_columns.size()); }
    /// The column at table position \a index; an empty column for a bad index.
    const SigdbColumn &allColumnAt(int index) const;
    bool hasColumnWithId(int columnId) const;
    /// The table position of the column \a columnId, -1 when the table lacks it.
    int columnIndex(int columnId) const;

    /// The column that stands in for \a columnId in this table; -1 when there is none.
    int columnReplace(int columnId) const;
    void setColumnReplace(int columnId, int replacementId);

    /// Element type of the superior element; 0 when elements of this type have none.
    int superiorType() const { return m_superiorType; }
    void setSuperiorType(int type) { m_superiorType = type; }

    /// Whether links from this type to \a otherType keep an order number.
    bool hasOrderedLinkType(int otherType) const;
    void addOrderedLinkType(int otherType);

    /// The type of the included table whose rows are carried as included details; 0 for none.
    int tableIncludeType() const { return m_tableIncludeType; }
    void setTableIncludeType(int type) { m_tableIncludeType = type; }

    bool canBeCollocated() const { return m_canBeCollocated; }
    void setCanBeCollocated(bool on) { m_canBeCollocated = on; }
    bool isLocalData() const { return m_localData; }
    void setLocalData(bool on) { m_localData = on; }
    bool isNetworkMemberType() const { return m_networkMember; }
    void setNetworkMemberType(bool on) { m_networkMember = on; }

private:
    int m_type = 0;
    std::string m_typeName;
    std::string m_tableName;
    std::string m_tablePrefix;
    std::string m_tableAbbrevation;
    std::string m_columnPrefix;
    std::vector<SigdbColumn> m_columns;
    std::map<int, int> m_columnIndex;
    std::map<int, int> m_columnReplace;
    std::set<int> m_orderedLinkTypes;
    int m_superiorType = 0;
    int m_tableIncludeType = 0;
    bool m_canBeCollocated = false;
    bool m_localData = false;
    bool m_networkMember = false;
};

} // namespace sigdb

#endif
