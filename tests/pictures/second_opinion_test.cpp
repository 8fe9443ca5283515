// Every picture of the collection read by the project's reader and by Exiv2. Where they differ, it
// must be for a reason that is known.

#include "base/utf8.h"
#include "pictures/iptc_text.h"
#include "pictures/picture_file.h"
#include "pictures/picture_properties.h"
#include "tests/support/collection.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>
#include <exiv2/exiv2.hpp>

#include <cmath>
#include <set>

#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using nlohmann::json;

template <typename Value>
void put(json& object, const char* name, const std::optional<Value>& value)
{
    if (value) object[name] = *value;
}

void put(json& object, const char* name, const std::optional<std::u16string>& value)
{
    if (value) object[name] = displayUTF8(*value);
}

json toJson(const PictureProperties& properties)
{
    json object = json::object();
    put(object, "latitude", properties.latitude);
    put(object, "latitudeReference", properties.latitudeReference);
    put(object, "longitude", properties.longitude);
    put(object, "longitudeReference", properties.longitudeReference);
    put(object, "altitude", properties.altitude);
    put(object, "altitudeReference", properties.altitudeReference);
    put(object, "destinationDistance", properties.destinationDistance);
    put(object, "destinationDistanceReference", properties.destinationDistanceReference);
    put(object, "imageDirection", properties.imageDirection);
    put(object, "satellites", properties.satellites);
    put(object, "city", properties.city);
    put(object, "state", properties.state);
    put(object, "country", properties.country);
    put(object, "caption", properties.caption);
    return object;
}

bool isRational(const Exiv2::Exifdatum& datum)
{
    return datum.typeId() == Exiv2::unsignedRational || datum.typeId() == Exiv2::signedRational;
}

// The bytes that Exiv2 has for a value. Asking an empty value for a number throws.
std::u16string textOf(const Exiv2::Value& value)
{
    std::vector<Exiv2::byte> bytes(static_cast<std::size_t>(value.size()));
    value.copy(bytes.data(), Exiv2::bigEndian);
    return decodeUndeclaredText({bytes.data(), bytes.size()});
}

// What Exiv2 finds, with the conversions of the project's reader.
class SecondReader {
public:
    explicit SecondReader(Exiv2::Image& image) : exif_(image.exifData()), iptc_(image.iptcData()) {}

    PictureProperties properties() const
    {
        PictureProperties found;
        found.latitude = coordinate("Exif.GPSInfo.GPSLatitude");
        found.latitudeReference = reference("Exif.GPSInfo.GPSLatitudeRef");
        found.longitude = coordinate("Exif.GPSInfo.GPSLongitude");
        found.longitudeReference = reference("Exif.GPSInfo.GPSLongitudeRef");
        found.altitude = number("Exif.GPSInfo.GPSAltitude");
        found.altitudeReference = integer("Exif.GPSInfo.GPSAltitudeRef");
        found.destinationDistance = number("Exif.GPSInfo.GPSDestDistance");
        found.destinationDistanceReference = reference("Exif.GPSInfo.GPSDestDistanceRef");
        found.imageDirection = number("Exif.GPSInfo.GPSImgDirection");
        found.satellites = reference("Exif.GPSInfo.GPSSatellites");
        found.city = text("Iptc.Application2.City");
        found.state = text("Iptc.Application2.ProvinceState");
        found.country = text("Iptc.Application2.CountryName");
        found.caption = text("Iptc.Application2.Caption");
        return found;
    }

private:
    const Exiv2::Exifdatum* find(const char* key) const
    {
        const auto found = exif_.findKey(Exiv2::ExifKey(key));
        return found == exif_.end() || found->count() == 0 ? nullptr : &*found;
    }

    std::optional<double> coordinate(const char* key) const
    {
        const Exiv2::Exifdatum* datum = find(key);
        if (datum == nullptr || !isRational(*datum)) return std::nullopt;
        double degrees = 0.0;
        bool isAnyGood = false;
        for (int index = 0; index < 3 && index < static_cast<int>(datum->count()); ++index) {
            const auto [numerator, denominator] = unsignedPart(*datum, index);
            if (denominator == 0.0) continue;
            degrees += std::abs(numerator / denominator) / std::pow(60.0, index);
            isAnyGood = true;
        }
        return isAnyGood ? std::optional(degrees) : std::nullopt;
    }

    // Exiv2 hands unsigned numbers out as signed ones.
    static std::pair<double, double> unsignedPart(const Exiv2::Exifdatum& datum, int index)
    {
        const Exiv2::Rational part = datum.toRational(index);
        if (datum.typeId() == Exiv2::signedRational) return {part.first, part.second};
        return {static_cast<std::uint32_t>(part.first), static_cast<std::uint32_t>(part.second)};
    }

    std::optional<double> number(const char* key) const
    {
        const Exiv2::Exifdatum* datum = find(key);
        if (datum == nullptr || !isRational(*datum)) return std::nullopt;
        const auto [numerator, denominator] = unsignedPart(*datum, 0);
        return denominator == 0.0 ? std::nullopt : std::optional(numerator / denominator);
    }

    std::optional<std::int64_t> integer(const char* key) const
    {
        const Exiv2::Exifdatum* datum = find(key);
        if (datum == nullptr || datum->typeId() == Exiv2::asciiString) return std::nullopt;
        return datum->toRational(0).first;
    }

