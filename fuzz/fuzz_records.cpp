// Fuzzes the entry points beside the plain decoders: the first byte chooses the target.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    sigdbfuzz::decodeWithChosenTarget(sigdbfuzz::recordTargets(), data, size);
    return 0;
}
