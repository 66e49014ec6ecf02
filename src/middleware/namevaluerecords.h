#ifndef SIGDB_MIDDLEWARE_NAMEVALUERECORDS_H
#define SIGDB_MIDDLEWARE_NAMEVALUERECORDS_H

#include "sigdbref_export.h"

#include "middleware/propertyrecord.h"

namespace sigdb {

/// One named text value.
class SIGDBREF_EXPORT NameValuePair : public PropertyRecord<NameValuePair>
{
    SIGDB_PROPERTY_RECORD(NameValuePair)
    SIGDB_PROPERTY(1, Name, std::string)
    SIGDB_PROPERTY(2, Value, std::string)
};
extern template class PropertyRecord<NameValuePair>;

/// Named text values attached to one element, identified by its type and exchange id.
class SIGDBREF_EXPORT NameValueDataForElement : public PropertyRecord<NameValueDataForElement>
{
    SIGDB_PROPERTY_RECORD(NameValueDataForElement)
    SIGDB_PROPERTY(1, ElementType, int)
    SIGDB_PROPERTY(2, ElementExchgId, std::string)
    SIGDB_PROPERTY(3, Vector, std::vector<NameValuePair>)
};
extern template class PropertyRecord<NameValueDataForElement>;

/// A list of named text values.
class SIGDBREF_EXPORT NameValuePairVector : public PropertyRecord<NameValuePairVector>
{
    SIGDB_PROPERTY_RECORD(NameValuePairVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, NameValuePair)
};
extern template class PropertyRecord<NameValuePairVector>;

/// Named text values of several elements.
class SIGDBREF_EXPORT NameValueDataForElementVector
    : public PropertyRecord<NameValueDataForElementVector>
{
    SIGDB_PROPERTY_RECORD(NameValueDataForElementVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, NameValueDataForElement)
};
extern template class PropertyRecord<NameValueDataForElementVector>;

} // namespace sigdb

#endif
