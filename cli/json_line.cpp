#include "cli/json_line.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace {
// Writes the members of one object; every value is preceded by its key.
class ObjectWriter {
public:
    explicit ObjectWriter(std::string* out) : out_(out) { *out_ += '{'; }
    void close() { *out_ += "}\n"; }

    void add(std::string_view key, std::string_view text)
    {
        addKey(key);
        addText(text);
    }
    void add(std::string_view key, const std::optional<std::string>& text)
    {
        text ? add(key, std::string_view(*text)) : addNull(key);
    }
    void add(std::string_view key, bool value)
    {
        addKey(key);
        *out_ += value ? "true" : "false";
    }
    void add(std::string_view key, std::int32_t value)
    {
        addKey(key);
        addNumber(value);
    }
    void add(std::string_view key, const std::optional<std::uint64_t>& value)
    {
        if (!value) return addNull(key);
        addKey(key);
        addNumber(*value);
    }
    void add(std::string_view key, double value)
    {
        if (!std::isfinite(value)) return addNull(key);
        addKey(key);
        const std::size_t start = out_->size();
        addNumber(value);
        // A whole number keeps its fraction, so that readers see the same type in every line.
        if (out_->find_first_of(".e", start) == std::string::npos) *out_ += ".0";
    }
    void addNull(std::string_view key)
    {
        addKey(key);
        *out_ += "null";
    }

private:
    void addKey(std::string_view key)
    {
        if (out_->back() != '{') *out_ += ',';
        addText(key);
        *out_ += ':';
    }
    template <typename Number>
    void addNumber(Number value)
    {
        char digits[32];
        const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        out_->append(digits, end);
    }
    void addText(std::string_view text)
    {
        *out_ += '"';
        for (const char c : text) addCharacter(c);
        *out_ += '"';
    }
    void addCharacter(char c)
    {
        constexpr char kHexDigits[] = "0123456789abcdef";
        switch (c) {
        case '"': *out_ += "\\\""; return;
        case '\\': *out_ += "\\\\"; return;
        case '\n': *out_ += "\\n"; return;
        case '\r': *out_ += "\\r"; return;
        case '\t': *out_ += "\\t"; return;
        default: break;
        }
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7f) {
            *out_ += c;
            return;
        }
        *out_ += "\\u00";
        *out_ += kHexDigits[byte >> 4];
        *out_ += kHexDigits[byte & 0x0f];
    }

    std::string* out_;
};

void addPlace(const PlaceReport& place, ObjectWriter* object)
{
    object->add("result", place.result);
    object->add("latti", place.latitude);
    object->add("longi", place.longitude);
    object->add("refLatti", std::string_view(place.latitudeLetter));
    object->add("refLongi", std::string_view(place.longitudeLetter));
    object->add("altitude", place.altitude);
    object->add("distance", place.distance);
    object->add("azimuth", place.azimuth);
    object->add("tilt", place.tilt);
    object->add("city", place.city);
    object->add("state", place.state);
    object->add("country", place.country);
    object->add("description", place.description);
}

void addNoPlace(ObjectWriter* object)
{
    for (const char* key :
         {"result", "latti", "longi", "refLatti", "refLongi", "altitude", "distance", "azimuth",
          "tilt", "city", "state", "country", "description"}) {
        object->addNull(key);
    }
}
}  // namespace

void appendJsonLine(const FileReport& report, std::string* out)
{
    ObjectWriter object(out);
    object.add("path", std::string_view(report.path));
    object.add("name", std::string_view(report.name));
    object.add("accepted", report.isAccepted);
    if (report.place) {
        addPlace(*report.place, &object);
    } else {
        addNoPlace(&object);
    }
    object.add("size", report.size);
    object.add("sizeText", std::string_view(report.sizeText));
    object.add("modified", std::string_view(report.modified));
    object.add("created", std::string_view(report.created));
    object.add("coordinate", std::string_view(report.coordinate));
    object.add("altitudeText", std::string_view(report.altitudeText));
    object.add("direction", std::string_view(report.direction));
    object.close();
}
