// Converts between a test's std::string and the byte views of the picture readers.

#pragma once

#include <string>

#include "pictures/byte_source.h"

namespace test {

// A view of `bytes`, which must outlive it.
inline pinorama::ByteView viewOf(const std::string& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

inline std::string textOf(pinorama::ByteView view)
{
    return {view.begin(), view.end()};
}

inline std::string textOf(const pinorama::ByteBlock& block)
{
    return textOf(block.view(0, static_cast<std::size_t>(block.length())));
}

}  // namespace test
