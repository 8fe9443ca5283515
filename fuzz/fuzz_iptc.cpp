// An IPTC record and the character sets of its texts.

#include "pictures/iptc_record.h"
#include "pictures/iptc_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    platform::PictureProperties properties;
    platform::readIptcRecord(platform::ByteBlock(source), properties);
    // No decoding makes more units than there are bytes, and none keeps a zero byte.
    for (const auto& text :
         {platform::decodeUndeclaredText({data, size}), platform::decodeUTF8Text({data, size})}) {
        if (text.size() > size || text.find(u'\0') != text.npos) __builtin_trap();
    }
    return 0;
}
