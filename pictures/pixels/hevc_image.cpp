#include "pictures/pixels/hevc_image.h"

#include <dlfcn.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>
#include <vector>

namespace pinorama {
namespace {
constexpr const char* kLibrary = "libde265.so.0";
constexpr std::uint32_t kKnownVersion = 1;  // major

constexpr std::uint64_t kMaxUnit = 32 << 20;  // bytes
constexpr int kMaxSide = 16384;               // pixels; HEVC has no larger images

// Values of the library's enumerations.
constexpr int kFirstWarning = 1000;  // smaller numbers but 0 are errors
constexpr int kNoDeblocking = 7;
constexpr int kNoSampleOffset = 8;
enum : int { kMonochrome, k420, k422, k444 };

// What is used of the library, declared here because nobody needs it to build the program.
struct Library {
    std::uint32_t (*version)() = nullptr;
    void* (*newDecoder)() = nullptr;
    int (*freeDecoder)(void*) = nullptr;
    void (*setParameter)(void*, int, int) = nullptr;
    int (*pushUnit)(void*, const void*, int, std::int64_t, void*) = nullptr;
    int (*flush)(void*) = nullptr;
    int (*decode)(void*, int*) = nullptr;
    const de265_image* (*nextPicture)(void*) = nullptr;
    int (*width)(const de265_image*, int) = nullptr;
    int (*height)(const de265_image*, int) = nullptr;
    int (*chroma)(const de265_image*) = nullptr;
    int (*bits)(const de265_image*, int) = nullptr;
    const std::uint8_t* (*plane)(const de265_image*, int, int*) = nullptr;
    int (*isFullRange)(const de265_image*) = nullptr;
    int (*matrix)(const de265_image*) = nullptr;
};

template <typename Function>
bool find(void* library, const char* name, Function* out)
{
    *out = reinterpret_cast<Function>(dlsym(library, name));
    return *out != nullptr;
}

// The library, for as long as this process runs; null without one.
const Library* load()
{
    static Library found;
    void* const file = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
    if (file == nullptr) return nullptr;
    const bool isWhole = find(file, "de265_get_version_number", &found.version) &&
                         find(file, "de265_new_decoder", &found.newDecoder) &&
                         find(file, "de265_free_decoder", &found.freeDecoder) &&
                         find(file, "de265_set_parameter_bool", &found.setParameter) &&
                         find(file, "de265_push_NAL", &found.pushUnit) &&
                         find(file, "de265_flush_data", &found.flush) &&
                         find(file, "de265_decode", &found.decode) &&
                         find(file, "de265_get_next_picture", &found.nextPicture) &&
                         find(file, "de265_get_image_width", &found.width) &&
                         find(file, "de265_get_image_height", &found.height) &&
                         find(file, "de265_get_chroma_format", &found.chroma) &&
                         find(file, "de265_get_bits_per_pixel", &found.bits) &&
                         find(file, "de265_get_image_plane", &found.plane) &&
                         find(file, "de265_get_image_full_range_flag", &found.isFullRange) &&
                         find(file, "de265_get_image_matrix_coefficients", &found.matrix);
    if (!isWhole || found.version() >> 24 != kKnownVersion) return nullptr;
    return &found;
}

const Library* library()
{
    static const Library* const loaded = load();
    return loaded;
}

void freeDecoder(void* decoder)
{
    (void)library()->freeDecoder(decoder);
}

bool isFine(int result)
{
    return result == 0 || result >= kFirstWarning;
}

// Hands one unit of the stream to the decoder.
bool push(void* decoder, const ByteBlock& unit)
{
    if (unit.isEmpty() || unit.length() > kMaxUnit) return false;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(unit.length());
    while (bytes.size() < unit.length()) {
        const auto wanted = std::min<std::uint64_t>(unit.length() - bytes.size(), kMaxViewLength);
        const ByteView part = unit.view(bytes.size(), wanted);
        if (part.empty()) return false;
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return isFine(
        library()->pushUnit(decoder, bytes.data(), static_cast<int>(bytes.size()), 0, nullptr));
}

// Hands over what the decoder has to know in front of the image. Returns how many bytes long the
// lengths of the image's units are, 0 if the record is malformed.
// Source: ISO/IEC 14496-15, 8.3.3.1.
std::size_t pushConfiguration(void* decoder, const ByteBlock& hvcc)
{
    constexpr std::uint64_t kLengthSizeAt = 21;
    const ByteView start = hvcc.view(kLengthSizeAt, 2);
    if (start.empty()) return 0;
    const std::size_t lengthSize = (start[0] & 3u) + 1;
    int arrays = start[1];
    std::uint64_t position = kLengthSizeAt + 2;
    for (; arrays > 0; arrays--) {
        const ByteView count = hvcc.view(position + 1, 2);
        if (count.empty()) return 0;
        position += 3;
        for (int left = count[0] << 8 | count[1]; left > 0; left--) {
            const ByteView length = hvcc.view(position, 2);
            if (length.empty()) return 0;
            const std::uint64_t size = static_cast<std::uint64_t>(length[0]) << 8 | length[1];
            if (!push(decoder, hvcc.part(position + 2, size))) return 0;
            position += 2 + size;
        }
    }
    return lengthSize;
}

bool pushImage(void* decoder, const ByteBlock& bytes, std::size_t lengthSize)
{
    std::uint64_t position = 0;
    while (position < bytes.length()) {
        const ByteView length = bytes.view(position, lengthSize);
        if (length.empty()) return position != 0;  // cut off: what is there may do
        std::uint64_t size = 0;
        for (const std::uint8_t byte : length) size = size << 8 | byte;
        position += lengthSize;
        if (!push(decoder, bytes.part(position, size))) return false;
        position += size;
    }
    return position != 0;
}

const de265_image* decodedBy(void* decoder)
{
    (void)library()->flush(decoder);
    int isMore = 1;
    while (isMore != 0) {
        isMore = 0;
        const bool isWell = isFine(library()->decode(decoder, &isMore));
        if (const de265_image* image = library()->nextPicture(decoder)) return image;
        if (!isWell) break;
    }
    return nullptr;
}

std::uint32_t clamped(int value)
{
    return static_cast<std::uint32_t>(std::clamp(value >> 16, 0, 255));
}
}  // namespace

bool loadHevcDecoder()
{
    return library() != nullptr;
}

// The library keeps most of its exceptions to itself; a lack of memory comes through.
std::optional<HevcImage> HevcImage::decode(const HeifImage& image, bool quick)
try {
    if (library() == nullptr) return std::nullopt;
    Decoder decoder(library()->newDecoder(), freeDecoder);
    if (!decoder) return std::nullopt;
    if (quick) {
        library()->setParameter(decoder.get(), kNoDeblocking, 1);
        library()->setParameter(decoder.get(), kNoSampleOffset, 1);
    }
    const std::size_t lengthSize = pushConfiguration(decoder.get(), image.configuration);
    if (lengthSize == 0 || !pushImage(decoder.get(), image.bytes, lengthSize)) return std::nullopt;
    const de265_image* const decoded = decodedBy(decoder.get());
    HevcImage result(std::move(decoder));
    if (decoded == nullptr || !result.take(decoded, image.colours)) return std::nullopt;
    // Some cameras code whole blocks and say only here how much of them is the image.
    const PixelSize stated = image.size;
    if (stated.width > 0) result.size_.width = std::min(result.size_.width, stated.width);
    if (stated.height > 0) result.size_.height = std::min(result.size_.height, stated.height);
    return std::optional<HevcImage>(std::move(result));
} catch (const std::exception&) {
    return std::nullopt;
}

bool HevcImage::take(const de265_image* image, const std::optional<ColourCoding>& colours)
{
    const Library& decoder = *library();
    size_ = {decoder.width(image, 0), decoder.height(image, 0)};
    if (size_.width <= 0 || size_.height <= 0 || std::max(size_.width, size_.height) > kMaxSide) {
        return false;
    }
    const int chroma = decoder.chroma(image);
    hasColours_ = chroma != kMonochrome;
    shiftX_ = chroma == k420 || chroma == k422 ? 1 : 0;
    shiftY_ = chroma == k420 ? 1 : 0;
    for (int i = 0; i < (hasColours_ ? 3 : 1); i++) {
        Plane& plane = planes_[i];
        plane.bytes = decoder.plane(image, i, &plane.stride);
        plane.bits = decoder.bits(image, i);
        const int sampleSize = plane.bits > 8 ? 2 : 1;
        const int width = i == 0 ? size_.width : (size_.width + shiftX_) >> shiftX_;
        const int height = i == 0 ? size_.height : (size_.height + shiftY_) >> shiftY_;
        const bool isSound = plane.bytes != nullptr && plane.bits >= 8 && plane.bits <= 16 &&
                             decoder.width(image, i) >= width &&
                             decoder.height(image, i) >= height &&
                             plane.stride >= width * sampleSize;
        if (!isSound) return false;
    }
    setColours(
        colours.value_or(ColourCoding{decoder.matrix(image), decoder.isFullRange(image) != 0}));
    return true;
}

// Source: ITU-T H.273, 8.3.
void HevcImage::setColours(ColourCoding colours)
{
    double red = 0.299;
    double blue = 0.114;
    if (colours.matrix == 1) red = 0.2126, blue = 0.0722;
    if (colours.matrix == 9 || colours.matrix == 10) red = 0.2627, blue = 0.0593;
    const double green = 1 - red - blue;
    const double one = 65536;
    const double luma = colours.isFullRange ? 1 : 255.0 / 219;
    const double chroma = colours.isFullRange ? 1 : 255.0 / 224;
    const auto fixed = [one](double value) { return static_cast<int>(std::lround(value * one)); };
    luma_ = fixed(luma);
    lumaOffset_ = colours.isFullRange ? 0 : 16;
    redOfV_ = fixed(2 * (1 - red) * chroma);
    blueOfU_ = fixed(2 * (1 - blue) * chroma);
    greenOfV_ = fixed(2 * (1 - red) * red / green * chroma);
    greenOfU_ = fixed(2 * (1 - blue) * blue / green * chroma);
}

int HevcImage::sample(int channel, std::int32_t x, std::int32_t y) const
{
    const Plane& plane = planes_[channel];
    const std::uint8_t* row = plane.bytes + static_cast<std::ptrdiff_t>(y) * plane.stride;
    if (plane.bits == 8) return row[x];
    // The library keeps them in the byte order of the machine.
    return reinterpret_cast<const std::uint16_t*>(row)[x] >> (plane.bits - 8);
}

void HevcImage::readRow(std::int32_t y, std::uint32_t* out) const
{
    constexpr std::uint32_t kOpaque = 0xff000000;
    constexpr int kHalf = 1 << 15;
    for (std::int32_t x = 0; x < size_.width; x++) {
        const int luma = (sample(0, x, y) - lumaOffset_) * luma_ + kHalf;
        const int u = hasColours_ ? sample(1, x >> shiftX_, y >> shiftY_) - 128 : 0;
        const int v = hasColours_ ? sample(2, x >> shiftX_, y >> shiftY_) - 128 : 0;
        out[x] = kOpaque | clamped(luma + redOfV_ * v) << 16 |
                 clamped(luma - greenOfU_ * u - greenOfV_ * v) << 8 | clamped(luma + blueOfU_ * u);
    }
}

}  // namespace pinorama
