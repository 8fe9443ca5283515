#include "pictures/pixels/picture_preview.h"

#include "pictures/byte_order.h"
#include "pictures/iso_media.h"
#include "pictures/jpeg_segments.h"
#include "pictures/pixels/cr3_jpegs.h"
#include "pictures/pixels/embedded_jpegs.h"
#include "pictures/pixels/heif_preview.h"
#include "pictures/pixels/jpeg_decode.h"
#include "pictures/pixels/jxl_image.h"
#include "pictures/pixels/raw_preview.h"
#include "pictures/psd_resources.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace pinorama {
namespace {

// Cameras pad a thumbnail of 160 x 120 with black bars when the picture has another aspect, and
// programs leave the thumbnail of a picture that was cropped since: both differ by more than this.
constexpr double kAspectTolerance = 0.03;

constexpr std::uint8_t kJpegStart[] = {0xff, 0xd8};

// What the raw formats begin with that LibRaw is asked about. Others it would only guess at.
constexpr std::string_view kRawStarts[] = {std::string_view("II*\0", 4),
                                           std::string_view("MM\0*", 4),
                                           "IIRO",
                                           "IIRS",
                                           "MMOR",
                                           std::string_view("IIU\0", 4),
                                           std::string_view("\0MRM", 4),
                                           "FUJIFILMCCD-RAW",
                                           "FOVb"};
constexpr std::string_view kCrwMark = "HEAPCCDR";
constexpr std::uint64_t kCrwMarkOffset = 6;

constexpr std::string_view kRafStart = "FUJIFILMCCD-RAW";
constexpr std::uint64_t kRafJpegOffset = 84;  // then its length, both 32 bits big-endian

bool beginsWith(const ByteBlock& block, std::string_view text)
{
    return block.beginsWith({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

bool isRaw(const ByteBlock& file)
{
    return beginsWith(file.from(kCrwMarkOffset), kCrwMark) ||
           std::any_of(std::begin(kRawStarts), std::end(kRawStarts),
                       [&](std::string_view start) { return beginsWith(file, start); });
}

PixelSize transposed(PixelSize size)
{
    return {size.height, size.width};
}

PixelSize storedBox(PixelSize box, Orientation orientation)
{
    return isTransposed(orientation) ? transposed(box) : box;
}

bool covers(PixelSize size, PixelSize wanted)
{
    return size.width >= wanted.width && size.height >= wanted.height;
}

bool fills(const PixelImage& image, PixelSize box)
{
    return image.width == box.width || image.height == box.height;
}

// Of the streams that show the whole picture and cover the box, the smallest; else nothing.
std::optional<ByteBlock> chooseStream(const EmbeddedJpegs& embedded, PixelSize picture,
                                      PixelSize box)
{
    const PixelSize wanted = fitInto(picture, box);
    std::optional<ByteBlock> best;
    PixelSize bestSize;
    for (const ByteBlock& stream : embedded.streams) {
        const PixelSize size = jpegSize(stream);
        if (!covers(size, wanted) || !hasAspectOf(size, picture, kAspectTolerance)) continue;
        if (best && size.width >= bestSize.width) continue;
        best = stream;
        bestSize = size;
    }
    return best;
}

std::optional<Preview> decodeUpright(const ByteBlock& jpeg, PixelSize stored,
                                     Orientation orientation, bool wasDecoded,
                                     const ByteBlock& whole = {})
{
    std::optional<PixelImage> image = decodeJpeg(jpeg, stored, whole);
    if (!image) return std::nullopt;
    return Preview{turnedUpright(std::move(*image), orientation), wasDecoded};
}

std::optional<Preview> previewOfJpeg(const ByteBlock& jpeg, PixelSize box)
{
    const PixelSize picture = jpegSize(jpeg);
    if (picture.width == 0) return std::nullopt;
    const EmbeddedJpegs embedded = findEmbeddedJpegs(findJpegMetadata(jpeg).exif);
    const PixelSize stored = storedBox(box, embedded.orientation);
    if (const std::optional<ByteBlock> thumbnail = chooseStream(embedded, picture, stored)) {
        std::optional<Preview> preview =
            decodeUpright(*thumbnail, stored, embedded.orientation, false, jpeg);
        if (preview) return preview;
    }
    return decodeUpright(jpeg, stored, embedded.orientation, true);
}

// The largest stream of those that are JPEG at all; {0, 0} when there is none.
PixelSize largestStream(const EmbeddedJpegs& embedded, ByteBlock* outStream)
{
    PixelSize largest;
    for (const ByteBlock& stream : embedded.streams) {
        const PixelSize size = jpegSize(stream);
        if (size.width <= largest.width) continue;
        largest = size;
        *outStream = stream;
    }
    return largest;
}

// What LibRaw finds, which also knows the previews that makers keep in places of their own, or
// `other` when that is larger.
std::optional<Preview> largerPreview(ByteSource& source, PixelSize box,
                                     std::optional<Preview> other)
{
    std::optional<PixelImage> image = makeRawPreview(source, box);
    if (!image || (other && other->image.pixels.size() >= image->pixels.size())) return other;
    return Preview{std::move(*image), false};
}

std::optional<Preview> previewOfRaw(ByteSource& source, const EmbeddedJpegs& embedded,
                                    PixelSize box)
{
    const PixelSize stored = storedBox(box, embedded.orientation);
    ByteBlock largest;
    const PixelSize largestSize = largestStream(embedded, &largest);
    const bool knowsPicture = embedded.picture.width > largestSize.width;
    const PixelSize picture = knowsPicture ? embedded.picture : largestSize;
    if (const std::optional<ByteBlock> stream = chooseStream(embedded, picture, stored)) {
        std::optional<Preview> preview =
            decodeUpright(*stream, stored, embedded.orientation, false);
        if (preview && (knowsPicture || fills(preview->image, box))) return preview;
    }
    std::optional<Preview> preview;
    if (std::optional<PixelImage> image = decodeJpeg(largest, stored)) {
        preview = Preview{
            turnedUpright(withoutBars(std::move(*image), picture), embedded.orientation), false};
    }
    return largerPreview(source, box, std::move(preview));
}

// The JPEG picture that a Fujifilm raw file holds: the whole picture with metadata of its own.
ByteBlock jpegOfRaf(const ByteBlock& raf)
{
    const ByteView place = raf.view(kRafJpegOffset, 8);
    if (place.empty()) return {};
    return raf.part(bigEndian32(place.data()), bigEndian32(place.data() + 4));
}

// The thumbnail in the Exif data of a picture that cannot be decoded.
std::optional<Preview> previewOfExif(const ByteBlock& file, PixelSize box)
{
    const EmbeddedJpegs embedded = findEmbeddedJpegs(findIsoMetadata(file).exif);
    const PixelSize stored = storedBox(box, embedded.orientation);
    ByteBlock largest;
    if (largestStream(embedded, &largest).width == 0) return std::nullopt;
    std::optional<Preview> preview = decodeUpright(largest, stored, embedded.orientation, false);
    if (preview) preview->image = withoutBars(std::move(preview->image), embedded.picture);
    return preview;
}
}  // namespace

std::optional<Preview> makePreview(ByteSource& source, std::int32_t maxWidth,
                                   std::int32_t maxHeight)
{
    const PixelSize box = {maxWidth, maxHeight};
    const ByteBlock file(source);
    if (maxWidth <= 0 || maxHeight <= 0 || file.isEmpty()) return std::nullopt;
    if (file.beginsWith(kJpegStart)) return previewOfJpeg(file, box);
    if (!isRaw(file)) return std::nullopt;
    if (beginsWith(file, kRafStart)) {
        std::optional<Preview> preview = previewOfJpeg(jpegOfRaf(file), box);
        if (preview) preview->wasDecoded = false;
        if (preview && fills(preview->image, box)) return preview;
        return largerPreview(source, box, std::move(preview));
    }
    return previewOfRaw(source, findEmbeddedJpegs(file), box);
}

std::optional<Preview> makeMorePreview(ByteSource& source, std::int32_t maxWidth,
                                       std::int32_t maxHeight)
{
    const PixelSize box = {maxWidth, maxHeight};
    const ByteBlock file(source);
    const bool isOther = isIsoMedia(file) || isPsd(file) || isJxl(file);
    if (!isOther) return makePreview(source, maxWidth, maxHeight);
    if (maxWidth <= 0 || maxHeight <= 0) return std::nullopt;
    if (isPsd(file)) return decodeUpright(findPsdThumbnail(file), box, 1, false);
    if (isJxl(file)) {
        if (auto image = decodeJxl(file, box)) return Preview{std::move(*image), true};
        return previewOfExif(file, box);
    }
    if (std::optional<Preview> preview = makeHeifPreview(file, box)) return preview;
    const EmbeddedJpegs embedded = findCr3Jpegs(file);
    if (embedded.streams.empty()) return previewOfExif(file, box);
    return previewOfRaw(source, embedded, box);
}

}  // namespace pinorama
