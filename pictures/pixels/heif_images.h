// The images of a HEIF file, which HEIC is: the picture itself, often cut into tiles, and smaller
// ones that show the same.

#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "pictures/byte_source.h"
#include "pictures/iso_boxes.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// How numbers become colours, where the file says it. Source: ITU-T H.273.
struct ColourCoding {
    int matrix = 0;  // MatrixCoefficients
    bool isFullRange = false;
    int primaries = 2;  // ColourPrimaries; 2 says nothing
    int transfer = 2;   // TransferCharacteristics; the same
};

// What is done to a stored image so that it looks as it should: a part is cut out of it, then it is
// turned or mirrored.
struct HeifChange {
    // A part in fractions of a pixel; the place counts between the middles of part and image.
    struct Part {
        double width;
        double height;
        double right;
        double down;
    };

    Orientation turn = 1;
    std::optional<Part> part{};

    // The pixels of an image of that size that stay; all of them if they lie beyond it.
    // Source: ISO/IEC 14496-12, 12.1.4.
    PixelArea keptOf(PixelSize size) const;
};

struct HeifImage {
    std::uint32_t type = 0;                 // boxType("hvc1"), "jpeg", "grid" or another coding
    ByteBlock bytes{};                      // as they are coded
    ByteBlock configuration{};              // of the decoder: the content of hvcC
    PixelSize size{};                       // as stored; {0, 0} if the file does not say it
    std::vector<HeifChange> changes{};      // of the stored image, one after the other
    std::optional<ColourCoding> colours{};  // else what is in the bytes
    ByteBlock profile{};                    // an ICC profile, which counts more than primaries
    std::vector<std::uint32_t> tiles{};     // of a grid: its items row by row

    // The size that an image of size `stored` has after the changes.
    PixelSize sizeAfterChanges(PixelSize stored) const;

    // Whether the changes exchange width and height.
    bool isTransposed() const;
};

// A grid of equal images; those at the right and at the bottom may reach beyond its size.
// Source: ISO/IEC 23008-12, 6.6.2.3.
struct HeifGrid {
    std::int32_t rows = 0;
    std::int32_t columns = 0;
    PixelSize size{};
};

// Nothing unless the image is a grid, is not larger than 65536 pixels each way, and has the tiles
// for it, at most 1024.
std::optional<HeifGrid> gridOf(const HeifImage& image);

class HeifImages {
public:
    // Looks the images of a file in boxes up; there may be none.
    explicit HeifImages(const ByteBlock& file);

    // The picture of the file.
    std::optional<HeifImage> picture() const { return image(primary_); }

    // The images that show it smaller, in the order of the file.
    std::vector<HeifImage> thumbnails() const;

    // The image with that number.
    std::optional<HeifImage> image(std::uint32_t item) const;

private:
    struct Item {
        std::uint32_t type = 0;
        ByteBlock bytes{};
        std::vector<std::size_t> properties{};  // from 1 on, as the file counts
    };
    struct Reference {
        std::uint32_t type;
        std::uint32_t from;
        std::vector<std::uint32_t> to;
    };

    void readMeta(const ByteBlock& meta, const ByteBlock& file, StepBudget& budget);
    void readReferences(const ByteBlock& iref, StepBudget& budget);
    void readProperties(const ByteBlock& iprp, StepBudget& budget);
    void readAssociations(const ByteBlock& ipma);

    std::uint32_t primary_ = 0;
    std::map<std::uint32_t, Item> items_;
    std::vector<Reference> references_;
    std::vector<IsoBox> properties_;
};

}  // namespace pinorama
