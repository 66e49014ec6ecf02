#ifndef SIGDB_MIDDLEWARE_MIDDLEWAREENUMS_H
#define SIGDB_MIDDLEWARE_MIDDLEWAREENUMS_H

// Enumerations of the middleware records. Only their numbers travel (as qint32), and they are
// the middleware's numbers: a record may carry a number that has no enumerator here, which is
// kept as it is (every enumeration has int as its underlying type).

namespace sigdb {

/// How the interface versions of two parties fit together; set by whoever fills a VersionInfo.
enum InterfaceMatching : int {
    InterfaceMatching_Unknown = 0,    ///< not compared yet
    InterfaceMatching_Match = 1,      ///< same interface version
    InterfaceMatching_Compatible = 2, ///< different, but the required version is served
    InterfaceMatching_Mismatch = 3,   ///< the required version is not served
};

/// The interface that a version or a maintenance order concerns.
enum InterfaceIdentifier : int {
    InterfaceIdentifier_Unknown = 0,
    InterfaceIdentifier_Core = 1,       ///< the core library's own orders
    InterfaceIdentifier_Reference = 2,  ///< the reference-data orders of this library
    InterfaceIdentifier_Middleware = 3, ///< the middleware itself
};

/// What a database maintenance order asks for.
enum DbMaintenanceAction : int {
    DbMaintenanceAction_None = 0,
    DbMaintenanceAction_Check = 1,
    DbMaintenanceAction_Reorganize = 2,
    DbMaintenanceAction_UpdateStatistics = 3,
    DbMaintenanceAction_Backup = 4,
    DbMaintenanceAction_Restore = 5,
};

/// The outcome of a database maintenance order.
enum DbMaintenanceResult : int {
    DbMaintenanceResult_Unknown = 0,
    DbMaintenanceResult_Success = 1,
    DbMaintenanceResult_Failed = 2,
    DbMaintenanceResult_NotAllowed = 3,
    DbMaintenanceResult_Busy = 4,
};

/// The code of a bare Message between client and middleware.
enum MessageType : int {
    MessageType_None = 0,
    MessageType_Ping = 1,
    MessageType_Pong = 2,
    MessageType_Shutdown = 3,
    MessageType_Reconnect = 4,
};

/// The kind of an information message (MInfoMessage).
enum MIMessageType : int {
    MIMessageType_None = 0,
    MIMessageType_Information = 1,
    MIMessageType_Warning = 2,
    MIMessageType_Error = 3,
    MIMessageType_Broadcast = 4,
};

/// The kind of client that logs in to the middleware.
enum ClientConnectionType : int {
    ClientConnectionType_Unknown = 0,
    ClientConnectionType_Interactive = 1,
    ClientConnectionType_Service = 2,
    ClientConnectionType_Administration = 3,
};

/// The state of a client's or the middleware's connection.
enum ConnectionState : int {
    ConnectionState_Unknown = 0,
    ConnectionState_Connected = 1,
    ConnectionState_Disconnected = 2,
    ConnectionState_Connecting = 3,
    ConnectionState_Degraded = 4,
};

/// The kind of a generic CallbackMessage.
enum CallbackMessageType : int {
    CallbackMessageType_None = 0,
    CallbackMessageType_Information = 1,
    CallbackMessageType_Warning = 2,
    CallbackMessageType_Error = 3,
    CallbackMessageType_Progress = 4,
};

/// The state of a lock on an element.
enum LockState : int {
    LockState_None = 0,
    LockState_Locked = 1,
    LockState_Released = 2,
    LockState_Requested = 3,
    LockState_Denied = 4,
};

/// The kind of a lock on an element.
enum LockType : int {
    LockType_None = 0,
    LockType_Read = 1,
    LockType_Write = 2,
    LockType_Exclusive = 3,
};

} // namespace sigdb

#endif
