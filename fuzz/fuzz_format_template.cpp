// Format templates from tables of texts. Whatever they request, they get these arguments only.

#include <cstddef>
#include <cstdint>

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_format.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const StringHolder format(
        TovStringFromUTF8(reinterpret_cast<const char*>(data), static_cast<std::int32_t>(size)));
    const StringHolder word(TovStringFromUTF8("caf\xc3\xa9", 5));
    const FormatArgument arguments[] = {word.get(), 48.125, 'N', -1, TovStringRef{}, "bytes"};
    const StringHolder text(tovFormat(unitsOf(format.get()), arguments));
    if (!text) __builtin_trap();

    // The shortest directive has two units and prints a double of 309 digits with 1000 decimals at
    // most.
    const std::size_t most = (size + 1) * 1400;
    if (static_cast<std::size_t>(text.get()->length) > most) __builtin_trap();
    return 0;
}
