#include "pictures/pixels/raw_preview.h"

#include "pictures/pixels/jpeg_decode.h"

#include <libraw/libraw.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>

namespace pinorama {
namespace {
constexpr std::uint64_t kMaxOffset = INT64_MAX;
constexpr std::uint32_t kOpaque = 0xff000000;

// LibRaw 0.20 wants this of every stream, 0.21 when it is built for old video formats, and later
// ones do not know it. It overrides where there is something to override, and stands in a class of
// its own because compilers want all or none of a class marked.
class WithoutJasper : public LibRaw_abstract_datastream {
public:
    void* make_jas_stream() { return nullptr; }  // NOLINT(modernize-use-override)
};

// What LibRaw reads the file through: no path, only reads at offsets.
class SourceStream : public WithoutJasper {
public:
    explicit SourceStream(ByteSource& bytes) : bytes_(bytes) {}

    int valid() override { return 1; }
    INT64 size() override { return static_cast<INT64>(std::min(bytes_.size(), kMaxOffset)); }
    INT64 tell() override { return position_; }
    int eof() override { return position_ >= size(); }
    int lock() override { return 1; }
    // Only for formats that are text at their beginning, none of which is a camera's.
    int scanf_one(const char* /*format*/, void* /*value*/) override { return -1; }

    int seek(INT64 offset, int whence) override
    {
        INT64 base = 0;
        if (whence == SEEK_CUR) base = position_;
        if (whence == SEEK_END) base = size();
        INT64 target = 0;
        if (__builtin_add_overflow(base, offset, &target)) return -1;
        position_ = std::clamp<INT64>(target, 0, size());
        return 0;
    }

    int read(void* dest, size_t itemSize, size_t itemCount) override
    {
        size_t wanted = 0;
        if (itemSize == 0 || __builtin_mul_overflow(itemSize, itemCount, &wanted)) return 0;
        size_t done = 0;
        while (done < wanted) {
            const ByteView bytes = next(wanted - done);
            if (bytes.empty()) break;
            std::memcpy(static_cast<char*>(dest) + done, bytes.data(), bytes.size());
            position_ += static_cast<INT64>(bytes.size());
            done += bytes.size();
        }
        return static_cast<int>(done / itemSize);
    }

    int get_char() override
    {
        const ByteView byte = next(1);
        if (byte.empty()) return -1;
        position_++;
        return byte[0];
    }

    char* gets(char* line, int size) override
    {
        int length = 0;
        while (length + 1 < size) {
            const int c = get_char();
            if (c < 0) break;
            line[length++] = static_cast<char>(c);
            if (c == '\n') break;
        }
        if (length == 0) return nullptr;
        line[length] = '\0';
        return line;
    }

private:
    // The bytes from the position on that one view can give, at most `wanted`.
    ByteView next(std::size_t wanted)
    {
        const auto left = static_cast<std::uint64_t>(size() - position_);
        return bytes_.view(
            static_cast<std::uint64_t>(position_),
            static_cast<std::size_t>(std::min<std::uint64_t>({wanted, left, kMaxViewLength})));
    }

    ByteSource& bytes_;
    INT64 position_ = 0;
};

// LibRaw gives the orientation in bits (1 mirrors, 2 flips, 4 transposes).
Orientation orientationOfFlip(int flip)
{
    constexpr Orientation kOrientations[] = {1, 2, 4, 3, 5, 8, 6, 7};
    return flip >= 0 && flip < 8 ? kOrientations[flip] : 1;
}

std::optional<PixelImage> scaledBitmap(const libraw_thumbnail_t& bitmap, PixelSize box)
{
    const PixelSize size = {bitmap.twidth, bitmap.theight};
    const std::size_t channels = static_cast<std::size_t>(std::clamp(bitmap.tcolors, 0, 4));
    const PixelSize wanted = fitInto(size, box);
    const std::size_t rowBytes = channels * bitmap.twidth;
    if (wanted.width == 0 || (channels != 1 && channels != 3)) return std::nullopt;
    if (bitmap.tlength < rowBytes * bitmap.theight) return std::nullopt;

    RowScaler scaler(size, wanted);
    std::vector<std::uint32_t> row(bitmap.twidth);
    const unsigned char* next = reinterpret_cast<const unsigned char*>(bitmap.thumb);
    while (scaler.rowsMissing() > 0) {
        for (std::uint32_t& pixel : row) {
            const std::size_t step = channels == 3 ? 1 : 0;
            pixel = kOpaque | std::uint32_t{next[0]} << 16 | std::uint32_t{next[step]} << 8 |
                    next[2 * step];
            next += channels;
        }
        scaler.addRow(row.data());
    }
    return scaler.take(kOpaque);
}
}  // namespace

// LibRaw keeps its own exceptions to itself; what may come through is a lack of memory.
std::optional<PixelImage> makeRawPreview(ByteSource& source, PixelSize box)
try {
    SourceStream stream(source);
    const auto raw = std::make_unique<LibRaw>();
    raw->set_dataerror_handler(nullptr, nullptr);  // it would write to standard error
    if (raw->open_datastream(&stream) != LIBRAW_SUCCESS) return std::nullopt;
    if (raw->unpack_thumb() != LIBRAW_SUCCESS) return std::nullopt;

    const libraw_thumbnail_t& found = raw->imgdata.thumbnail;
    if (found.thumb == nullptr) return std::nullopt;
    const Orientation orientation = orientationOfFlip(raw->imgdata.sizes.flip);
    const PixelSize storedBox = isTransposed(orientation) ? PixelSize{box.height, box.width} : box;
    std::optional<PixelImage> image;
    if (found.tformat == LIBRAW_THUMBNAIL_JPEG) {
        MemoryByteSource jpeg({reinterpret_cast<const std::uint8_t*>(found.thumb), found.tlength});
        image = decodeJpeg(ByteBlock(jpeg), storedBox);
    } else if (found.tformat == LIBRAW_THUMBNAIL_BITMAP) {
        image = scaledBitmap(found, storedBox);
    }
    if (!image) return std::nullopt;
    const PixelSize picture = {raw->imgdata.sizes.iwidth, raw->imgdata.sizes.iheight};
    return turnedUpright(withoutBars(std::move(*image), picture), orientation);
} catch (const std::exception&) {
    return std::nullopt;
}

}  // namespace pinorama
