#include "middleware/versionrecords.h"

#include "middleware/propertyrecord_p.h"

namespace sigdb {

template class PropertyRecord<ProductVersion>;
template class PropertyRecord<InterfaceVersion>;
template class PropertyRecord<VersionInfo>;
template class PropertyRecord<ProductVersionVector>;
template class PropertyRecord<InterfaceVersionVector>;
template class PropertyRecord<VersionInfoVector>;

} // namespace sigdb
