// Fuzzes the reader of a callsign table's text form, as element details carry it.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    sigdbfuzz::callsignTextTarget().decode(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
