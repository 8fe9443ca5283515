#include "lib/text/compare_texts.h"

#include "base/ascii.h"

#include <unicode/unorm.h>

#include <algorithm>
#include <cstdint>

using namespace pinorama;

namespace {
int signOf(int difference)
{
    return (difference > 0) - (difference < 0);
}

int compareAnyTexts(std::u16string_view a, std::u16string_view b, pinorama::Case letterCase)
{
    std::uint32_t options = U_COMPARE_CODE_POINT_ORDER;
    if (letterCase == Case::ignore) options |= U_COMPARE_IGNORE_CASE;
    UErrorCode status = U_ZERO_ERROR;
    const int result = unorm_compare(a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                                     static_cast<std::int32_t>(b.size()), options, &status);
    // ICU fails only if memory runs out; the order of the units is the best substitute then.
    return signOf(U_SUCCESS(status) ? result : a.compare(b));
}
}  // namespace

int pinorama::compareTexts(std::u16string_view a, std::u16string_view b, Case letterCase)
{
    // Marks that follow an ASCII character neither change nor move it, so two texts are in order as
    // soon as they differ in one, and the common beginning before another character does not count.
    const std::size_t shorter = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shorter; i++) {
        if (!isASCII(a[i]) || !isASCII(b[i])) {
            return compareAnyTexts(a.substr(i), b.substr(i), letterCase);
        }
        if (a[i] == b[i]) continue;
        const bool folds = letterCase == Case::ignore;
        const char16_t unitOfA = folds ? foldedASCII(a[i]) : a[i];
        const char16_t unitOfB = folds ? foldedASCII(b[i]) : b[i];
        if (unitOfA != unitOfB) return unitOfA < unitOfB ? -1 : 1;
    }
    return (a.size() > b.size()) - (a.size() < b.size());
}
