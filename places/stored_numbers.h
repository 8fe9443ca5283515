// Numbers as the places file stores them: the least significant byte first, without an alignment.
// They are read by the hundred for one place, so all of them are inline.

#pragma once

#include <cstdint>

namespace pinorama {

inline std::uint16_t load16(const std::uint8_t* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

inline std::uint32_t load24(const std::uint8_t* bytes)
{
    return static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16);
}

inline std::uint32_t load32(const std::uint8_t* bytes)
{
    return load24(bytes) | std::uint32_t{bytes[3]} << 24;
}

inline std::int32_t loadSigned32(const std::uint8_t* bytes)
{
    return static_cast<std::int32_t>(load32(bytes));
}

inline std::uint64_t load64(const std::uint8_t* bytes)
{
    return load32(bytes) | std::uint64_t{load32(bytes + 4)} << 32;
}

}  // namespace pinorama
