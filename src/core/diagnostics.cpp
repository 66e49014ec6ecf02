#include "core/diagnostics.h"

#include <cstdarg>
#include <cstdio>

namespace sigdb {

void diagnostic(const char *format, ...)
{
    va_list args;
    va_start(args, format);
    std::vprintf(format, args);
    va_end(args);
    std::fflush(stdout);
}

} // namespace sigdb
