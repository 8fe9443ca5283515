// Messages made and taken apart number by number, least significant byte first.

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

class MessageWriter {
public:
    void put16(std::uint16_t value) { put(value, 2); }
    void put32(std::uint32_t value) { put(value, 4); }
    void put64(std::uint64_t value) { put(value, 8); }
    void putDouble(double value) { put64(std::bit_cast<std::uint64_t>(value)); }
    void putBytes(std::string_view bytes)
    {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }

    std::vector<std::uint8_t>& bytes() { return bytes_; }

private:
    void put(std::uint64_t value, int count)
    {
        for (int i = 0; i < count; i++) bytes_.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    }

    std::vector<std::uint8_t> bytes_;
};

// Reads a message from its beginning. Once it has been asked for more than there is it has failed,
// and gives zeros and empty texts from then on.
class MessageReader {
public:
    explicit MessageReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    std::uint16_t get16() { return static_cast<std::uint16_t>(get(2)); }
    std::uint32_t get32() { return static_cast<std::uint32_t>(get(4)); }
    std::uint64_t get64() { return get(8); }
    double getDouble() { return std::bit_cast<double>(get64()); }

    std::span<const std::uint8_t> getBytes(std::size_t count)
    {
        if (count > rest_.size()) {
            hasFailed_ = true;
            rest_ = {};
            return {};
        }
        const std::span<const std::uint8_t> bytes = rest_.first(count);
        rest_ = rest_.subspan(count);
        return bytes;
    }

    std::size_t bytesLeft() const { return rest_.size(); }
    bool hasFailed() const { return hasFailed_; }

    // True when everything that was asked for was there and nothing is left.
    bool isComplete() const { return !hasFailed_ && rest_.empty(); }

private:
    std::uint64_t get(std::size_t count)
    {
        std::uint64_t value = 0;
        int shift = 0;
        for (const std::uint8_t byte : getBytes(count)) {
            value |= std::uint64_t{byte} << shift;
            shift += 8;
        }
        return value;
    }

    std::span<const std::uint8_t> rest_;
    bool hasFailed_ = false;
};

}  // namespace pinorama
