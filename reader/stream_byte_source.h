// The bytes of an open file for decoders, which go through much of it from front to back.

#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "pictures/byte_source.h"

namespace pinorama {

// Reads as FileByteSource does, but in longer pieces and as often as it is asked. Once `mayGoOn`
// says no the file seems to end, so that whatever works on it comes to its end soon.
class StreamByteSource final : public ByteSource {
public:
    // `descriptor` is open for reading and stays the caller's; its file position is left alone.
    // `mayGoOn` is asked before every read; empty means always.
    StreamByteSource(int descriptor, std::uint64_t size, std::function<bool()> mayGoOn = {});

    bool wasStopped() const { return wasStopped_; }

private:
    ByteView load(std::uint64_t offset, std::size_t length) override;

    const int descriptor_;
    const std::function<bool()> mayGoOn_;
    bool wasStopped_ = false;
    std::array<std::uint8_t, kMaxViewLength> startBytes_;
    std::array<std::uint8_t, kMaxViewLength> movingBytes_;
};

}  // namespace pinorama
