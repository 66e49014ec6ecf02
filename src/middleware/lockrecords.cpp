#include "middleware/lockrecords.h"

#include "middleware/propertyrecord_p.h"

namespace sigdb {

template class PropertyRecord<LockedElementData>;
template class PropertyRecord<LockedElementDataVector>;

} // namespace sigdb
