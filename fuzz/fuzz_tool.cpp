// Fuzzes what the sigdbref tool does with bytes: the first byte chooses the hex reader (0), the
// column dissector (1), the property dissector (2) or a record (3, the second byte choosing
// which of the tool's records), decoded and written as JSON; every report is thrown away. The
// high bit of the first byte caps the report at four items.

#include "jsonstream.h"
#include "rawdissector.h"
#include "recorddecoders.h"
#include "toolinput.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    sigdbtool::JsonStream discarded(nullptr);
    const qint64 maxItems = data[0] & 0x80 ? 4 : -1;
    switch (data[0] % 4) {
    case 0: {
        QByteArray bytes;
        sigdbtool::parseHex(input, bytes);
        break;
    }
    case 1:
        sigdbtool::dissectColumnFrames(input, discarded, maxItems);
        break;
    case 2:
        sigdbtool::dissectPropertyBlocks(input, discarded, maxItems);
        break;
    default: {
        if (input.isEmpty())
            break;
        const auto &decoders = sigdbtool::recordDecoders();
        const sigdbtool::RecordDecoder &decoder = decoders[static_cast<unsigned char>(input[0]) % decoders.size()];
        const sigdbtool::DecodeResult result = decoder.decode(input.mid(1));
        sigdbtool::ItemBudget budget(discarded, maxItems);
        result.writeValue(discarded, budget);
        break;
    }
    }
    return 0;
}
