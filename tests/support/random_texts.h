// Random texts and bytes for tests of functions that must be correct for all of them: every mix of
// kinds of characters, in every length. They depend on kRandomTextSeed alone. Also a buffer that
// detects what a function writes into it and next to it.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace test {

constexpr std::uint32_t kRandomTextSeed = 20081;
constexpr std::size_t kMaxRandomTextLength = 200;  // units, or bytes

// Calls `check` with texts of ASCII letters, special characters of XML and URLs, control
// characters, U+0000, Latin-1, MacRoman, two bytes of UTF-8, three bytes, pairs and lone
// surrogates: each of the 1023 mixes of these in each length from 0 to kMaxRandomTextLength units.
// A `stride` above 1 is for slow functions: of each mix only every stride-th length, beginning with
// another one each time.
//
// Stops at the first text whose check fails, and prints it with the seed.
void forRandomTexts(const std::function<void(const std::u16string& text)>& check,
                    std::size_t stride = 1);

// The same with bytes: ASCII, U+0000, UTF-8 of two, three and four bytes, lone trail bytes, cut-off
// characters, and overlong forms and surrogates, in each of the 255 mixes.
void forRandomBytes(const std::function<void(const std::string& bytes)>& check,
                    std::size_t stride = 1);

// What `write(dest)` writes into a buffer of exactly `count` elements. An element of the buffer
// that stays unchanged, and one next to the buffer that changes, are failures.
template <typename Element, typename Write>
std::basic_string<Element> writtenInto(std::size_t count, Write write)
{
    constexpr std::size_t kGuards = 64;  // elements on both sides
    std::basic_string<Element> written[2];
    for (int turn = 0; turn < 2; turn++) {
        const auto fill = static_cast<Element>(turn == 0 ? 0x5a : 0x25);
        std::vector<Element> room(count + 2 * kGuards, fill);
        Element* const dest = room.data() + kGuards;
        write(dest);
        const auto isFill = [fill](Element element) { return element == fill; };
        EXPECT_TRUE(std::all_of(room.data(), dest, isFill)) << "written in front of the room";
        EXPECT_TRUE(std::all_of(dest + count, dest + count + kGuards, isFill))
            << "written after the room of " << count;
        written[turn].assign(dest, count);
    }
    // What was not written is what the room was filled with.
    EXPECT_EQ(written[0], written[1]) << "not all of the room was written";
    return written[0];
}

}  // namespace test
