#include "pictures/exif_time.h"

#include <algorithm>
#include <chrono>
#include <string_view>

namespace pinorama {
namespace {
constexpr std::uint16_t kDateTimeOriginal = 0x9003;
constexpr std::uint16_t kOffsetTimeOriginal = 0x9011;
constexpr std::uint16_t kGpsTimeStamp = 7;
constexpr std::uint16_t kGpsDateStamp = 29;

// Receivers without a fix, and those whose count of weeks has overflowed, write earlier years.
constexpr int kFirstGpsYear = 1980;

// No photograph is older. Programs that know no date write the year 1.
constexpr int kFirstPhotograph = 1826;

constexpr std::string_view kDateForm = "0000:00:00";
constexpr std::string_view kDateTimeForm = "0000:00:00 00:00:00";
constexpr std::string_view kOffsetForm = "+00:00";
constexpr std::int64_t kMaxOffsetHours = 15;  // the clocks of the world are at most 14 ahead

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The beginning of a text, if it has a digit where `form` has one. What is between the digits is
// taken as it is, since some programs write dashes or a T there.
std::optional<std::string_view> textLike(std::string_view form, ByteView bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (text.size() < form.size()) return std::nullopt;
    for (std::size_t i = 0; i < form.size(); i++) {
        if (isDigit(form[i]) != isDigit(text[i])) return std::nullopt;
    }
    return text.substr(0, form.size());
}

std::optional<std::string_view> textLike(std::string_view form, const TiffEntry& entry)
{
    if (entry.type != TiffType::ascii && entry.type != TiffType::utf8) return std::nullopt;
    return textLike(form, entry.value.view(0, form.size()));
}

int numberAt(std::string_view text, std::size_t place, std::size_t digits)
{
    int number = 0;
    for (const char digit : text.substr(place, digits)) number = number * 10 + (digit - '0');
    return number;
}

// Seconds since 1970 of a time of day on the date at the beginning of `text`.
std::optional<std::int64_t> secondsOf(std::string_view text, std::int64_t hour, std::int64_t minute,
                                      std::int64_t second)
{
    const std::chrono::year_month_day date{
        std::chrono::year(numberAt(text, 0, 4)),
        std::chrono::month(static_cast<unsigned>(numberAt(text, 5, 2))),
        std::chrono::day(static_cast<unsigned>(numberAt(text, 8, 2)))};
    const bool isTime = hour < 24 && minute < 60 && second < 60;
    if (!date.ok() || date.year() < std::chrono::year(kFirstPhotograph) || !isTime)
        return std::nullopt;
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return ((days * 24 + hour) * 60 + minute) * 60 + second;
}

// A whole number out of an unsigned rational; nothing if no clock shows it.
std::optional<std::int64_t> clockNumber(const TiffBlock& tiff, const std::uint8_t* bytes)
{
    const std::uint32_t numerator = read32(tiff.order(), bytes);
    const std::uint32_t denominator = read32(tiff.order(), bytes + 4);
    if (denominator == 0 || numerator / denominator >= 60) return std::nullopt;
    return numerator / denominator;
}

std::optional<std::int64_t> gpsSeconds(const TiffBlock& tiff, std::uint64_t offset)
{
    TiffEntry entries[] = {{kGpsTimeStamp}, {kGpsDateStamp}};
    tiff.findEntries(offset, entries);
    const ByteView bytes = entries[0].value.view(0, 24);
    if (entries[0].type != TiffType::rational || bytes.size() < 24) return std::nullopt;
    const auto hour = clockNumber(tiff, &bytes[0]);
    const auto minute = clockNumber(tiff, &bytes[8]);
    const auto second = clockNumber(tiff, &bytes[16]);
    // Looked at only now, because the next view takes the one before away.
    const auto date = textLike(kDateForm, entries[1]);
    if (!hour || !minute || !second || !date) return std::nullopt;
    if (numberAt(*date, 0, 4) < kFirstGpsYear) return std::nullopt;
    return secondsOf(*date, *hour, *minute, *second);
}

// Minutes east of Greenwich.
std::optional<std::int64_t> offsetOf(const TiffEntry& entry)
{
    const auto text = textLike(kOffsetForm, entry);
    if (!text || (text->front() != '+' && text->front() != '-')) return std::nullopt;
    const int hours = numberAt(*text, 1, 2);
    const int minutes = numberAt(*text, 4, 2);
    if (hours > kMaxOffsetHours || minutes >= 60) return std::nullopt;
    return (text->front() == '-' ? -1 : 1) * (hours * 60 + minutes);
}
}  // namespace

void readExifTime(const TiffBlock& tiff, std::optional<std::uint64_t> exif,
                  std::optional<std::uint64_t> gps, PictureProperties& properties)
{
    TiffEntry entries[] = {{kDateTimeOriginal}, {kOffsetTimeOriginal}};
    if (exif) tiff.findEntries(*exif, entries);
    std::optional<std::int64_t> original;
    if (const auto text = textLike(kDateTimeForm, entries[0])) {
        original = secondsOf(*text, numberAt(*text, 11, 2), numberAt(*text, 14, 2),
                             numberAt(*text, 17, 2));
    }
    const auto offset = offsetOf(entries[1]);
    if (original && offset) {
        properties.taken = original;
        properties.takenOffset = offset;
    } else if (const auto inUTC = gps ? gpsSeconds(tiff, *gps) : std::nullopt) {
        properties.taken = inUTC;
        properties.takenOffset = 0;
        properties.isTakenBySatellites = true;
    } else if (original) {
        properties.taken = original;
    }
}

}  // namespace pinorama
