#include "core/sigdbcolumn.h"

#include <utility>

namespace sigdb {

SigdbColumn::SigdbColumn() = default;

SigdbColumn::SigdbColumn(int id, std::string dbName, bool write, int createdByInterface)
    : m_id(id)
    , m_dbName(std::move(dbName))
    , m_write(write)
    , m_createdByInterface(createdByInterface)
{
}

} // namespace sigdb
