// Fuzzes the readers of the request records: the first byte chooses the record.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    sigdbfuzz::decodeWithChosenTarget(sigdbfuzz::requestTargets(), data, size);
    return 0;
}
