#ifndef SIGDB_BASE_STORETYPE_H
#define SIGDB_BASE_STORETYPE_H

namespace base {

/// How a record is kept by the server; the same value is also the record's data layer.
enum StoreType : int {
    StoreType_NotSet = 0,
    StoreType_Persistent = 1,
    StoreType_Transient = 2,
};

} // namespace base

#endif
