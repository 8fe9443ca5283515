// Checksums of the blocks of a file, each compared when something of its block is read for the
// first time: what a look-up does not need is neither summed nor brought into memory.
//
// Blocks are 16 KiB of the file; docs/formats.md describes the section "SUMS".

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pinorama {

// FNV-1a over words of 8 bytes, the last one filled up with zeros, with the upper half of the sum
// folded into the lower one after each step.
std::uint64_t placesChecksum(std::span<const std::uint8_t> bytes);

class BlockSums {
public:
    static constexpr std::size_t kBlock = 16384;  // bytes

    // How many blocks a file of a length in bytes has.
    static std::size_t blocksOf(std::size_t length) { return (length + kBlock - 1) / kBlock; }

    // What is summed of a block: its bytes from offset `from` of the file on.
    static std::span<const std::uint8_t> summed(std::span<const std::uint8_t> file,
                                                std::size_t block, std::size_t from);

    //   file  outlives the object. What comes before the offset `from` has been checked.
    //   sums  8 bytes for each block; outlives the object, too.
    BlockSums(std::span<const std::uint8_t> file, std::span<const std::uint8_t> sums,
              std::size_t from);

    // True if these bytes of the file are those that were summed. `count` is not 0.
    bool areWhole(const std::uint8_t* first, std::size_t count)
    {
        const auto offset = static_cast<std::size_t>(first - file_.data());
        const std::size_t block = offset / kBlock;
        const std::size_t last = (offset + count - 1) / kBlock;
        if (block == last && checked_[block] != 0) return true;
        return check(block, last);
    }

    // How many bytes of the file from `first` to the end of its block are as they were summed: 0 if
    // the block is damaged.
    std::size_t wholeFrom(const std::uint8_t* first);

    // True if a block was read that is not as it was summed.
    bool haveFailed() const { return haveFailed_; }

    // How many bytes have been compared so far, in whole blocks.
    std::size_t checkedBytes() const;

private:
    bool check(std::size_t block, std::size_t last);

    std::span<const std::uint8_t> file_;
    std::span<const std::uint8_t> sums_;
    std::size_t from_;
    std::vector<std::uint8_t> checked_;  // 1 for a block that is whole
    bool haveFailed_ = false;
};

}  // namespace pinorama
