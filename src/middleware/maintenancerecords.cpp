#include "middleware/maintenancerecords.h"

#include "middleware/propertyrecord_p.h"

namespace sigdb {

template class PropertyRecord<DbMaintenanceRequest>;
template class PropertyRecord<DbMaintenanceAnswer>;
template class PropertyRecord<DbMaintenanceRequestVector>;
template class PropertyRecord<DbMaintenanceAnswerVector>;

} // namespace sigdb
