// Fuzzes what the sigdbref tool does with bytes before any record decoder sees them: the first
// byte chooses the hex reader (0), the column dissector (1) or the property dissector (2); the
// dissectors' reports are thrown away.

#include "jsonstream.h"
#include "rawdissector.h"
#include "toolinput.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    sigdbtool::JsonStream discarded(nullptr);
    switch (data[0] % 3) {
    case 0: {
        QByteArray bytes;
        sigdbtool::parseHex(input, bytes);
        break;
    }
    case 1:
        sigdbtool::dissectColumnFrames(input, discarded, data[0] & 0x80 ? 4 : -1);
        break;
    default:
        sigdbtool::dissectPropertyBlocks(input, discarded, data[0] & 0x80 ? 4 : -1);
        break;
    }
    return 0;
}
