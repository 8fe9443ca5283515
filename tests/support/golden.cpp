#include "tests/support/golden.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

void test::expectGolden(const std::string& path, std::string_view actual)
{
    const char* update = std::getenv("UPDATE_GOLDEN");
    if (update != nullptr && std::string_view(update) == "1") {
        std::ofstream(path, std::ios::binary)
            .write(actual.data(), static_cast<std::streamsize>(actual.size()));
        return;
    }
    EXPECT_EQ(readFile(path), actual) << "differs from " << path;
}
