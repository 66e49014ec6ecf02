#ifndef SIGDB_CORE_DIAGNOSTICS_H
#define SIGDB_CORE_DIAGNOSTICS_H

#include "sigdbcore_export.h"

namespace sigdb {

/// The diagnostic output of the table and element algorithms: a printf-style line on standard
/// output, flushed at once so that it interleaves correctly with the caller's own output.
/// Error diagnostics begin with "___ERROR___".
SIGDBCORE_EXPORT void diagnostic(const char *format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;

} // namespace sigdb

#endif
