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
    DbConnect(const DbConnect &other);
    DbConnect &operator=(const DbConnect &other);
    ~DbConnect();

    int connectionKind = 2;
    std::string serverName;
    std::string databaseName;
    std::string userName;
    std::string password;
    std::string applicationName;
    qint64 port = 0;
    qint64 connectTimeout = 5000;
    std::string clientName;
    qint64 clientId = 0;
    qint64 sessionId = 0;
    bool readOnly = false;
    std::vector<std::string> options;
    int requestTimeout = 1000;
};

} // namespace base

#endif
