// Owns one block of base/alloc.h while it is being filled.

#pragma once

#include <utility>

#include "base/alloc.h"

namespace pinorama {

class BlockHolder {
public:
    // Takes over `block`, which may be null.
    explicit BlockHolder(void* block = nullptr) : block_(block) {}
    BlockHolder(BlockHolder&& other) noexcept : block_(other.take()) {}
    BlockHolder& operator=(BlockHolder&& other) noexcept
    {
        std::swap(block_, other.block_);
        return *this;
    }
    BlockHolder(const BlockHolder&) = delete;
    BlockHolder& operator=(const BlockHolder&) = delete;
    ~BlockHolder() { baseFree(block_); }

    explicit operator bool() const { return block_ != nullptr; }
    void* get() const { return block_; }

    // Hands the block over to the caller.
    [[nodiscard]] void* take() { return std::exchange(block_, nullptr); }

private:
    void* block_;
};

}  // namespace pinorama
