// Fuzzes the decoders of the middleware records: the first byte chooses the record class.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    sigdbfuzz::decodeWithChosenTarget(sigdbfuzz::middlewareTargets(), data, size);
    return 0;
}
