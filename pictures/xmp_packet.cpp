#include "pictures/xmp_packet.h"

#include "base/utf8.h"
#include "pictures/byte_order.h"
#include "pictures/iptc_text.h"
#include "pictures/xml_scanner.h"
#include "pictures/xmp_names.h"
#include "pictures/xmp_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace pinorama {
namespace {
constexpr std::string_view kRdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
constexpr std::string_view kWrapper = "adobe:ns:meta/";
constexpr std::string_view kExif = "http://ns.adobe.com/exif/1.0/";
constexpr std::string_view kPhotoshop = "http://ns.adobe.com/photoshop/1.0/";
constexpr std::string_view kDublinCore = "http://purl.org/dc/elements/1.1/";
constexpr std::string_view kIptcExtension = "http://iptc.org/std/Iptc4xmpExt/2008-02-29/";
constexpr std::string_view kXml = "http://www.w3.org/XML/1998/namespace";

// What ends a packet.
constexpr std::string_view kEnds[] = {"</x:xmpmeta>", "<?xpacket end"};

enum class Property : std::uint8_t {
    latitude,
    latitudeReference,
    longitude,
    longitudeReference,
    altitude,
    altitudeReference,
    direction,
    directionReference,
    distance,
    distanceReference,
    satellites,
    city,
    state,
    country,
    description,
    createdCity,  // of the location created, as are the next two
    createdState,
    createdCountry,
    count,  // the ones above have values
    locationCreated,
    other,
};

constexpr struct {
    std::string_view space;
    std::string_view local;
    Property property;
} kProperties[] = {
    {kExif, "GPSLatitude", Property::latitude},
    {kExif, "GPSLatitudeRef", Property::latitudeReference},
    {kExif, "GPSLongitude", Property::longitude},
    {kExif, "GPSLongitudeRef", Property::longitudeReference},
    {kExif, "GPSAltitude", Property::altitude},
    {kExif, "GPSAltitudeRef", Property::altitudeReference},
    {kExif, "GPSImgDirection", Property::direction},
    {kExif, "GPSImgDirectionRef", Property::directionReference},
    {kExif, "GPSDestDistance", Property::distance},
    {kExif, "GPSDestDistanceRef", Property::distanceReference},
    {kExif, "GPSSatellites", Property::satellites},
    {kPhotoshop, "City", Property::city},
    {kPhotoshop, "State", Property::state},
    {kPhotoshop, "Country", Property::country},
    {kDublinCore, "description", Property::description},
    {kIptcExtension, "LocationCreated", Property::locationCreated},
    {kIptcExtension, "City", Property::createdCity},
    {kIptcExtension, "ProvinceState", Property::createdState},
    {kIptcExtension, "CountryName", Property::createdCountry},
};

// A packet of a photographer's program has hundreds of names that nobody asks for.
bool mayBeProperty(std::string_view local)
{
    constexpr std::string_view kFirstLetters = "GCSdLP";
    return !local.empty() && kFirstLetters.find(local[0]) != kFirstLetters.npos;
}

Property propertyOf(const XmlName& name)
{
    if (!mayBeProperty(name.local)) return Property::other;
    for (const auto& known : kProperties) {
        if (known.local == name.local && known.space == name.space) return known.property;
    }
    return Property::other;
}

bool isOfLocation(Property property)
{
    return property >= Property::createdCity && property <= Property::createdCountry;
}

std::string lowered(std::string_view language)
{
    std::string lower(language.substr(0, language.find_first_of(".@")));
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
        if (letter == '_') letter = '-';
    }
    return lower;
}

// Collects the values of a packet while it is scanned.
class Collector final : public XmlHandler {
public:
    Collector(std::string_view document, std::string_view language)
        : sizeWithoutNames_(document.size() - endOfXmpNames(document)), language_(lowered(language))
    {
    }

    bool hasFoundRdf() const { return hasFoundRdf_; }

    const std::string& operator[](Property property) const
    {
        return values_[static_cast<std::size_t>(property)].text;
    }

    void startElement(const XmlName& name, std::span<const XmlAttribute> attributes) override
    {
        if (!elements_.empty()) elements_.back().isLeaf = false;
        text_.clear();
        const bool isRdf = name.space == kRdf;
        if (isRdf && name.local == "RDF" && isOnlyWrapped()) {
            hasFoundRdf_ = true;
            rdfDepth_ = elements_.size() + 1;
        }
        const bool isProperty = rdfDepth_ != 0 && !isRdf;
        elements_.push_back({.isProperty = isProperty, .isWrapper = name.space == kWrapper});
        if (isProperty) path_.push_back(propertyOf(name));
        if (rdfDepth_ == 0) return;
        for (const XmlAttribute& attribute : attributes) {
            const std::string_view space = attribute.name.space;
            if (space == kXml && attribute.name.local == "lang") {
                elements_.back().language = attribute.value;
            }
            const Property property = propertyOf(attribute.name);
            if (property >= Property::count) continue;
            path_.push_back(property);
            take(attribute.value, {});
            path_.pop_back();
        }
    }

