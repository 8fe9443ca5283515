#include "pictures/pixels/jxl_image.h"

#include "pictures/pixels/colour_profile.h"

#include <dlfcn.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <vector>

namespace pinorama {
namespace {
constexpr std::uint64_t kMaxBytes = 64 << 20;
constexpr std::uint64_t kMaxPixels = 40 << 20;
constexpr std::uint32_t kMaxSide = 65536;

// Values of the library's enumerations.
constexpr int kDone = 0;
constexpr int kBufferWanted = 5;
constexpr int kBasicInfo = 0x40;
constexpr int kColours = 0x100;
constexpr int kFullImage = 0x1000;
constexpr int kOfPixels = 1;  // the colours of what is decoded

// The library's records as far as they are used, declared here because nobody needs it to build the
// program. The room after the first one is more than the library writes.
struct BasicInfo {
    int hasContainer;
    std::uint32_t width;  // upright
    std::uint32_t height;
    alignas(16) std::byte rest[1024];
};
struct PixelFormat {
    std::uint32_t channels;
    int type;  // 2: bytes
    int order;
    std::size_t alignment;
};

// The functions for colours have lost an argument in version 0.9.
using ColourSize = int (*)(const void*, int, std::size_t*);
using OldColourSize = int (*)(const void*, const PixelFormat*, int, std::size_t*);
using Colours = int (*)(const void*, int, std::uint8_t*, std::size_t);
using OldColours = int (*)(const void*, const PixelFormat*, int, std::uint8_t*, std::size_t);
constexpr std::uint32_t kFirstWithoutFormat = 9000;

struct Library {
    std::uint32_t (*version)() = nullptr;
    void* (*create)(const void*) = nullptr;
    void (*destroy)(void*) = nullptr;
    int (*subscribe)(void*, int) = nullptr;
    int (*setInput)(void*, const std::uint8_t*, std::size_t) = nullptr;
    void (*closeInput)(void*) = nullptr;
    int (*process)(void*) = nullptr;
    int (*basicInfo)(const void*, BasicInfo*) = nullptr;
    int (*setBuffer)(void*, const PixelFormat*, void*, std::size_t) = nullptr;
    void* colourSize = nullptr;
    void* colours = nullptr;
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
    static constexpr const char* kNames[] = {"libjxl.so.0.11", "libjxl.so.0.10", "libjxl.so.0.9",
                                             "libjxl.so.0.8", "libjxl.so.0.7"};
    static Library found;
    for (const char* name : kNames) {
        void* const file = dlopen(name, RTLD_NOW | RTLD_LOCAL);
        if (file == nullptr) continue;
        const bool isWhole = find(file, "JxlDecoderVersion", &found.version) &&
                             find(file, "JxlDecoderCreate", &found.create) &&
                             find(file, "JxlDecoderDestroy", &found.destroy) &&
                             find(file, "JxlDecoderSubscribeEvents", &found.subscribe) &&
                             find(file, "JxlDecoderSetInput", &found.setInput) &&
                             find(file, "JxlDecoderCloseInput", &found.closeInput) &&
                             find(file, "JxlDecoderProcessInput", &found.process) &&
                             find(file, "JxlDecoderGetBasicInfo", &found.basicInfo) &&
                             find(file, "JxlDecoderSetImageOutBuffer", &found.setBuffer) &&
                             find(file, "JxlDecoderGetICCProfileSize", &found.colourSize) &&
                             find(file, "JxlDecoderGetColorAsICCProfile", &found.colours);
        if (isWhole) return &found;
    }
    return nullptr;
}

const Library* library()
{
    static const Library* const loaded = load();
    return loaded;
}

constexpr PixelFormat kFormat = {4, 2, 0, 0};  // red, green, blue and alpha

class Decoding {
public:
    explicit Decoding(const std::vector<std::uint8_t>& bytes)
        : decoder_(library()->create(nullptr), library()->destroy)
    {
        if (!decoder_) return;
        (void)library()->subscribe(decoder_.get(), kBasicInfo | kColours | kFullImage);
        (void)library()->setInput(decoder_.get(), bytes.data(), bytes.size());
        library()->closeInput(decoder_.get());
    }

