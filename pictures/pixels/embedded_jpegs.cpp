#include "pictures/pixels/embedded_jpegs.h"

#include "pictures/tiff_directory.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace pinorama {
namespace {
// Cameras write fewer than ten; a loop of directories ends here too.
constexpr std::size_t kMaxDirectories = 24;
constexpr std::size_t kMaxSubdirectories = 8;

constexpr std::uint32_t kMaxPixelsPerSide = 1u << 20;
constexpr std::uint32_t kJpegOld = 6;  // values of the tag Compression
constexpr std::uint32_t kJpeg = 7;

// The entries of a directory that lead to pictures.
struct Entries {
    TiffEntry all[10] = {
        {.tag = 0x0100}, {.tag = 0x0101}, {.tag = 0x0103}, {.tag = 0x0111}, {.tag = 0x0112},
        {.tag = 0x0117}, {.tag = 0x014a}, {.tag = 0x0201}, {.tag = 0x0202}, {.tag = 0x002e},
    };
    const TiffEntry& width = all[0];
    const TiffEntry& height = all[1];
    const TiffEntry& compression = all[2];
    const TiffEntry& stripOffsets = all[3];
    const TiffEntry& orientation = all[4];
    const TiffEntry& stripLengths = all[5];
    const TiffEntry& subdirectories = all[6];
    const TiffEntry& jpegOffset = all[7];
    const TiffEntry& jpegLength = all[8];
    const TiffEntry& panasonicJpeg = all[9];  // the stream itself
};

class Search {
public:
    Search(const ByteBlock& bytes, const TiffBlock& tiff) : bytes_(bytes), tiff_(tiff) {}

    EmbeddedJpegs run()
    {
        std::uint64_t next = tiff_.firstDirectory();
        bool isFirst = true;
        while (next != 0 && mayGoOn()) {
            next = readDirectory(next, isFirst, true);
            isFirst = false;
        }
        return std::move(found_);
    }

private:
    bool mayGoOn() const { return directoryCount_ < kMaxDirectories; }

    // Returns the offset of the directory that is chained to this one, 0 for none.
    std::uint64_t readDirectory(std::uint64_t offset, bool isFirst, bool mayHaveSubdirectories)
    {
        directoryCount_++;
        Entries entries;
        const std::size_t count = tiff_.findEntries(offset, entries.all);
        if (isFirst) {
            found_.orientation = static_cast<int>(numberOf(entries.orientation).value_or(1));
        }
        noteSize(entries);
        noteStreams(entries);
        if (mayHaveSubdirectories) readSubdirectories(entries.subdirectories);
        return numberAt(offset + 2 + 12 * count);
    }

    void readSubdirectories(const TiffEntry& entry)
    {
        const std::size_t count = std::min<std::size_t>(entry.count, kMaxSubdirectories);
        for (std::size_t i = 0; i < count && mayGoOn(); i++) {
            const ByteView bytes = entry.value.view(4 * i, 4);
            if (bytes.empty()) return;
            readDirectory(read32(tiff_.order(), bytes.data()), false, false);
        }
    }

    void noteSize(const Entries& entries)
    {
        const std::uint32_t columns = numberOf(entries.width).value_or(0);
        const std::uint32_t rows = numberOf(entries.height).value_or(0);
        if (columns > kMaxPixelsPerSide || rows > kMaxPixelsPerSide) return;
        const PixelSize size = {static_cast<std::int32_t>(columns),
                                static_cast<std::int32_t>(rows)};
        if (std::int64_t{size.width} * size.height >
            std::int64_t{found_.picture.width} * found_.picture.height) {
            found_.picture = size;
        }
    }

    void noteStreams(const Entries& entries)
    {
        noteStream(entries.jpegOffset, entries.jpegLength);
        const std::uint32_t kind = numberOf(entries.compression).value_or(0);
        const bool hasOneStrip = entries.stripOffsets.count == 1;
        if (hasOneStrip && (kind == kJpegOld || kind == kJpeg)) {
            noteStream(entries.stripOffsets, entries.stripLengths);
        }
        if (!entries.panasonicJpeg.value.isEmpty()) {
            found_.streams.push_back(entries.panasonicJpeg.value);
        }
    }

    void noteStream(const TiffEntry& offset, const TiffEntry& length)
    {
        const ByteBlock stream =
            bytes_.part(numberOf(offset).value_or(0), numberOf(length).value_or(0));
        if (!stream.isEmpty()) found_.streams.push_back(stream);
    }

    std::optional<std::uint32_t> numberOf(const TiffEntry& entry) const
    {
        return tiff_.integerOf(entry);
    }

    std::uint64_t numberAt(std::uint64_t offset) const
    {
        const ByteView bytes = bytes_.view(offset, 4);
        return bytes.empty() ? 0 : read32(tiff_.order(), bytes.data());
    }

    const ByteBlock& bytes_;
    const TiffBlock& tiff_;
    std::size_t directoryCount_ = 0;
    EmbeddedJpegs found_;
};
}  // namespace

EmbeddedJpegs findEmbeddedJpegs(const ByteBlock& tiff)
{
    const std::optional<TiffBlock> opened = TiffBlock::open(tiff);
    if (!opened) return {};
    return Search(tiff, *opened).run();
}

}  // namespace pinorama
