// Unescapes addresses: a decoded text must survive being escaped and decoded again.

#include <cstddef>
#include <cstdint>

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_url.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const StringHolder address(
        TovStringFromUTF8(reinterpret_cast<const char*>(data), static_cast<std::int32_t>(size)));
    const StringHolder decoded(TovStringConvertFromURL(address.get()));
    if (!decoded) return 0;
    const StringHolder escaped(TovStringConvertToURL(decoded.get()));
    const StringHolder again(TovStringConvertFromURL(escaped.get()));
    if (!equalUnits(decoded.get(), again.get())) __builtin_trap();
    return 0;
}
