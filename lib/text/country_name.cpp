#include "lib/text/country_name.h"

#include "base/memory_guard.h"
#include "lib/text/locale.h"

#include <algorithm>
#include <string>

#include <unicode/uloc.h>

using namespace pinorama;

TovStringRef pinorama::createCountryName(std::string_view code)
{
    const bool isCode = code.size() == 2 && std::all_of(code.begin(), code.end(), [](char letter) {
                            return letter >= 'A' && letter <= 'Z';
                        });
    if (!isCode) return nullptr;
    return baseGuardMemory([code]() -> TovStringRef {
        const std::string language = textLanguages().front();
        const std::string country = "und_" + std::string(code);
        char16_t name[128];
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t length = uloc_getDisplayCountry(country.c_str(), language.c_str(), name,
                                                           std::size(name), &status);
        // Without a name ICU gives the code and a warning.
        if (U_FAILURE(status) || length <= 0 ||
            length > static_cast<std::int32_t>(std::size(name))) {
            return createString(std::u16string(code.begin(), code.end()));
        }
        return createString({name, static_cast<std::size_t>(length)});
    });
}
