#include "pictures/jpeg_segments.h"

#include "pictures/byte_order.h"
#include "pictures/tiff_directory.h"

#include <array>
#include <optional>

namespace pinorama {
namespace {

constexpr std::uint8_t kPrefix = 0xff;
constexpr std::uint8_t kStartOfImage = 0xd8;
constexpr std::uint8_t kEndOfImage = 0xd9;
constexpr std::uint8_t kStartOfScan = 0xda;
constexpr std::uint8_t kApp1 = 0xe1;
constexpr std::uint8_t kApp2 = 0xe2;
constexpr std::uint8_t kApp13 = 0xed;

// The fifth letter is a zero byte; what the sixth is does not matter to anybody.
constexpr std::uint8_t kExifName[] = {'E', 'x', 'i', 'f', 0};
constexpr std::uint64_t kExifHeader = 6;
constexpr std::uint8_t kPhotoshopName[] = {'P', 'h', 'o', 't', 'o', 's', 'h',
                                           'o', 'p', ' ', '3', '.', '0', 0};

constexpr std::uint8_t kProfileName[] = {'I', 'C', 'C', '_', 'P', 'R', 'O', 'F', 'I', 'L', 'E', 0};

// With their zero bytes.
constexpr char kXmpName[] = "http://ns.adobe.com/xap/1.0/";
constexpr char kXmpPieceName[] = "http://ns.adobe.com/xmp/extension/";

// Foreign bytes and fill bytes that are stepped over in a whole picture.
constexpr std::uint64_t kMaxForeignBytes = 65536;

// Markers that stand alone: TEM, the restart markers, another start of image.
bool standsAlone(std::uint8_t marker)
{
    return marker == 0x01 || (marker >= 0xd0 && marker <= kStartOfImage);
}

struct Segment {
    std::uint8_t marker;
    ByteBlock content;
};

// Steps from segment to segment.
class Segments {
public:
    explicit Segments(const ByteBlock& jpeg) : jpeg_(jpeg) {}

    // The next segment with content; nothing where the picture data begins or everything ends.
    std::optional<Segment> next()
    {
        while (const std::optional<std::uint8_t> marker = nextMarker()) {
            if (standsAlone(*marker)) continue;
            if (*marker == kStartOfScan || *marker == kEndOfImage) break;
            const ByteView sizeBytes = jpeg_.view(position_, 2);
            if (sizeBytes.empty()) break;
            // The length counts its own two bytes.
            const std::uint64_t size = bigEndian16(sizeBytes.data());
            if (size < 2) break;
            const Segment segment{*marker, jpeg_.part(position_ + 2, size - 2)};
            position_ += size;
            return segment;
        }
        return std::nullopt;
    }

private:
    std::optional<std::uint8_t> nextMarker()
    {
        bool isAfterPrefix = false;
        while (true) {
            const ByteView byte = jpeg_.view(position_, 1);
            if (byte.empty()) return std::nullopt;
            ++position_;
            if (isAfterPrefix && byte[0] != kPrefix && byte[0] != 0) return byte[0];
            // A second prefix is a fill byte; a zero after it makes it ordinary data.
            if (byte[0] != kPrefix || isAfterPrefix) {
                if (++foreignBytes_ > kMaxForeignBytes) return std::nullopt;
            }
            isAfterPrefix = byte[0] == kPrefix;
        }
    }

    ByteBlock jpeg_;
    std::uint64_t position_ = 2;  // after the start of the image
    std::uint64_t foreignBytes_ = 0;
};

template <std::size_t size>
bool beginsWithName(const ByteBlock& content, const char (&name)[size])
{
    return content.beginsWith({reinterpret_cast<const std::uint8_t*>(name), size});
}

void takeXmp(const ByteBlock& content, JpegXmp& xmp)
{
    if (xmp.packet.isEmpty() && beginsWithName(content, kXmpName)) {
        xmp.packet = content.from(sizeof kXmpName);
    } else if (xmp.pieces.size() < JpegXmp::kMaxPieces && beginsWithName(content, kXmpPieceName)) {
        xmp.pieces.push_back(content.from(sizeof kXmpPieceName));
    }
}
}  // namespace

bool isJpeg(const ByteBlock& picture)
{
    static constexpr std::uint8_t kStart[] = {kPrefix, kStartOfImage};
    return picture.beginsWith(kStart);
}

JpegMetadata findJpegMetadata(const ByteBlock& jpeg, WithXmp withXmp)
{
    JpegMetadata found;
    Segments segments(jpeg);
    while (const std::optional<Segment> segment = segments.next()) {
        const ByteBlock& content = segment->content;
        if (segment->marker == kApp1 && found.exif.isEmpty() && content.beginsWith(kExifName)) {
            const ByteBlock tiff = content.from(kExifHeader);
            if (TiffBlock::open(tiff)) found.exif = tiff;
        } else if (segment->marker == kApp1 && withXmp == WithXmp::yes) {
            takeXmp(content, found.xmp);
        } else if (segment->marker == kApp13 && content.beginsWith(kPhotoshopName)) {
            found.photoshop.push_back(content.from(sizeof kPhotoshopName));
        }
    }
    return found;
}

std::vector<std::uint8_t> findJpegProfile(const ByteBlock& jpeg, std::size_t maxLength)
{
    // Each piece has its number, from 1 on, and how many there are.
    std::array<ByteBlock, 255> pieces;
    std::size_t count = 0;
    Segments segments(jpeg);
    while (const std::optional<Segment> segment = segments.next()) {
        if (segment->marker != kApp2 || !segment->content.beginsWith(kProfileName)) continue;
        const ByteView numbers = segment->content.view(sizeof kProfileName, 2);
        if (numbers.empty() || numbers[0] == 0 || numbers[0] > numbers[1]) return {};
        count = numbers[1];
        pieces[numbers[0] - 1u] = segment->content.from(sizeof kProfileName + 2);
    }
    std::vector<std::uint8_t> profile;
    for (std::size_t i = 0; i < count; i++) {
        const ByteBlock& piece = pieces[i];
        const ByteView bytes = piece.view(0, static_cast<std::size_t>(piece.length()));
        if (bytes.empty() || profile.size() + bytes.size() > maxLength) return {};
        profile.insert(profile.end(), bytes.begin(), bytes.end());
    }
    return profile;
}

}  // namespace pinorama
