// Arbitrary bytes to texts and back, and two such texts compared and searched.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "base/utf8.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_search.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const StringHolder text(TovStringFromUTF8(input.data(), static_cast<std::int32_t>(size)));
    std::uint32_t written = TovStringGetUTF8Size(text.get());
    const auto bytes = std::make_unique<char[]>(written);
    TovStringCopyToUTF8(text.get(), bytes.get(), &written);
    const bool isUTF8 = countUnitsOfUTF8(input) >= 0;
    const std::string_view form = input.substr(0, input.find('\0'));
    if (isUTF8 && form != std::string_view(bytes.get(), written)) __builtin_trap();

    // Searches the rest for the first third, with and without case.
    const std::u16string_view units = unitsOf(text.get());
    const StringHolder wanted(createString(units.substr(0, units.size() / 3)));
    const StringHolder rest(createString(units.substr(units.size() / 3)));
    for (const std::uint8_t flag : {0, 1}) {
        const std::int32_t at = TovStringPosition(rest.get(), wanted.get(), 0, flag);
        if ((at == 0) != TovStringBeginsWith(rest.get(), wanted.get(), flag)) __builtin_trap();
        const std::int32_t order = TovStringCompare(rest.get(), wanted.get(), flag);
        if (order != -TovStringCompare(wanted.get(), rest.get(), flag)) __builtin_trap();
        if (order == 0 && at != 0 && !units.empty()) __builtin_trap();
    }
    return 0;
}
