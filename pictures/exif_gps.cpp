#include "pictures/exif_gps.h"

#include "pictures/iptc_text.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace pinorama {
namespace {

constexpr std::size_t kRationalSize = 8;

// Texts are a letter or a short note; what is longer is cut.
constexpr std::uint64_t kMaxTextLength = 4096;  // bytes

struct Part {
    double value;
    bool isGood;  // false for the denominator 0
};

Part readPart(const TiffBlock& tiff, TiffType type, const std::uint8_t* bytes)
{
    const std::uint32_t numerator = read32(tiff.order(), bytes);
    const std::uint32_t denominator = read32(tiff.order(), bytes + 4);
    if (denominator == 0) return {0.0, false};
    if (type == TiffType::signedRational) {
        const auto signedNumerator = static_cast<std::int32_t>(numerator);
        const auto signedDenominator = static_cast<std::int32_t>(denominator);
        return {static_cast<double>(signedNumerator) / signedDenominator, true};
    }
    return {static_cast<double>(numerator) / denominator, true};
}

bool isRational(const TiffEntry& entry)
{
    return entry.type == TiffType::rational || entry.type == TiffType::signedRational;
}

// One rational; of several the first.
std::optional<double> numberOf(const TiffBlock& tiff, const TiffEntry& entry)
{
    if (!isRational(entry)) return std::nullopt;
    const ByteView bytes = entry.value.view(0, kRationalSize);
    if (bytes.empty()) return std::nullopt;
    const Part part = readPart(tiff, entry.type, bytes.data());
    return part.isGood ? std::optional(part.value) : std::nullopt;
}

// Degrees, minutes and seconds as one number of degrees.
std::optional<double> coordinateOf(const TiffBlock& tiff, const TiffEntry& entry)
{
    if (!isRational(entry)) return std::nullopt;
    static constexpr double kPartsPerDegree[] = {1.0, 60.0, 3600.0};
    const std::size_t parts = std::min<std::size_t>(entry.count, std::size(kPartsPerDegree));
    const ByteView bytes = entry.value.view(0, parts * kRationalSize);
    if (bytes.empty()) return std::nullopt;

    double degrees = 0.0;
    bool isAnyGood = false;
    for (std::size_t index = 0; index < parts; ++index) {
        const Part part = readPart(tiff, entry.type, &bytes[index * kRationalSize]);
        degrees += std::abs(part.value) / kPartsPerDegree[index];
        isAnyGood |= part.isGood;
    }
    return isAnyGood ? std::optional(degrees) : std::nullopt;
}

// A text up to its first zero byte; nothing when that leaves nothing.
std::optional<std::u16string> textOf(const TiffEntry& entry)
{
    if (entry.type != TiffType::ascii && entry.type != TiffType::utf8) return std::nullopt;
    const ByteView bytes = entry.value.view(0, std::min(entry.value.length(), kMaxTextLength));
    std::u16string text = decodeUndeclaredText(bytes);
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}
}  // namespace

void readGpsDirectory(const TiffBlock& tiff, std::uint64_t offset, PictureProperties& properties)
{
    enum {
        latRef,
        lat,
        lonRef,
        lon,
        altRef,
        alt,
        satellites,
        directionRef,
        direction,
        distanceRef,
        distance
    };
    TiffEntry entries[] = {{1}, {2}, {3}, {4}, {5}, {6}, {8}, {16}, {17}, {25}, {26}};
    if (tiff.findEntries(offset, entries) == 0) return;

    properties.hasGps = true;
    properties.latitudeReference = textOf(entries[latRef]);
    properties.latitude = coordinateOf(tiff, entries[lat]);
    properties.longitudeReference = textOf(entries[lonRef]);
    properties.longitude = coordinateOf(tiff, entries[lon]);
    // Some cameras write two bytes instead of one; the first counts.
    properties.altitudeReference = tiff.integerOf(entries[altRef]);
    properties.altitude = numberOf(tiff, entries[alt]);
    properties.satellites = textOf(entries[satellites]);
    properties.imageDirectionReference = textOf(entries[directionRef]);
    properties.imageDirection = numberOf(tiff, entries[direction]);
    properties.destinationDistanceReference = textOf(entries[distanceRef]);
    properties.destinationDistance = numberOf(tiff, entries[distance]);
}

}  // namespace pinorama
