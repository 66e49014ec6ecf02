#ifndef SIGDB_MIDDLEWARE_LOCKRECORDS_H
#define SIGDB_MIDDLEWARE_LOCKRECORDS_H

#include "sigdbref_export.h"

#include "middleware/middlewareenums.h"
#include "middleware/propertyrecord.h"

namespace sigdb {

/// One lock that a user holds on an element: the element (its type and either of its two
/// identities, exchange id and numeric id), who holds the lock from which client and address,
/// since when (free text), of which kind and state, and whether the receiving client holds it.
class SIGDBREF_EXPORT LockedElementData : public PropertyRecord<LockedElementData>
{
    SIGDB_PROPERTY_RECORD(LockedElementData)
    SIGDB_PROPERTY(1, Type, int)
    SIGDB_NULLABLE_PROPERTY(2, ExchgId, std::string)
    SIGDB_NULLABLE_PROPERTY(3, Tid, unsigned long long)
    SIGDB_PROPERTY(4, UserName, std::string)
    SIGDB_PROPERTY(5, Ip, std::string)
    SIGDB_PROPERTY(6, Date, std::string)
    SIGDB_PROPERTY(7, LockState, LockState)
    SIGDB_PROPERTY(8, LockType, LockType)
    SIGDB_PROPERTY(9, ClientId, int)
    SIGDB_PROPERTY(10, LockedByMe, bool)
};
extern template class PropertyRecord<LockedElementData>;

/// A list of locks with the client and the user (NULL when none) that the list concerns.
class SIGDBREF_EXPORT LockedElementDataVector : public PropertyRecord<LockedElementDataVector>
{
    SIGDB_PROPERTY_RECORD(LockedElementDataVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, LockedElementData)
    SIGDB_PROPERTY(2, ClientId, int)
    SIGDB_NULLABLE_PROPERTY(3, UserName, std::string)
};
extern template class PropertyRecord<LockedElementDataVector>;

} // namespace sigdb

#endif