    void text(std::string_view text) override
    {
        if (!path_.empty() && path_.back() < Property::count) text_ += text;
    }

    void endElement() override
    {
        const Element& element = elements_.back();
        if (rdfDepth_ != 0 && element.isLeaf) take(text_, element.language);
        text_.clear();
        if (element.isProperty) path_.pop_back();
        if (elements_.size() == rdfDepth_) rdfDepth_ = 0;
        elements_.pop_back();
    }

    // After the last name that counts only a property that is open can still have values, and after
    // the packet nothing, even if it lacks end tags.
    bool wants(std::string_view rest) const override
    {
        if (rest.starts_with('<') && rest.starts_with(kEnds[1])) return false;
        return rest.size() > sizeWithoutNames_ || !hasFoundRdf_ ||
               std::any_of(path_.begin(), path_.end(),
                           [](Property property) { return property < Property::count; });
    }

    // Of the attributes that are none of a property the language counts.
    bool wantsAttribute(std::string_view name) const override
    {
        const std::string_view local = name.substr(name.find(':') + 1);
        return mayBeProperty(local) || local == "lang";
    }

    // All that is in a property of another kind belongs to that.
    bool wantsContent() const override { return path_.empty() || path_.front() != Property::other; }

private:
    struct Element {
        bool isProperty = false;  // else a container or a description of RDF
        bool isWrapper = false;
        bool isLeaf = true;
        std::string language{};
    };

    struct Value {
        std::string text;
        int rank = 0;  // of several that there are
    };

    // RDF in documents of other kinds, a drawing for instance, is none of a picture.
    bool isOnlyWrapped() const
    {
        return std::all_of(elements_.begin(), elements_.end(),
                           [](const Element& element) { return element.isWrapper; });
    }

    int rankOf(std::string_view language) const
    {
        const std::string lower = lowered(language);
        if (lower.empty() || lower == "x-default") return 4;
        if (lower == language_) return 3;
        const std::string_view main = std::string_view(lower).substr(0, lower.find('-'));
        return main == std::string_view(language_).substr(0, language_.find('-')) ? 2 : 1;
    }

    // Keeps `text` as the value of the property that is being read, if it is one of these.
    void take(std::string_view text, std::string_view language)
    {
        if (path_.empty() || text.find_first_not_of(" \t\r\n") == text.npos) return;
        const Property property = path_.back();
        if (property >= Property::count) return;
        const bool isAtHome = isOfLocation(property)
                                  ? path_.size() == 2 && path_[0] == Property::locationCreated
                                  : path_.size() == 1;
        if (!isAtHome) return;
        Value& value = values_[static_cast<std::size_t>(property)];
        const int rank = rankOf(language);
        if (rank > value.rank) value = {std::string(text), rank};
    }

    const std::size_t sizeWithoutNames_;  // of the end of the document
    const std::string language_;
    std::vector<Element> elements_;
    std::vector<Property> path_;
    std::size_t rdfDepth_ = 0;  // 0 outside of RDF
    bool hasFoundRdf_ = false;
    std::string text_;
    std::array<Value, static_cast<std::size_t>(Property::count)> values_;
};

constexpr std::uint64_t kFirstLength = 4 * 1024;

// Where the first mark after `from` ends that is an end of a packet; 0 if there is none.
std::size_t endOfMark(const std::string& bytes, std::size_t from)
{
    for (const std::string_view end : kEnds) {
        const char* const start = bytes.data() + from;
        const void* const mark = memmem(start, bytes.size() - from, end.data(), end.size());
        if (mark == nullptr) continue;
        return static_cast<std::size_t>(static_cast<const char*>(mark) - bytes.data()) + end.size();
    }
    return 0;
}

