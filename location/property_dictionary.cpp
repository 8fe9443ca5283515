#include "location/property_dictionary.h"

#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "location/property_keys.h"

using namespace pinorama;

namespace {
using DictionaryHolder = ObjectHolder<TovDictionaryRef>;

// Fills one dictionary and remembers whether memory lasted.
class Filler {
public:
    Filler() : dictionary_(TovDictionaryCreate()) {}

    void set(TovStringRef key, const std::optional<double>& value)
    {
        if (value) put(key, TovNumberCreateDouble(*value));
    }

    void set(TovStringRef key, const std::optional<std::int64_t>& value)
    {
        if (value) put(key, TovNumberCreateSInt64(*value));
    }

    void set(TovStringRef key, const std::optional<std::u16string>& value)
    {
        if (value) put(key, createString(*value));
    }

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

    [[nodiscard]] TovDictionaryRef take() { return isComplete_ ? dictionary_.take() : nullptr; }

private:
    DictionaryHolder dictionary_;
    bool isComplete_ = true;
};

TovDictionaryRef createGps(const pinorama::PictureProperties& properties)
{
    Filler gps;
    gps.set(kCGImagePropertyGPSLatitude, properties.latitude);
    gps.set(kCGImagePropertyGPSLatitudeRef, properties.latitudeReference);
    gps.set(kCGImagePropertyGPSLongitude, properties.longitude);
    gps.set(kCGImagePropertyGPSLongitudeRef, properties.longitudeReference);
    gps.set(kCGImagePropertyGPSAltitude, properties.altitude);
    gps.set(kCGImagePropertyGPSAltitudeRef, properties.altitudeReference);
    gps.set(kCGImagePropertyGPSDestDistance, properties.destinationDistance);
    gps.set(kCGImagePropertyGPSDestDistanceRef, properties.destinationDistanceReference);
    gps.set(kCGImagePropertyGPSSatellites, properties.satellites);
    gps.set(kCGImagePropertyGPSImgDirection, properties.imageDirection);
    return gps.take();
}

TovDictionaryRef createIptc(const pinorama::PictureProperties& properties)
{
    Filler iptc;
    iptc.set(kCGImagePropertyIPTCCity, properties.city);
    iptc.set(kCGImagePropertyIPTCProvinceState, properties.state);
    iptc.set(kCGImagePropertyIPTCCountryPrimaryLocationName, properties.country);
    iptc.set(kCGImagePropertyIPTCCaptionAbstract, properties.caption);
    return iptc.take();
}
}  // namespace

TovDictionaryRef pinorama::createPropertyDictionary(const PictureProperties& properties)
{
    Filler image;
    if (properties.hasIptc) image.put(kCGImagePropertyIPTCDictionary, createIptc(properties));
    if (properties.hasGps) image.put(kCGImagePropertyGPSDictionary, createGps(properties));
    return image.take();
}
