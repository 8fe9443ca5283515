#include "cli/zip_writer.h"

#include <algorithm>
#include <array>

namespace pinorama {
namespace {
constexpr std::uint32_t kMax32 = 0xffffffff;
constexpr std::uint16_t kMax16 = 0xffff;
constexpr std::uint32_t kItemMagic = 0x04034b50;
constexpr std::uint32_t kEntryMagic = 0x02014b50;
constexpr std::uint32_t kEndMagic = 0x06054b50;
constexpr std::uint32_t kEnd64Magic = 0x06064b50;
constexpr std::uint32_t kLocatorMagic = 0x07064b50;
constexpr std::uint16_t kVersion = 20;    // needed to read: 2.0
constexpr std::uint16_t kVersion64 = 45;  // the same with ZIP64: 4.5
constexpr std::uint16_t kUtf8Names = 0x0800;
constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kSizesTag = 1;   // of the extra field with 64-bit numbers
constexpr std::uint16_t kDate = 0x0021;  // 1 January 1980: the same input gives the same archive

std::array<std::uint32_t, 256> makeTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); i++) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; bit++) {
            value = (value & 1) != 0 ? 0xedb88320 ^ (value >> 1) : value >> 1;
        }
        table[i] = value;
    }
    return table;
}

template <typename Number>
void put(Number number, std::string* out)
{
    for (std::size_t i = 0; i < sizeof number; i++) {
        *out += static_cast<char>(number >> (8 * i) & 0xff);
    }
}

std::uint32_t low32(std::uint64_t number)
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(number, kMax32));
}

// The extra field with the numbers of 64 bits that do not fit into their places.
std::string extraOf(std::initializer_list<std::uint64_t> numbers)
{
    const auto isLarge = [](std::uint64_t number) { return number >= kMax32; };
    const auto count = std::count_if(numbers.begin(), numbers.end(), isLarge);
    std::string extra;
    if (count == 0) return extra;
    put(kSizesTag, &extra);
    put(static_cast<std::uint16_t>(count * 8), &extra);
    for (const std::uint64_t number : numbers) {
        if (isLarge(number)) put(number, &extra);
    }
    return extra;
}
}  // namespace

std::uint32_t crc32Of(std::string_view bytes, std::uint32_t crc)
{
    static const std::array<std::uint32_t, 256> table = makeTable();
    crc = ~crc;
    for (const char byte : bytes) {
        crc = table[(crc ^ static_cast<unsigned char>(byte)) & 0xff] ^ (crc >> 8);
    }
    return ~crc;
}

bool ZipWriter::add(std::string_view name, std::string_view content)
{
    return begin(name, content.size(), crc32Of(content)) && write(content);
}

bool ZipWriter::add(std::string_view name, const SpoolFile& content, std::uint32_t crc)
{
    return begin(name, content.size(), crc) &&
           content.copyTo([this](std::string_view bytes) { return write(bytes); });
}

bool ZipWriter::begin(std::string_view name, std::uint64_t size, std::uint32_t crc)
{
    // Both sizes, as stored and as they are, have to be there if one of them is.
    const std::string extra = extraOf({size, size});
    const std::string entryExtra = extraOf({size, size, offset_});
    const auto version = [](const std::string& field) {
        return field.empty() ? kVersion : kVersion64;
    };
    const auto putFacts = [&](std::uint16_t needed, std::size_t extraSize, std::string* out) {
        put(needed, out);
        put(kUtf8Names, out);
        put(kStored, out);
        put(std::uint16_t{0}, out);  // the time
        put(kDate, out);
        put(crc, out);
        put(low32(size), out);
        put(low32(size), out);
        put(static_cast<std::uint16_t>(name.size()), out);
        put(static_cast<std::uint16_t>(extraSize), out);
    };
    std::string entry;
    put(kEntryMagic, &entry);
    put(version(entryExtra), &entry);  // made by
    putFacts(version(entryExtra), entryExtra.size(), &entry);
    put(std::uint16_t{0}, &entry);  // no comment
    put(std::uint16_t{0}, &entry);  // on the first disk
    put(std::uint16_t{0}, &entry);  // attributes
    put(std::uint32_t{0}, &entry);
    put(low32(offset_), &entry);
    entry.append(name).append(entryExtra);
    count_++;

    std::string header;
    put(kItemMagic, &header);
    putFacts(version(extra), extra.size(), &header);
    header.append(name).append(extra);
    return directory_.append(entry) && write(header);
}

bool ZipWriter::finish()
{
    const std::uint64_t start = offset_;
    const std::uint64_t size = directory_.size();
    if (!directory_.copyTo([this](std::string_view bytes) { return write(bytes); })) return false;
    std::string end;
    if (count_ >= kMax16 || start >= kMax32 || size >= kMax32) {
        const std::uint64_t end64 = offset_;
        put(kEnd64Magic, &end);
        put(std::uint64_t{44}, &end);  // the size of what follows in this record
        put(kVersion64, &end);
        put(kVersion64, &end);
        put(std::uint32_t{0}, &end);  // the number of this disk, and of that of the directory
        put(std::uint32_t{0}, &end);
        put(count_, &end);
        put(count_, &end);
        put(size, &end);
        put(start, &end);
        put(kLocatorMagic, &end);
        put(std::uint32_t{0}, &end);
        put(end64, &end);
        put(std::uint32_t{1}, &end);  // disk in all
    }
    const auto count = static_cast<std::uint16_t>(std::min<std::uint64_t>(count_, kMax16));
    put(kEndMagic, &end);
    put(std::uint16_t{0}, &end);
    put(std::uint16_t{0}, &end);
    put(count, &end);
    put(count, &end);
    put(low32(size), &end);
    put(low32(start), &end);
    put(std::uint16_t{0}, &end);  // no comment
    return write(end);
}

bool ZipWriter::write(std::string_view bytes)
{
    offset_ += bytes.size();
    return sink_(bytes);
}

}  // namespace pinorama
