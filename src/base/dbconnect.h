#ifndef SIGDB_BASE_DBCONNECT_H
#define SIGDB_BASE_DBCONNECT_H

#include "sigdbcore_export.h"

#include <QtGlobal>

#include <string>
#include <vector>

namespace base {

/// Connection parameters as the core library keeps them. This library only carries the
/// holder; the fields are public and their meaning belongs to the core library.
class SIGDBCORE_EXPORT DbConnect
{
public:
    DbConnect();
    /// A copy of \a other.
    DbConnect(const DbConnect &other);
    /// Replaces the contents with a copy of \a other.
    DbConnect &operator=(const DbConnect &other);
    ~DbConnect();

    /// Which kind of connection the core library opens.
    int connectionKind = 2;
    /// The database server's host name.
    std::string serverName;
    /// The database on that server.
    std::string databaseName;
    /// The user the session logs in as.
    std::string userName;
    /// That user's password.
    std::string password;
    /// The application name shown to the server.
    std::string applicationName;
    /// The server's port; 0 for the default.
    qint64 port = 0;
    /// How long connecting may take, in milliseconds.
    qint64 connectTimeout = 5000;
    /// The name under which this client registers.
    std::string clientName;
    /// The id the server gave this client.
    qint64 clientId = 0;
    /// The id of the current session.
    qint64 sessionId = 0;
    /// Whether the session may only read.
    bool readOnly = false;
    /// Further options for the core library, one per entry.
    std::vector<std::string> options;
    /// How long one request may take, in milliseconds.
    int requestTimeout = 1000;
};

} // namespace base

#endif
