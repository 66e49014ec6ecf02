// Fuzzes the answer dispatch: the first two bytes choose the order type, the rest is the
// answer as it would arrive from the core library.

#include "fuzztargets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    const int orderType = static_cast<int16_t>((data[0] << 8) | data[1]);
    sigdbfuzz::dispatchAnswer(orderType,
                              QByteArray(reinterpret_cast<const char *>(data + 2), static_cast<int>(size - 2)));
    return 0;
}
