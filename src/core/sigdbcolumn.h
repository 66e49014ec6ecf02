#ifndef SIGDB_CORE_SIGDBCOLUMN_H
#define SIGDB_CORE_SIGDBCOLUMN_H

#include "sigdbcore_export.h"

#include <string>

namespace sigdb {

/// One column of an element table in the schema.
class SIGDBCORE_EXPORT SigdbColumn
{
public:
    SigdbColumn();
    /// A column with its id, its database name, whether clients may write it, and the
    /// interface that created it (0 for ordinary columns).
    SigdbColumn(int id, std::string dbName, bool write = true, int createdByInterface = 0);

    /// The column id, by which records address the column.
    int id() const { return m_id; }
    /// The column's name in the database.
    const std::string &dbName() const { return m_dbName; }
    /// Whether clients may write the column.
    bool isWrite() const { return m_write; }
    /// The interface that created the column; 0 for ordinary columns.
    int createdByInterface() const { return m_createdByInterface; }

private:
    int m_id = 0;
    std::string m_dbName;
    bool m_write = true;
    int m_createdByInterface = 0;
};

} // namespace sigdb

#endif
