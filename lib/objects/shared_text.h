// Texts that are literals of the program: they allocate nothing, are never freed, and may be used
// like any other handle.

#pragma once

#include <cstddef>
#include <cstdint>

#include "lib/objects/string.h"

namespace pinorama {

// The immutable text of a literal: constinit TovString gKey = pinorama::sharedText(u"key");
// &gKey is then a handle, whose retaining and releasing count nothing.
template <std::size_t size>
constexpr TovString sharedText(const char16_t (&literal)[size])
{
    constexpr auto kLength = static_cast<std::int32_t>(size - 1);
    // The cast is safe: no function writes to the units of an immutable text.
    return {{TovTypeID::string, kSharedForever},
            false,
            kLength,
            kLength,
            const_cast<char16_t*>(literal)};
}

}  // namespace pinorama
