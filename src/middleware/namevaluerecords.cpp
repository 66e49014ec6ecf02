#include "middleware/namevaluerecords.h"

#include "middleware/propertyrecord_p.h"

namespace sigdb {

template class PropertyRecord<NameValuePair>;
template class PropertyRecord<NameValueDataForElement>;
template class PropertyRecord<NameValuePairVector>;
template class PropertyRecord<NameValueDataForElementVector>;

} // namespace sigdb
