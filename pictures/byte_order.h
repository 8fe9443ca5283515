// Numbers out of bytes, most or least significant byte first.

#pragma once

#include <cstdint>

namespace pinorama {

enum class ByteOrder { little, big };

inline std::uint16_t bigEndian16(const std::uint8_t* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

inline std::uint32_t bigEndian32(const std::uint8_t* bytes)
{
    return std::uint32_t{bigEndian16(bytes)} << 16 | bigEndian16(bytes + 2);
}

inline std::uint16_t littleEndian16(const std::uint8_t* bytes)
{
    return static_cast<std::uint16_t>(bytes[1] << 8 | bytes[0]);
}

inline std::uint32_t littleEndian32(const std::uint8_t* bytes)
{
    return std::uint32_t{littleEndian16(bytes + 2)} << 16 | littleEndian16(bytes);
}

inline std::uint16_t read16(ByteOrder order, const std::uint8_t* bytes)
{
    return order == ByteOrder::big ? bigEndian16(bytes) : littleEndian16(bytes);
}

inline std::uint32_t read32(ByteOrder order, const std::uint8_t* bytes)
{
    return order == ByteOrder::big ? bigEndian32(bytes) : littleEndian32(bytes);
}

inline std::uint64_t read64(ByteOrder order, const std::uint8_t* bytes)
{
    const std::uint64_t first = read32(order, bytes);
    const std::uint64_t second = read32(order, bytes + 4);
    return order == ByteOrder::big ? first << 32 | second : second << 32 | first;
}

}  // namespace pinorama
