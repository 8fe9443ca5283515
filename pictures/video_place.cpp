#include "pictures/video_place.h"

#include "pictures/byte_order.h"
#include "pictures/iso_boxes.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace pinorama {
namespace {
constexpr std::uint32_t kPlaceText = 0xa978797a;  // "©xyz"
constexpr std::string_view kPlaceKey = "com.apple.quicktime.location.ISO6709";
constexpr std::uint64_t kMaxTextLength = 256;
constexpr std::uint32_t kMaxKeys = 1024;

std::string_view lettersOf(ByteView bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string_view startOf(const ByteBlock& block)
{
    return lettersOf(block.view(0, std::min(block.length(), kMaxTextLength)));
}

bool isOnEarth(const StatedPlace& place)
{
    return std::abs(place.latitude) <= 90.0 && std::abs(place.longitude) <= 180.0;
}

// Takes a number with its sign off the start of `text`. In degrees: the digits before the point say
// whether minutes and seconds are among them, as "4851.5" is 48 degrees and 51.5 minutes.
//
//   degreeDigits  how many of them are degrees at most; 0 for a number that is none of degrees.
std::optional<double> takeNumber(std::string_view& text, std::size_t degreeDigits)
{
    if (text.empty() || (text[0] != '+' && text[0] != '-')) return std::nullopt;
    const bool isNegative = text[0] == '-';
    text.remove_prefix(1);
    constexpr std::string_view kDigits = "0123456789";
    const std::size_t whole = std::min(text.find_first_not_of(kDigits), text.size());
    const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
    double value = 0.0;
    const auto [stop, problem] =
        std::from_chars(text.data(), text.data() + end, value, std::chars_format::fixed);
    if (problem != std::errc() || stop != text.data() + end || whole == 0) return std::nullopt;
    text.remove_prefix(end);
    if (degreeDigits != 0 && whole > degreeDigits) {
        const double scale = whole > degreeDigits + 2 ? 10000.0 : 100.0;
        const double degrees = std::floor(value / scale);
        double rest = value - degrees * scale;
        if (scale == 100.0) {
            value = degrees + rest / 60.0;
        } else {
            const double minutes = std::floor(rest / 100.0);
            rest -= minutes * 100.0;
            value = degrees + minutes / 60.0 + rest / 3600.0;
        }
    }
    return isNegative ? -value : value;
}

// A text in the user data: length, language, letters; there can be several languages, the first
// counts.
std::optional<StatedPlace> placeOfUserText(const ByteBlock& box)
{
    const ByteView header = box.view(0, 4);
    if (header.empty()) return std::nullopt;
    return placeOfIso6709(startOf(box.part(4, bigEndian16(&header[0]))));
}

// A text in a list of items: a box `data` with type, locale and letters.
std::optional<StatedPlace> placeOfItem(const ByteBlock& item, StepBudget& budget)
{
    constexpr std::uint64_t kTypeAndLocale = 8;
    IsoBoxes boxes(item, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type != boxType("data")) continue;
        return placeOfIso6709(startOf(box->content.from(kTypeAndLocale)));
    }
    return std::nullopt;
}

double fixedPoint(const std::uint8_t* bytes)
{
    return static_cast<std::int32_t>(bigEndian32(bytes)) / 65536.0;
}

// Version, language, the name of the place, its role, then longitude, latitude and altitude.
std::optional<StatedPlace> placeOfLoci(const ByteBlock& loci)
{
    constexpr std::uint64_t kNameStart = 6;
    const ByteBlock rest = loci.from(kNameStart);
    const ByteView name = rest.view(0, std::min(rest.length(), kMaxTextLength));
    const bool isWide = name.size() >= 2 &&
                        (bigEndian16(name.data()) == 0xfeff || bigEndian16(name.data()) == 0xfffe);
    const std::size_t unit = isWide ? 2 : 1;
    std::size_t end = 0;
    while (end + unit <= name.size() && (name[end] != 0 || name[end + unit - 1] != 0)) end += unit;
    constexpr std::size_t kRole = 1;
    const ByteView numbers = rest.view(end + unit + kRole, 12);
    if (numbers.empty()) return std::nullopt;
    const StatedPlace place{fixedPoint(&numbers[4]), fixedPoint(&numbers[0]),
                            fixedPoint(&numbers[8])};
    return isOnEarth(place) ? std::optional(place) : std::nullopt;
}

// The number of the key for the position, from 1; nothing when there is none.
std::optional<std::uint32_t> placeKeyOf(const ByteBlock& keys)
{
    const ByteView header = keys.view(0, 8);
    if (header.empty()) return std::nullopt;
    const std::uint32_t count = std::min(bigEndian32(&header[4]), kMaxKeys);
    std::uint64_t position = 8;
    for (std::uint32_t number = 1; number <= count; number++) {
        const ByteView sizeBytes = keys.view(position, 8);
        if (sizeBytes.empty()) break;
        const std::uint32_t size = bigEndian32(&sizeBytes[0]);
        if (size < 8) break;
        const std::string_view name = startOf(keys.part(position + 8, size - 8));
        // A key in one language has its code after a hyphen.
        if (name.substr(0, kPlaceKey.size()) == kPlaceKey &&
            (name.size() == kPlaceKey.size() || name[kPlaceKey.size()] == '-')) {
            return number;
        }
        position += size;
    }
    return std::nullopt;
}

// The positions of a moov box in the order in which they count.
struct Places {
    std::optional<StatedPlace> key;
    std::optional<StatedPlace> userText;
    std::optional<StatedPlace> item;
    std::optional<StatedPlace> loci;
};

void readMeta(const ByteBlock& meta, StepBudget& budget, Places& places)
{
    ByteBlock ilst;
    std::optional<std::uint32_t> placeKey;
    IsoBoxes boxes(childrenOfMeta(meta), budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == boxType("keys")) placeKey = placeKeyOf(box->content);
        if (box->type == boxType("ilst")) ilst = box->content;
    }
    IsoBoxes items(ilst, budget);
    while (const std::optional<IsoBox> item = items.next()) {
        if (placeKey && item->type == *placeKey) places.key = placeOfItem(item->content, budget);
        if (item->type == kPlaceText) places.item = placeOfItem(item->content, budget);
    }
}

void readUserData(const ByteBlock& udta, StepBudget& budget, Places& places)
{
    IsoBoxes boxes(udta, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == kPlaceText) places.userText = placeOfUserText(box->content);
        if (box->type == boxType("loci")) places.loci = placeOfLoci(box->content);
        if (box->type == boxType("meta")) readMeta(box->content, budget, places);
    }
}
}  // namespace

std::optional<StatedPlace> placeOfIso6709(std::string_view text)
{
    const auto latitude = takeNumber(text, 3);
    const auto longitude = latitude ? takeNumber(text, 3) : std::nullopt;
    if (!longitude) return std::nullopt;
    const StatedPlace place{*latitude, *longitude, takeNumber(text, 0)};
    return isOnEarth(place) ? std::optional(place) : std::nullopt;
}

std::optional<StatedPlace> findVideoPlace(const MovieBoxes& boxes, StepBudget& budget)
{
    Places places;
    readMeta(boxes.meta, budget, places);
    readUserData(boxes.udta, budget, places);
    for (const auto& place : {places.key, places.userText, places.item, places.loci}) {
        if (place) return place;
    }
    return std::nullopt;
}

}  // namespace pinorama
