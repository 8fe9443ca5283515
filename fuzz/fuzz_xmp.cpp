// XMP packets. What is read has to be sound enough to be sent.

#include "pictures/xmp_packet.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const auto properties = readXmp(ByteBlock(source), "de_CH.UTF-8");
    if (!properties) return 0;
    if (properties->latitude && !(*properties->latitude <= 90.0)) __builtin_trap();
    if (properties->longitude && !(*properties->longitude <= 180.0)) __builtin_trap();
    if (properties->city && properties->city->find(u'\0') != std::u16string::npos) {
        __builtin_trap();
    }
    return 0;
}
