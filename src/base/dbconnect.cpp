#include "base/dbconnect.h"

namespace base {

DbConnect::DbConnect() = default;
DbConnect::DbConnect(const DbConnect &other) = default;
DbConnect &DbConnect::operator=(const DbConnect &other) = default;
DbConnect::~DbConnect() = default;

} // namespace base
