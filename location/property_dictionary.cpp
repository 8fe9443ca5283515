#include "location/property_dictionary.h"

#include "base/memory_guard.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "location/property_keys.h"

using namespace pinorama;

namespace {
using DictionaryHolder = ObjectHolder<TovDictionaryRef>;
using Number = std::optional<double>;
using Integer = std::optional<std::int64_t>;
using Text = std::optional<std::u16string>;

// Calls visit(key, value) for every property of the GPS directory, in the order of its dictionary.
// `Properties` is PictureProperties, constant or not; so below.
template <typename Properties, typename Visit>
void visitGps(Properties& properties, Visit visit)
{
    visit(kCGImagePropertyGPSLatitude, properties.latitude);
    visit(kCGImagePropertyGPSLatitudeRef, properties.latitudeReference);
    visit(kCGImagePropertyGPSLongitude, properties.longitude);
    visit(kCGImagePropertyGPSLongitudeRef, properties.longitudeReference);
    visit(kCGImagePropertyGPSAltitude, properties.altitude);
    visit(kCGImagePropertyGPSAltitudeRef, properties.altitudeReference);
    visit(kCGImagePropertyGPSDestDistance, properties.destinationDistance);
    visit(kCGImagePropertyGPSDestDistanceRef, properties.destinationDistanceReference);
    visit(kCGImagePropertyGPSSatellites, properties.satellites);
    visit(kCGImagePropertyGPSImgDirection, properties.imageDirection);
}

template <typename Properties, typename Visit>
void visitIptc(Properties& properties, Visit visit)
{
    visit(kCGImagePropertyIPTCCity, properties.city);
    visit(kCGImagePropertyIPTCProvinceState, properties.state);
    visit(kCGImagePropertyIPTCCountryPrimaryLocationName, properties.country);
    visit(kCGImagePropertyIPTCCaptionAbstract, properties.caption);
}

TovTypeRef createValue(double number)
{
    return TovNumberCreateDouble(number);
}

TovTypeRef createValue(std::int64_t number)
{
    return TovNumberCreateSInt64(number);
}

TovTypeRef createValue(const std::u16string& text)
{
    return createString(text);
}

// Fills one dictionary and remembers whether memory lasted.
class Filler {
public:
    Filler() : dictionary_(TovDictionaryCreate()) {}

    // Takes over `value`, whose null means that memory ran out.
    void put(TovStringRef key, TovTypeRef value)
    {
        const ObjectHolder<TovTypeRef> owned(value);
        if (value == nullptr || !dictionary_) {
            isComplete_ = false;
            return;
        }
        const std::int32_t before = dictionary_.get()->count;
        TovDictionarySetValue(dictionary_.get(), key, value);
        if (dictionary_.get()->count == before) isComplete_ = false;
    }

    // For visitGps and visitIptc.
    auto putPresent()
    {
        return [this](TovStringRef key, const auto& value) {
            if (value) put(key, createValue(*value));
        };
    }

    [[nodiscard]] TovDictionaryRef take() { return isComplete_ ? dictionary_.take() : nullptr; }

private:
    DictionaryHolder dictionary_;
    bool isComplete_ = true;
};

void readValue(TovTypeRef value, Number& number)
{
    if (const TovNumber* found = asNumber(value)) number = found->floating;
}

void readValue(TovTypeRef value, Integer& number)
{
    if (const TovNumber* found = asNumber(value)) number = found->integer;
}

void readValue(TovTypeRef value, Text& text)
{
    if (const TovStringRef found = asString(value)) {
        text = baseGuardMemory([&] { return Text(std::u16string(unitsOf(found))); });
    }
}

// For visitGps and visitIptc.
auto readFrom(TovDictionaryRef dictionary)
{
    return [dictionary](TovStringRef key, auto& value) {
        readValue(TovDictionaryGetValue(dictionary, key), value);
    };
}
}  // namespace

TovDictionaryRef pinorama::createPropertyDictionary(const PictureProperties& properties)
{
    Filler image;
    if (properties.hasIptc) {
        Filler iptc;
        visitIptc(properties, iptc.putPresent());
        image.put(kCGImagePropertyIPTCDictionary, iptc.take());
    }
    if (properties.hasGps) {
        Filler gps;
        visitGps(properties, gps.putPresent());
        image.put(kCGImagePropertyGPSDictionary, gps.take());
    }
    return image.take();
}

PictureProperties pinorama::propertiesOfDictionary(TovDictionaryRef dictionary)
{
    PictureProperties properties;
    if (const TovDictionaryRef iptc =
            asDictionary(TovDictionaryGetValue(dictionary, kCGImagePropertyIPTCDictionary))) {
        properties.hasIptc = true;
        visitIptc(properties, readFrom(iptc));
    }
    if (const TovDictionaryRef gps =
            asDictionary(TovDictionaryGetValue(dictionary, kCGImagePropertyGPSDictionary))) {
        properties.hasGps = true;
        visitGps(properties, readFrom(gps));
    }
    return properties;
}