// The bytes of a packet, as far as they are read.
std::string bytesOf(const ByteBlock& packet)
{
    std::string bytes;
    const std::uint64_t end = std::min(packet.length(), kMaxXmpLength);
    bytes.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(end, kMaxViewLength)));
    while (bytes.size() < end) {
        const std::size_t start = bytes.size();
        const auto wanted =
            std::min<std::uint64_t>(end - start, start == 0 ? kFirstLength : kMaxViewLength);
        const ByteView view = packet.view(start, static_cast<std::size_t>(wanted));
        if (view.empty()) break;
        bytes.append(reinterpret_cast<const char*>(view.data()), view.size());
        // What follows a packet is room for longer values, in some files 64 KiB of it, or something
        // else. Looking its end up pays where it may save another read; it may stand across two.
        const bool isFirstOrLong = start == 0 || packet.length() > kMaxViewLength;
        if (!isFirstOrLong) continue;
        const std::size_t from = start - std::min(start, kEnds[0].size());
        if (const std::size_t last = endOfMark(bytes, from)) {
            bytes.resize(last);
            break;
        }
    }
    return bytes;
}

// The packet as UTF-8. Packets in UTF-16 show it by their first two bytes: a byte-order mark, or a
// tag.
std::string utf8Of(std::string bytes)
{
    if (bytes.size() < 2) return bytes;
    const auto first = static_cast<std::uint8_t>(bytes[0]);
    const auto second = static_cast<std::uint8_t>(bytes[1]);
    const bool isBig = (first == 0xfe && second == 0xff) || (first == 0 && second == '<');
    const bool isLittle = (first == 0xff && second == 0xfe) || (first == '<' && second == 0);
    if (!isBig && !isLittle) return bytes;
    const ByteOrder order = isBig ? ByteOrder::big : ByteOrder::little;
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const std::uint8_t pair[] = {static_cast<std::uint8_t>(bytes[i]),
                                     static_cast<std::uint8_t>(bytes[i + 1])};
        units += static_cast<char16_t>(read16(order, pair));
    }
    return displayUTF8(units);
}

std::optional<std::u16string> textOf(const std::string& value)
{
    if (value.empty()) return std::nullopt;
    return decodeUTF8Text({reinterpret_cast<const std::uint8_t*>(value.data()), value.size()});
}

std::u16string letterText(char letter)
{
    return std::u16string(1, static_cast<unsigned char>(letter));
}

void fillPosition(const Collector& values, PictureProperties& properties)
{
    const auto latitude = coordinateOfXmp(values[Property::latitude],
                                          values[Property::latitudeReference], "NS", 90.0);
    const auto longitude = coordinateOfXmp(values[Property::longitude],
                                           values[Property::longitudeReference], "EW", 180.0);
    if (latitude) {
        properties.latitude = latitude->degrees;
        properties.latitudeReference = letterText(latitude->letter);
    }
    if (longitude) {
        properties.longitude = longitude->degrees;
        properties.longitudeReference = letterText(longitude->letter);
    }
    if (const auto altitude = numberOfXmp(values[Property::altitude])) {
        const bool isBelow = *altitude < 0.0 || values[Property::altitudeReference] == "1";
        properties.altitude = std::abs(*altitude);
        properties.altitudeReference = isBelow ? 1 : 0;
    }
    properties.imageDirection = numberOfXmp(values[Property::direction]);
    if (properties.imageDirection)
        properties.imageDirectionReference = textOf(values[Property::directionReference]);
    properties.destinationDistance = numberOfXmp(values[Property::distance]);
    properties.destinationDistanceReference = textOf(values[Property::distanceReference]);
    properties.satellites = textOf(values[Property::satellites]);
    properties.hasGps = latitude || longitude || properties.altitude || properties.imageDirection ||
                        properties.destinationDistance || properties.satellites;
}

void fillTexts(const Collector& values, PictureProperties& properties)
{
    const auto either = [&values](Property first, Property second) {
        return textOf(values[first].empty() ? values[second] : values[first]);
    };
    properties.city = either(Property::city, Property::createdCity);
    properties.state = either(Property::state, Property::createdState);
    properties.country = either(Property::country, Property::createdCountry);
    properties.caption = textOf(values[Property::description]);
    properties.hasIptc =
        properties.city || properties.state || properties.country || properties.caption;
}
}  // namespace

std::optional<PictureProperties> readXmp(const ByteBlock& packet, std::string_view language)
{
    const std::string document = utf8Of(bytesOf(packet));
    Collector values(document, language);
    (void)scanXml(document, values);  // what stands before a fault counts
    if (!values.hasFoundRdf()) return std::nullopt;
    PictureProperties properties;
    properties.sources = ValueSources::all(ValueSource::xmp);
    fillPosition(values, properties);
    fillTexts(values, properties);
    return properties;
}

}  // namespace pinorama
