// What the tests of the small map share: places, and the file of places that comes with the
// program.

#pragma once

#include "places/place_finder.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QSize>

// The suites are named after what they test.
namespace pinorama::tests {

struct Point {
    double latitude, longitude;
};

constexpr QSize kSize(160, 140);
constexpr Point kMunich = {48.14, 11.58};
constexpr Point kAdriatic = {43.2, 15.0};

inline int pixelsOf(const QImage& image, const QColor& colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

class MapTest : public testing::Test {
protected:
    void SetUp() override
    {
        data = finder.data();
        ASSERT_NE(data, nullptr);
    }

    PlaceFinder finder{placesFile()};
    const PlaceData* data = nullptr;
};
}  // namespace pinorama::tests
