#include "pictures/iptc_record.h"

#include "pictures/byte_order.h"
#include "pictures/iptc_text.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::uint8_t kDatasetMarker = 0x1c;
constexpr std::size_t kHeaderSize = 5;  // marker, record, dataset, two bytes of length

// A length with the highest bit set is not the length but the number of bytes that hold it.
constexpr std::uint16_t kIsExtended = 0x8000;
constexpr std::size_t kMaxExtensionLength = 4;

struct Dataset {
    std::uint8_t record;
    std::uint8_t number;
    ByteBlock data;
    std::uint64_t end;  // where the next one begins
};

std::optional<Dataset> readDataset(const ByteBlock& block, std::uint64_t position)
{
    const ByteView header = block.view(position, kHeaderSize);
    if (header.empty() || header[0] != kDatasetMarker) return std::nullopt;
    Dataset dataset{header[1], header[2], {}, position + kHeaderSize};
    std::uint64_t length = bigEndian16(&header[3]);
    if ((length & kIsExtended) != 0) {
        const std::uint64_t bytes = length & ~std::uint64_t{kIsExtended};
        if (bytes > kMaxExtensionLength) return std::nullopt;
        length = 0;
        for (std::uint8_t byte : block.view(dataset.end, static_cast<std::size_t>(bytes))) {
            length = length << 8 | byte;
        }
        dataset.end += bytes;
    }
    if (dataset.end > block.length() || length > block.length() - dataset.end) return std::nullopt;
    dataset.data = block.part(dataset.end, length);
    dataset.end += length;
    return dataset;
}

// 1:90 names the character set of record 2 with the escape sequence of ISO 2022.
bool declaresUTF8(const Dataset& dataset)
{
    static constexpr std::uint8_t kUTF8[] = {0x1b, '%', 'G'};
    return dataset.record == 1 && dataset.number == 90 && dataset.data.beginsWith(kUTF8);
}

std::optional<std::u16string>* fieldOf(PictureProperties& properties, const Dataset& dataset)
{
    if (dataset.record != 2) return nullptr;
    switch (dataset.number) {
    case 90: return &properties.city;
    case 95: return &properties.state;
    case 101: return &properties.country;
    case 120: return &properties.caption;
    default: return nullptr;
    }
}
}  // namespace

void readIptcRecord(const ByteBlock& record, PictureProperties& properties)
{
    std::uint64_t position = 0;
    bool isUTF8 = false;
    while (const std::optional<Dataset> dataset = readDataset(record, position)) {
        position = dataset->end;
        properties.hasIptc = true;
        if (declaresUTF8(*dataset)) isUTF8 = true;
        std::optional<std::u16string>* field = fieldOf(properties, *dataset);
        if (field == nullptr || field->has_value()) continue;
        const auto length = std::min<std::uint64_t>(dataset->data.length(), kMaxViewLength);
        const ByteView bytes = dataset->data.view(0, static_cast<std::size_t>(length));
        *field = isUTF8 ? decodeUTF8Text(bytes) : decodeUndeclaredText(bytes);
    }
}

}  // namespace pinorama
