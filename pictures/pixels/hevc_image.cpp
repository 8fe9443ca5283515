#include "pictures/pixels/hevc_image.h"

#include <dlfcn.h>

#include <exception>
#include <utility>
#include <vector>

struct de265_image;

namespace pinorama {
namespace {
constexpr const char* kLibrary = "libde265.so.0";
constexpr std::uint32_t kKnownVersion = 1;  // major

constexpr std::uint64_t kMaxUnit = 32 << 20;  // bytes

// Values of the library's enumerations.
constexpr int kFirstWarning = 1000;  // smaller numbers but 0 are errors
constexpr int kNoDeblocking = 7;
constexpr int kNoSampleOffset = 8;

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
    const std::vector<std::uint8_t> bytes = copyOf(unit, kMaxUnit);
    if (bytes.empty()) return false;
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

// Nothing if a plane is smaller than it has to be.
std::optional<YuvImage::Layout> layoutOf(const de265_image* image)
{
    const Library& decoder = *library();
    YuvImage::Layout layout;
    layout.size = {decoder.width(image, 0), decoder.height(image, 0)};
    layout.chroma = decoder.chroma(image);
    const bool isHalfWide = layout.chroma == YuvImage::k420 || layout.chroma == YuvImage::k422;
    const bool isHalfHigh = layout.chroma == YuvImage::k420;
    const int planes = layout.chroma == YuvImage::kMonochrome ? 1 : 3;
    for (int i = 0; i < planes; i++) {
        YuvImage::Plane& plane = layout.planes[i];
        int stride = 0;
        plane.bytes = decoder.plane(image, i, &stride);
        plane.stride = stride;
        plane.bits = decoder.bits(image, i);
        const int width = i != 0 && isHalfWide ? (layout.size.width + 1) / 2 : layout.size.width;
        const int height = i != 0 && isHalfHigh ? (layout.size.height + 1) / 2 : layout.size.height;
        if (decoder.width(image, i) < width || decoder.height(image, i) < height) {
            return std::nullopt;
        }
    }
    return layout;
}
}  // namespace

bool loadHevcDecoder()
{
    return library() != nullptr;
}

// The library keeps most of its exceptions to itself; a lack of memory comes through.
std::optional<YuvImage> decodeHevc(const HeifImage& image, bool quick)
try {
    if (library() == nullptr) return std::nullopt;
    YuvImage::Owner decoder(library()->newDecoder(), freeDecoder);
    if (!decoder) return std::nullopt;
    if (quick) {
        library()->setParameter(decoder.get(), kNoDeblocking, 1);
        library()->setParameter(decoder.get(), kNoSampleOffset, 1);
    }
    const std::size_t lengthSize = pushConfiguration(decoder.get(), image.configuration);
    if (lengthSize == 0 || !pushImage(decoder.get(), image.bytes, lengthSize)) return std::nullopt;
    const de265_image* const decoded = decodedBy(decoder.get());
    if (decoded == nullptr) return std::nullopt;
    const ColourCoding coded = {library()->matrix(decoded), library()->isFullRange(decoded) != 0};
    const std::optional<YuvImage::Layout> layout = layoutOf(decoded);
    if (!layout) return std::nullopt;
    return YuvImage::make(std::move(decoder), *layout, image.colours.value_or(coded), image.size);
} catch (const std::exception&) {
    return std::nullopt;
}

}  // namespace pinorama
