// The bytes of a picture as strictly as the sanitizers can watch over them: every view is a block
// of memory of exactly the length that was asked for, and the next call takes it away.

#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "pictures/byte_source.h"

namespace test {

class StrictSource final : public pinorama::ByteSource {
public:
    struct Range {
        std::uint64_t start;
        std::size_t length;
    };

    // `bytes` have to outlive it.
    explicit StrictSource(pinorama::ByteView bytes) : ByteSource(bytes.size()), bytes_(bytes) {}

    // From now on the byte at `position` is seen with these bits turned over.
    void flip(std::uint64_t position, std::uint8_t bits)
    {
        flipped_ = position;
        bits_ = bits;
    }

    // What has been asked for.
    const std::vector<Range>& views() const { return views_; }

private:
    pinorama::ByteView load(std::uint64_t offset, std::size_t length) override
    {
        views_.push_back({offset, length});
        block_.reset(new std::uint8_t[length]);
        const pinorama::ByteView seen = bytes_.subspan(static_cast<std::size_t>(offset), length);
        std::copy(seen.begin(), seen.end(), block_.get());
        if (flipped_ >= offset && flipped_ - offset < length) block_[flipped_ - offset] ^= bits_;
        return {block_.get(), length};
    }

    pinorama::ByteView bytes_;
    std::uint64_t flipped_ = ~std::uint64_t{0};
    std::uint8_t bits_ = 0;
    std::unique_ptr<std::uint8_t[]> block_;
    std::vector<Range> views_;
};

}  // namespace test
