// Compares complete outputs byte for byte with the files of tests/golden.

#pragma once

#include <string>
#include <string_view>

namespace test {

// Expects `actual` to be the content of the golden file. With UPDATE_GOLDEN=1 in the environment
// the file is written instead; its diff is then reviewed like code.
void expectGolden(const std::string& path, std::string_view actual);

}  // namespace test
