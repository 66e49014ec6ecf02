#ifndef SIGDB_MIDDLEWARE_MAINTENANCERECORDS_H
#define SIGDB_MIDDLEWARE_MAINTENANCERECORDS_H

#include "sigdbref_export.h"

#include "middleware/middlewareenums.h"
#include "middleware/propertyrecord.h"

namespace sigdb {

// Database maintenance orders and their results. The answer echoes its whole request, so a
// client can match answers to orders without keeping them.

/// A maintenance order: which interface's data, which action, and optional data for the
/// action (NULL when the action needs none).
class SIGDBREF_EXPORT DbMaintenanceRequest : public PropertyRecord<DbMaintenanceRequest>
{
    SIGDB_PROPERTY_RECORD(DbMaintenanceRequest)
    SIGDB_PROPERTY(1, Interface, InterfaceIdentifier)
    SIGDB_PROPERTY(2, Action, DbMaintenanceAction)
    SIGDB_NULLABLE_PROPERTY(3, OptionalData, std::string)
};
extern template class PropertyRecord<DbMaintenanceRequest>;

/// The result of a maintenance order, with the request that it answers.
class SIGDBREF_EXPORT DbMaintenanceAnswer : public PropertyRecord<DbMaintenanceAnswer>
{
    SIGDB_PROPERTY_RECORD(DbMaintenanceAnswer)
    SIGDB_PROPERTY(1, Request, DbMaintenanceRequest)
    SIGDB_PROPERTY(2, Result, DbMaintenanceResult)
};
extern template class PropertyRecord<DbMaintenanceAnswer>;

/// A list of maintenance orders.
class SIGDBREF_EXPORT DbMaintenanceRequestVector : public PropertyRecord<DbMaintenanceRequestVector>
{
    SIGDB_PROPERTY_RECORD(DbMaintenanceRequestVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, DbMaintenanceRequest)
};
extern template class PropertyRecord<DbMaintenanceRequestVector>;

/// A list of maintenance results.
class SIGDBREF_EXPORT DbMaintenanceAnswerVector : public PropertyRecord<DbMaintenanceAnswerVector>
{
    SIGDB_PROPERTY_RECORD(DbMaintenanceAnswerVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, DbMaintenanceAnswer)
};
extern template class PropertyRecord<DbMaintenanceAnswerVector>;

} // namespace sigdb

#endif
