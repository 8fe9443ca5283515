#include "pictures/pixels/av1_image.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <utility>
#include <vector>

namespace pinorama {
namespace {
constexpr std::uint64_t kMaxBytes = 32 << 20;
constexpr unsigned kMaxPixels = 64u << 20;

// The library's records as far as they are used, declared here because nobody needs it to build the
// program. Both versions that are known have them in common; the room after them is more than the
// longest has.
struct Settings {
    int threads;
    int maxFrameDelay;
    int appliesGrain;
    int operatingPoint;
    int isOfAllLayers;
    unsigned maxPixels;
    alignas(16) std::byte rest[1024];
};
struct Data {
    const std::uint8_t* bytes;
    std::size_t size;
    alignas(16) std::byte rest[512];
};
struct Picture {
    const void* sequence;
    const void* frame;
    const void* planes[3];
    std::ptrdiff_t strides[2];
    int width;
    int height;
    int chroma;
    int bits;
    alignas(16) std::byte rest[1024];
};

struct Library {
    int version = 0;
    void (*defaultSettings)(Settings*) = nullptr;
    int (*open)(void**, const Settings*) = nullptr;
    void (*close)(void**) = nullptr;
    std::uint8_t* (*createData)(Data*, std::size_t) = nullptr;
    void (*releaseData)(Data*) = nullptr;
    int (*send)(void*, Data*) = nullptr;
    int (*takePicture)(void*, Picture*) = nullptr;
    void (*releasePicture)(Picture*) = nullptr;
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
    static constexpr struct {
        const char* name;
        int version;
    } kKnown[] = {{"libdav1d.so.7", 7}, {"libdav1d.so.6", 6}};
    static Library found;
    for (const auto& known : kKnown) {
        void* const file = dlopen(known.name, RTLD_NOW | RTLD_LOCAL);
        if (file == nullptr) continue;
        found.version = known.version;
        const bool isWhole = find(file, "dav1d_default_settings", &found.defaultSettings) &&
                             find(file, "dav1d_open", &found.open) &&
                             find(file, "dav1d_close", &found.close) &&
                             find(file, "dav1d_data_create", &found.createData) &&
                             find(file, "dav1d_data_unref", &found.releaseData) &&
                             find(file, "dav1d_send_data", &found.send) &&
                             find(file, "dav1d_get_picture", &found.takePicture) &&
                             find(file, "dav1d_picture_unref", &found.releasePicture);
        if (isWhole) return &found;
    }
    return nullptr;
}

const Library* library()
{
    static const Library* const loaded = load();
    return loaded;
}

// A decoder, what it decodes, and the picture that it has made.
struct Decoding {
    void* decoder = nullptr;
    Data data{};
    Picture picture{};

    Decoding() = default;
    Decoding(const Decoding&) = delete;
    Decoding& operator=(const Decoding&) = delete;
    ~Decoding()
    {
        if (decoder == nullptr) return;
        library()->releasePicture(&picture);
        library()->releaseData(&data);
        library()->close(&decoder);
    }
};

void destroy(void* decoding)
{
    delete static_cast<Decoding*>(decoding);
}

bool open(Decoding& decoding)
{
    Settings settings{};
    library()->defaultSettings(&settings);
    settings.threads = 1;  // this process can start none
    settings.maxFrameDelay = 1;
    settings.isOfAllLayers = 0;
    settings.maxPixels = kMaxPixels;
    return library()->open(&decoding.decoder, &settings) == 0;
}

// Decodes the first picture of the bytes.
bool decode(Decoding& decoding, const std::vector<std::uint8_t>& bytes)
{
    std::uint8_t* const room = library()->createData(&decoding.data, bytes.size());
    if (room == nullptr) return false;
    std::memcpy(room, bytes.data(), bytes.size());
    constexpr int kMoreWanted = -EAGAIN;
    while (true) {
        const std::size_t before = decoding.data.size;
        if (before > 0) {
            const int sent = library()->send(decoding.decoder, &decoding.data);
            if (sent != 0 && sent != kMoreWanted) return false;
        }
        const int taken = library()->takePicture(decoding.decoder, &decoding.picture);
        if (taken == 0) return true;
        if (taken != kMoreWanted || decoding.data.size == before) return false;
    }
}

// What the stream itself says of its colours.
ColourCoding codedColours(const Picture& picture)
{
    const auto* const header = static_cast<const std::byte*>(picture.sequence);
    const auto numberAt = [header](std::size_t place) {
        int number = 0;
        std::memcpy(&number, header + place * sizeof number, sizeof number);
        return number;
    };
    // A number in the older version of the library, a byte in the newer one.
    const bool isFullRange =
        library()->version == 6 ? numberAt(9) != 0 : header[33] != std::byte{0};
    return {numberAt(6), isFullRange, numberAt(4), numberAt(5)};
}
}  // namespace

bool loadAv1Decoder()
{
    return library() != nullptr;
}

std::optional<YuvImage> decodeAv1(const HeifImage& image)
try {
    if (library() == nullptr) return std::nullopt;
    const std::vector<std::uint8_t> bytes = copyOf(image.bytes, kMaxBytes);
    if (bytes.empty()) return std::nullopt;
    auto decoding = std::make_unique<Decoding>();
    if (!open(*decoding) || !decode(*decoding, bytes)) return std::nullopt;

    const Picture& picture = decoding->picture;
    YuvImage::Layout layout;
    layout.size = {picture.width, picture.height};
    layout.chroma = picture.chroma;
    for (std::size_t i = 0; i < 3; i++) {
        layout.planes[i] = {static_cast<const std::uint8_t*>(picture.planes[i]),
                            picture.strides[i == 0 ? 0 : 1], picture.bits};
    }
    const ColourCoding coded = codedColours(picture);
    return YuvImage::make(YuvImage::Owner(decoding.release(), destroy), layout,
                          image.colours.value_or(coded), image.size);
} catch (const std::exception&) {
    return std::nullopt;
}

}  // namespace pinorama
