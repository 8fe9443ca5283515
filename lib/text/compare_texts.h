// The order of two texts, by what they say rather than by how they are encoded: canonically
// equivalent sequences, such as a precomposed letter and the letter with a combining mark, are
// equal (Unicode Standard, section 3.7). Ignoring case means Unicode's full case folding without
// the Turkic exceptions (section 3.13).

#pragma once

#include <string_view>

namespace pinorama {

enum class Case { respect, ignore };

// Negative, 0 or positive: the order of the code points of the decomposed (and folded) texts.
int compareTexts(std::u16string_view a, std::u16string_view b, Case letterCase);

}  // namespace pinorama