    // Decodes the first image; false if there is none.
    bool run()
    {
        while (decoder_) {
            switch (library()->process(decoder_.get())) {
            case kBasicInfo:
                if (!takeSize()) return false;
                break;
            case kColours: takeProfile(); break;
            case kBufferWanted:
                pixels_.resize(std::size_t{4} * static_cast<std::size_t>(size_.width) *
                               static_cast<std::size_t>(size_.height));
                if (pixels_.empty() || library()->setBuffer(decoder_.get(), &kFormat,
                                                            pixels_.data(), pixels_.size()) != 0) {
                    return false;
                }
                break;
            case kFullImage: return true;
            default: return false;  // an error, a part that is missing, or the end
            }
        }
        return false;
    }

    PixelImage scaled(PixelSize box) const
    {
        RowScaler scaler(size_, fitInto(size_, box));
        std::vector<std::uint32_t> row(static_cast<std::size_t>(size_.width));
        const std::uint8_t* next = pixels_.data();
        for (std::int32_t y = 0; y < size_.height; y++) {
            for (std::uint32_t& pixel : row) {
                const std::uint32_t alpha = next[3];
                const auto part = [alpha](std::uint32_t value) { return value * alpha / 255; };
                pixel = alpha << 24 | part(next[0]) << 16 | part(next[1]) << 8 | part(next[2]);
                next += 4;
            }
            scaler.addRow(row.data());
        }
        PixelImage image = scaler.take(0);
        if (profile_) profile_->convertToSrgb(image);
        return image;
    }

private:
    bool takeSize()
    {
        BasicInfo info{};
        if (library()->basicInfo(decoder_.get(), &info) != kDone) return false;
        if (info.width == 0 || info.height == 0 || info.width > kMaxSide ||
            info.height > kMaxSide || std::uint64_t{info.width} * info.height > kMaxPixels) {
            return false;
        }
        size_ = {static_cast<std::int32_t>(info.width), static_cast<std::int32_t>(info.height)};
        return true;
    }

    void takeProfile()
    {
        const bool isOld = library()->version() < kFirstWithoutFormat;
        const void* const decoder = decoder_.get();
        std::size_t size = 0;
        const int sizeResult =
            isOld ? reinterpret_cast<OldColourSize>(library()->colourSize)(decoder, &kFormat,
                                                                           kOfPixels, &size)
                  : reinterpret_cast<ColourSize>(library()->colourSize)(decoder, kOfPixels, &size);
        if (sizeResult != kDone || size == 0 || size > kMaxProfileLength) return;
        std::vector<std::uint8_t> icc(size);
        const int result = isOld ? reinterpret_cast<OldColours>(library()->colours)(
                                       decoder, &kFormat, kOfPixels, icc.data(), icc.size())
                                 : reinterpret_cast<Colours>(library()->colours)(
                                       decoder, kOfPixels, icc.data(), icc.size());
        if (result == kDone) profile_ = ColourProfile::fromIcc(ByteView(icc));
    }

    std::unique_ptr<void, void (*)(void*)> decoder_;
    PixelSize size_{};
    std::vector<std::uint8_t> pixels_;
    std::optional<ColourProfile> profile_;
};
}  // namespace

bool loadJxlDecoder()
{
    return library() != nullptr;
}

bool isJxl(const ByteBlock& file)
{
    static constexpr std::uint8_t kContainer[] = {0,   0,   0,    12,   'J',  'X',
                                                  'L', ' ', 0x0d, 0x0a, 0x87, 0x0a};
    static constexpr std::uint8_t kBare[] = {0xff, 0x0a};
    return file.beginsWith(kContainer) || file.beginsWith(kBare);
}

std::optional<PixelImage> decodeJxl(const ByteBlock& file, PixelSize box)
try {
    if (library() == nullptr || box.width <= 0 || box.height <= 0) return std::nullopt;
    const std::vector<std::uint8_t> bytes = copyOf(file, kMaxBytes);
    if (bytes.empty()) return std::nullopt;
    Decoding decoding(bytes);
    if (!decoding.run()) return std::nullopt;
    return decoding.scaled(box);
} catch (const std::exception&) {
    return std::nullopt;
}

}  // namespace pinorama
