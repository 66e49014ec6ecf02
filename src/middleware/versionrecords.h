#ifndef SIGDB_MIDDLEWARE_VERSIONRECORDS_H
#define SIGDB_MIDDLEWARE_VERSIONRECORDS_H

#include "sigdbref_export.h"

#include "middleware/middlewareenums.h"
#include "middleware/propertyrecord.h"

namespace sigdb {

// The versions that client and middleware tell each other: the product they run and the
// interface versions they implement and need. Plain data: the library compares no versions
// and does not compute InterfaceMatching; whoever fills a VersionInfo sets it.

/// The version of one product: where it comes from, its four version numbers and two dates
/// (free text).
class SIGDBREF_EXPORT ProductVersion : public PropertyRecord<ProductVersion>
{
    SIGDB_PROPERTY_RECORD(ProductVersion)
    SIGDB_PROPERTY(1, Origin, std::string)
    SIGDB_PROPERTY(2, Major, int)
    SIGDB_PROPERTY(3, Minor, int)
    SIGDB_PROPERTY(4, Bugfix, int)
    SIGDB_PROPERTY(5, Build, int)
    SIGDB_PROPERTY(6, VersionDate, std::string)
    SIGDB_PROPERTY(7, BuildDate, std::string)
};
extern template class PropertyRecord<ProductVersion>;

/// The version of an interface.
class SIGDBREF_EXPORT InterfaceVersion : public PropertyRecord<InterfaceVersion>
{
    SIGDB_PROPERTY_RECORD(InterfaceVersion)
    SIGDB_PROPERTY(1, Major, int)
    SIGDB_PROPERTY(2, Minor, int)
};
extern template class PropertyRecord<InterfaceVersion>;

/// What a party runs: its product version, the version of the interface that it implements,
/// the version it needs from the other side, how the two fit and which interface is meant.
class SIGDBREF_EXPORT VersionInfo : public PropertyRecord<VersionInfo>
{
    SIGDB_PROPERTY_RECORD(VersionInfo)
    SIGDB_PROPERTY(1, ProductVersion, ProductVersion)
    SIGDB_PROPERTY(2, InterfaceVersion, InterfaceVersion)
    SIGDB_PROPERTY(3, RequiredInterfaceVersion, InterfaceVersion)
    SIGDB_PROPERTY(4, InterfaceMatching, InterfaceMatching)
    SIGDB_PROPERTY(5, InterfaceIdentifier, InterfaceIdentifier)
};
extern template class PropertyRecord<VersionInfo>;

/// A list of product versions.
class SIGDBREF_EXPORT ProductVersionVector : public PropertyRecord<ProductVersionVector>
{
    SIGDB_PROPERTY_RECORD(ProductVersionVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, ProductVersion)
};
extern template class PropertyRecord<ProductVersionVector>;

/// A list of interface versions.
class SIGDBREF_EXPORT InterfaceVersionVector : public PropertyRecord<InterfaceVersionVector>
{
    SIGDB_PROPERTY_RECORD(InterfaceVersionVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, InterfaceVersion)
};
extern template class PropertyRecord<InterfaceVersionVector>;

/// A list of version infos. Unlike the other lists, its entries are the property
/// "VersionInfoVector" (getVersionInfoVector/setVersionInfoVector), not "Vector".
class SIGDBREF_EXPORT VersionInfoVector : public PropertyRecord<VersionInfoVector>
{
    SIGDB_PROPERTY_RECORD(VersionInfoVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, VersionInfoVector, VersionInfo)
};
extern template class PropertyRecord<VersionInfoVector>;

} // namespace sigdb

#endif
