#include "nearby/folder_block.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>

namespace pinorama {
namespace {
constexpr std::uint64_t kBlockVersion = 2;
constexpr std::size_t kVersionSize = 4;
constexpr std::size_t kLengthSize = 2;
constexpr std::size_t kMaxNameLength = 4096;  // bytes
constexpr std::size_t kNumberSize = 8;
constexpr std::size_t kFactsSize = 4 * kNumberSize;  // what stands after a name

// Numbers are read and written a million times in a search. Compilers make one instruction of the
// whole loop if the count of its turns is fixed.
template <std::size_t size>
std::uint64_t numberAt(const char* bytes)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < size; i++) {
        number |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << 8 * i;
    }
    return number;
}

template <std::size_t size>
void append(std::uint64_t number, std::string* out)
{
    std::array<char, size> bytes;
    for (std::size_t i = 0; i < size; i++) bytes[i] = static_cast<char>(number >> 8 * i);
    out->append(bytes.data(), size);
}

bool isOnEarth(Position position)  // NaN is not
{
    return std::abs(position.latitude) <= 90.0 && std::abs(position.longitude) <= 180.0;
}
}  // namespace

FolderBlockWriter::FolderBlockWriter()
{
    append<kVersionSize>(kBlockVersion, &block_);
}

void FolderBlockWriter::add(const IndexedPicture& picture)
{
    constexpr double kNowhere = std::numeric_limits<double>::quiet_NaN();
    const Position position = picture.position.value_or(Position{kNowhere, kNowhere});
    append<kLengthSize>(picture.name.size(), &block_);
    block_ += picture.name;
    append<kNumberSize>(picture.size, &block_);
    append<kNumberSize>(static_cast<std::uint64_t>(picture.modified), &block_);
    append<kNumberSize>(std::bit_cast<std::uint64_t>(position.latitude), &block_);
    append<kNumberSize>(std::bit_cast<std::uint64_t>(position.longitude), &block_);
}

FolderBlockReader::FolderBlockReader(std::string_view block)
{
    if (block.size() < kVersionSize) return;
    if (numberAt<kVersionSize>(block.data()) == kBlockVersion) rest_ = block.substr(kVersionSize);
}

std::optional<IndexedPicture> FolderBlockReader::next()
{
    if (rest_.empty()) return std::nullopt;
    const std::size_t length = rest_.size() < kLengthSize ? 0 : numberAt<kLengthSize>(rest_.data());
    const bool isWhole = length != 0 && length <= kMaxNameLength &&
                         rest_.size() >= kLengthSize + length + kFactsSize;
    if (!isWhole) {
        rest_ = {};
        return std::nullopt;
    }
    const char* facts = rest_.data() + kLengthSize + length;
    const Position position{std::bit_cast<double>(numberAt<kNumberSize>(facts + 2 * kNumberSize)),
                            std::bit_cast<double>(numberAt<kNumberSize>(facts + 3 * kNumberSize))};
    IndexedPicture picture;
    picture.name = rest_.substr(kLengthSize, length);
    picture.size = numberAt<kNumberSize>(facts);
    picture.modified = static_cast<std::int64_t>(numberAt<kNumberSize>(facts + kNumberSize));
    if (isOnEarth(position)) picture.position = position;
    rest_.remove_prefix(kLengthSize + length + kFactsSize);
    return picture;
}

KnownPictures::KnownPictures(std::string_view block) : reader_(block), next_(reader_.next()) {}

std::optional<IndexedPicture> KnownPictures::take(std::string_view name)
{
    if (next_ && next_->name == name) {
        const std::optional<IndexedPicture> taken = next_;
        next_ = reader_.next();
        return taken;
    }
    for (; next_; next_ = reader_.next()) rest_.emplace(next_->name, *next_);
    const auto found = rest_.find(name);
    if (found == rest_.end()) return std::nullopt;
    const IndexedPicture taken = found->second;
    rest_.erase(found);
    return taken;
}

}  // namespace pinorama
