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

    int id() const { return m_id; }
    const std::string &dbName() const { return m_dbName; }
    bool isWrite() const { return m_write; }
    int createdByInterface() const { return m_createdByInterface; }

private:
    int m_id = 0;
    std::string m_dbName;
    bool m_write = true;
    int m_createdByInterface = 0;
};

} // namespace sigdb

#endif
