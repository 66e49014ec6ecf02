// Fuzzes the entry points beside the plain decoders: the first byte chooses the target.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const std::vector<sigdbfuzz::Target> &targets = sigdbfuzz::recordTargets();
    targets[data[0] % targets.size()].decode(
        QByteArray(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1)));
    return 0;
}
