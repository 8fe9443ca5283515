#include "places/block_sums.h"

#include "places/stored_numbers.h"

#include <algorithm>
#include <cstring>

using namespace pinorama;

std::uint64_t pinorama::placesChecksum(std::span<const std::uint8_t> bytes)
{
    std::uint64_t sum = 0xcbf29ce484222325;
    while (!bytes.empty()) {
        std::uint8_t word[8] = {};
        const std::size_t count = std::min(bytes.size(), sizeof word);
        std::memcpy(word, bytes.data(), count);
        sum = (sum ^ load64(word)) * 0x100000001b3;
        sum ^= sum >> 32;
        bytes = bytes.subspan(count);
    }
    return sum;
}

std::span<const std::uint8_t> BlockSums::summed(std::span<const std::uint8_t> file,
                                                std::size_t block, std::size_t from)
{
    const std::size_t end = std::min((block + 1) * kBlock, file.size());
    const std::size_t start = std::min(std::max(block * kBlock, from), end);
    return file.subspan(start, end - start);
}

BlockSums::BlockSums(std::span<const std::uint8_t> file, std::span<const std::uint8_t> sums,
                     std::size_t from)
    : file_(file), sums_(sums), from_(from), checked_(blocksOf(file.size()))
{
}

std::size_t BlockSums::wholeFrom(const std::uint8_t* first)
{
    const auto offset = static_cast<std::size_t>(first - file_.data());
    const std::size_t end = std::min((offset / kBlock + 1) * kBlock, file_.size());
    return areWhole(first, 1) ? end - offset : 0;
}

bool BlockSums::check(std::size_t block, std::size_t last)
{
    for (; block <= last; ++block) {
        if (checked_[block] != 0) continue;
        const std::uint64_t expected = load64(sums_.data() + block * sizeof(std::uint64_t));
        if (placesChecksum(summed(file_, block, from_)) != expected) {
            haveFailed_ = true;
            return false;
        }
        checked_[block] = 1;
    }
    return true;
}

std::size_t BlockSums::checkedBytes() const
{
    return static_cast<std::size_t>(std::count(checked_.begin(), checked_.end(), 1)) * kBlock;
}
