#include "middleware/inforecords.h"

#include "middleware/propertyrecord_p.h"

namespace sigdb {

template class PropertyRecord<Message>;
template class PropertyRecord<MInfoAnswer>;
template class PropertyRecord<MInfoClientLogin>;
template class PropertyRecord<MInfoMessage>;
template class PropertyRecord<MInfoWarningLevel>;
template class PropertyRecord<CallbackMessage>;
template class PropertyRecord<MessageVector>;
template class PropertyRecord<MInfoAnswerVector>;
template class PropertyRecord<MInfoClientLoginVector>;
template class PropertyRecord<MInfoMessageVector>;
template class PropertyRecord<MInfoWarningLevelVector>;
template class PropertyRecord<CallbackMessageVector>;

} // namespace sigdb
