// Comparing and searching by what a text says rather than how it is coded: canonically equivalent
// sequences, such as a precomposed letter and the letter with a combining mark, are equal (Unicode
// Standard, section 3.7). Ignoring case means Unicode's full case folding, without the Turkic
// exceptions (section 3.13). Indexes and lengths are UTF-16 units.

#pragma once

#include <cstdint>
#include <string_view>

namespace pinorama {

enum class Case { respect, ignore };

// Negative, 0 or positive: the order of the code points of the decomposed (and folded) texts.
int compareTexts(std::u16string_view a, std::u16string_view b, Case letterCase);

// Where a text was found in another; both fields count in the text that was searched, whose form
// may be shorter or longer than the wanted one.
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
