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

    /// The element type the table belongs to.
    int type() const { return m_type; }
    /// Whether the table stands for a known type.
    bool isValid() const { return m_type != 0; }
    /// The name of the element type.
    const std::string &typeName() const { return m_typeName; }
    /// The database table: prefix followed by the type name in upper case.
    const std::string &tableName() const { return m_tableName; }
    /// The prefix of the database table's name.
    const std::string &tablePrefix() const { return m_tablePrefix; }
    /// The short name of the database table.
    const std::string &tableAbbrevation() const { return m_tableAbbrevation; }
    /// The prefix of the table's column names.
    const std::string &columnPrefix() const { return m_columnPrefix; }
    /// Overrides the database table's name.
    void setTableName(const std::string &name) { m_tableName = name; }
    /// Sets the prefix of the column names.
    void setColumnPrefix(const std::string &prefix) { m_columnPrefix = prefix; }

    /// Columns in table order.
    void addColumn(const SigdbColumn &column);
    /// The number of columns.
    int allColumnCount() const { return static_cast<int>(m_columns.size()); }
    /// The column at table position \a index; an empty column for a bad index.
    const SigdbColumn &allColumnAt(int index) const;
    /// Whether the table has the column \a columnId.
    bool hasColumnWithId(int columnId) const;
    /// The table position of the column \a columnId, -1 when the table lacks it.
    int columnIndex(int columnId) const;

    /// The column that stands in for \a columnId in this table; -1 when there is none.
    int columnReplace(int columnId) const;
    /// Lets \a replacementId stand in for \a columnId in this table.
    void setColumnReplace(int columnId, int replacementId);

    /// Element type of the superior element; 0 when elements of this type have none.
    int superiorType() const { return m_superiorType; }
    /// Sets the element type of the superior element.
    void setSuperiorType(int type) { m_superiorType = type; }

    /// Whether links from this type to \a otherType keep an order number.
    bool hasOrderedLinkType(int otherType) const;
    /// Declares that links from this type to \a otherType keep an order number.
    void addOrderedLinkType(int otherType);

    /// The type of the included table whose rows are carried as included details; 0 for none.
    int tableIncludeType() const { return m_tableIncludeType; }
    /// Sets the type of the included table.
    void setTableIncludeType(int type) { m_tableIncludeType = type; }

    /// Whether elements of this type may join a collocation group.
    bool canBeCollocated() const { return m_canBeCollocated; }
    /// Allows or forbids collocation for this type.
    void setCanBeCollocated(bool on) { m_canBeCollocated = on; }
    /// Whether elements of this type are local data.
    bool isLocalData() const { return m_localData; }
    /// Marks this type as local data or not.
    void setLocalData(bool on) { m_localData = on; }
    /// Whether elements of this type may be members of a network.
    bool isNetworkMemberType() const { return m_networkMember; }
    /// Marks this type as a possible network member or not.
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
