#include "location/coordinate_text.h"

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"
#include "lib/ui/string_tables.h"

#include <cmath>

using namespace pinorama;

namespace {
constexpr std::int16_t kCoordinateFormat = 11;
constexpr double kMinutesPerDegree = 60.0;
constexpr double kTenthsPerMinute = 600.0;
constexpr double kSmallestDecimal = 0.0000005;  // prints with six decimals as more than zero

// A number in a format, or the empty text for exactly 0.
TovStringRef makeTextUnlessZero(std::u16string_view format, double value)
{
    return value == 0.0 ? createString({}) : tovFormat(format, {value});
}

// Zero instead of a number that would print as minus zero.
double withoutMinusZero(double value)
{
    return std::fabs(value) <= kSmallestDecimal ? 0.0 : value;
}
}  // namespace

TovStringRef gpsMakeCoordianteString(double value, char ref)
{
    double degrees = 0.0;
    double minutes = 0.0;
    double tenths = 0.0;
    const double ofDegree = std::modf(value, &degrees);
    const double ofMinute = std::modf(ofDegree * kMinutesPerDegree, &minutes);
    std::modf(ofMinute * kTenthsPerMinute, &tenths);
    const double seconds = tenths / 10.0;

    const StringHolder format(iuGetIndKVLCFString(kCoordinateFormat));
    return TovStringCreateWithFormat(format.get(), static_cast<int>(ref), degrees, minutes,
                                     seconds);
}

TovStringRef gpsMakePositionText(const fileInfoRecord& record)
{
    const StringHolder longitude(gpsMakeCoordianteString(record.longi, record.refLongi));
    const StringHolder latitude(gpsMakeCoordianteString(record.latti, record.refLatti));
    if (!latitude || !longitude) return nullptr;
    return tovFormat(u"%@   %@", {latitude.get(), longitude.get()});
}

TovStringRef gpsMakeDecimalDegreesText(const fileInfoRecord& record)
{
    return tovFormat(u"%.6f, %.6f", {withoutMinusZero(signedLatitude(record)),
                                     withoutMinusZero(signedLongitude(record))});
}

TovStringRef gpsMakeAltitudeText(const fileInfoRecord& record)
{
    return makeTextUnlessZero(u"%.0f m", record.altitude);
}

TovStringRef gpsMakeDirectionText(const fileInfoRecord& record)
{
    return makeTextUnlessZero(u"%.1f", record.azimuth);
}
