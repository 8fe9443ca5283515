// An IPTC record and the character sets of its texts.

#include "pictures/iptc_record.h"
#include "pictures/iptc_text.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    PictureProperties properties;
    readIptcRecord(ByteBlock(source), properties);
    // A decoded text has no more units than bytes, and no zero.
    for (const auto& text : {decodeUndeclaredText({data, size}), decodeUTF8Text({data, size})}) {
        if (text.size() > size || text.find(u'\0') != text.npos) __builtin_trap();
    }
    return 0;
}
