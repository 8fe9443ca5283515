// Finds a text in another one, by the same equivalence as compareTexts. Indexes and lengths are
// UTF-16 units.

#pragma once

#include <cstdint>
#include <string_view>

#include "lib/text/compare_texts.h"

namespace pinorama {

// Where a text was found in another one. Both fields count units of the text that was searched,
// whose spelling of the wanted text may be shorter or longer.
struct FoundRange {
    std::int32_t location;  // -1: nowhere
    std::int32_t length;
};

// The first occurrence of `wanted` in the part of `text` that begins at `start`. Combining marks
// belong to the letter before them: a letter with marks is found only together with all of its
// marks, and marks alone are found only at `start`. An empty text is found nowhere.
FoundRange findText(std::u16string_view text, std::u16string_view wanted, std::int32_t start,
                    Case letterCase);

// The length of the occurrence of `wanted` at the very beginning of `text`, or -1.
std::int32_t matchAtBeginning(std::u16string_view text, std::u16string_view wanted,
                              Case letterCase);

}  // namespace pinorama