    std::optional<std::u16string> reference(const char* key) const
    {
        const Exiv2::Exifdatum* datum = find(key);
        if (datum == nullptr || datum->typeId() != Exiv2::asciiString) return std::nullopt;
        std::u16string units = textOf(datum->value());
        return units.empty() ? std::nullopt : std::optional(std::move(units));
    }

    std::optional<std::u16string> text(const char* key) const
    {
        const auto found = iptc_.findKey(Exiv2::IptcKey(key));
        if (found == iptc_.end()) return std::nullopt;
        return textOf(found->value());
    }

    const Exiv2::ExifData& exif_;
    const Exiv2::IptcData& iptc_;
};

json readWithExiv2(const std::string& path)
{
    try {
        const auto image = Exiv2::ImageFactory::open(path);
        try {
            image->readMetadata();
        } catch (const std::exception&) {
            // What was decoded before is there.
        }
        return toJson(SecondReader(*image).properties());
    } catch (const std::exception&) {
        return json::object();
    }
}

// Exiv2 has crashed on damaged files and has hung on others, so it runs in a process of its own.
// Nothing when it did not end well.
std::optional<json> readInChild(const std::string& path)
{
    int ends[2];
    if (pipe(ends) != 0) return std::nullopt;
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        const std::string text = readWithExiv2(path).dump();
        std::size_t done = 0;
        while (done < text.size()) {
            const ssize_t count = write(ends[1], text.data() + done, text.size() - done);
            if (count <= 0) break;
            done += static_cast<std::size_t>(count);
        }
        _exit(done == text.size() ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = read(ends[0], buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0) return std::nullopt;
    return json::parse(text);
}

std::optional<json> readWithOurs(const std::string& path)
{
    const PictureFile file(path);
    if (!file.isOpen()) return std::nullopt;
    FileByteSource source(file.descriptor(), file.size());
    const std::optional<PictureProperties> properties = readPictureProperties(source);
    return properties ? std::optional(toJson(*properties)) : std::nullopt;
}

std::set<std::string> differingFields(const json& ours, const json& theirs)
{
    std::set<std::string> fields;
    for (const auto& [name, value] : ours.items()) {
        if (!theirs.contains(name) || theirs[name] != value) fields.insert(name);
    }
    for (const auto& [name, value] : theirs.items()) {
        if (!ours.contains(name)) fields.insert(name);
    }
    return fields;
}

// Files that the two read differently, and why the project's reading is kept.
const struct {
    const char* name;
    std::set<std::string> fields;
    const char* reason;
} kKnownDifferences[] = {
    {"hostile/ev2__exiv2-bug444.jpg",
     {"caption"},
     "damaged record: Exiv2 searches for the next dataset after it"},
    {"hostile/ev2__exiv2-bug800-PHUT.jpg",
     {"city", "country", "state"},
     "resource 0x0404 of another program: its number means something only to that program"},
    {"jpeg-gps/map__corrupt_exif.jpg",
     {"altitudeReference"},
     "a rational where a byte belongs: Exiv2 rounds it"},
    {"jpeg-gps/smp__HTC_7ProT7576.jpg",
     {"altitude", "altitudeReference", "latitude", "latitudeReference", "longitude",
      "longitudeReference"},
     "another pointer shares the offset of the GPS directory: Exiv2 drops the directory"},
    {"raw-derived/gpswritten_FujiFilm_8.raf",
     {"city", "country"},
     "Exiv2 0.27 does not look for IPTC in the JPEG picture of a RAF file"},
    {"raw-derived/gpswritten_Panasonic_51.raw",
     {"caption", "city", "country"},
     "Exiv2 0.27 does not look for IPTC in Panasonic's raw format"},
};

std::set<std::string> knownFields(const std::string& name)
{
    for (const auto& known : kKnownDifferences) {
        if (name == known.name) return known.fields;
    }
    return {};
}
}  // namespace

TEST(readPictureProperties, differsFromExiv2OnlyWhereKnown)
{
    const std::optional<std::string> folder = test::pictureCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";

    int compared = 0;
    std::set<std::string> names;
    for (const test::CollectedPicture& picture : test::picturesOf(*folder)) {
        SCOPED_TRACE(picture.name);
        names.insert(picture.name);
        // Exiv2 guesses the type from the content and knows video formats; what is no picture is
        // kept away from it.
        const std::optional<json> ours = readWithOurs(picture.path);
        if (!ours) continue;
        const std::optional<json> theirs = readInChild(picture.path);
        if (!theirs) {
            ADD_FAILURE() << "Exiv2 did not end well";
            continue;
        }
        ++compared;
        const std::set<std::string> known = knownFields(picture.name);
        for (const std::string& field : differingFields(*ours, *theirs)) {
            EXPECT_TRUE(known.contains(field)) << field << " differs\n"
                                               << "ours:  " << ours->dump() << "\n"
                                               << "Exiv2: " << theirs->dump();
        }
    }
    EXPECT_GE(compared, 400);
    for (const auto& known : kKnownDifferences) {
        EXPECT_TRUE(names.contains(known.name)) << known.name << " is not in the collection";
    }
}
