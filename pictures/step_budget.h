// How far one file is looked through. A container is a chain of parts; stepping over one means
// reading at the place after it, and a file can have any number of them.

#pragma once

#include <algorithm>
#include <cstdint>

namespace pinorama {

class StepBudget {
public:
    // False when the file has been looked through far enough. Stepping over a part of `size` bytes
    // costs as much as reading past it: its size, or one read.
    bool spend(std::uint64_t size)
    {
        const std::uint64_t cost = std::clamp<std::uint64_t>(size, 1, kOneRead);
        if (cost > left_) {
            left_ = 0;
            return false;
        }
        left_ -= cost;
        return true;
    }

private:
    // With the start of the file and the longest XMP packet, less than a megabyte is read.
    static constexpr std::uint64_t kWhole = 384 * 1024;
    static constexpr std::uint64_t kOneRead = 16 * 1024;

    std::uint64_t left_ = kWhole;
};

}  // namespace pinorama
