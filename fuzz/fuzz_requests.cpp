// Fuzzes the readers of the request records: the first byte chooses the record.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const std::vector<sigdbfuzz::Target> &targets = sigdbfuzz::requestTargets();
    targets[data[0] % targets.size()].decode(
        QByteArray(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1)));
    return 0;
}
