// Reads the texts of positions by other rules than those that write them.

#pragma once

#include "tests/places/sphere.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>

// Reads "S 54° 48.1133'   W 68° 18.1783'".
inline Position readDegreesMinutes(const std::string& text)
{
    char y = 0, x = 0;
    double degreesY = 0, minutesY = 0, degreesX = 0, minutesX = 0;
    EXPECT_EQ(std::sscanf(text.c_str(), "%c %lf\xc2\xb0 %lf' %c %lf\xc2\xb0 %lf'", &y, &degreesY,
                          &minutesY, &x, &degreesX, &minutesX),
              6)
        << text;
    EXPECT_LT(minutesY, 60) << text;
    EXPECT_LT(minutesX, 60) << text;
    return {(y == 'S' ? -1 : 1) * (degreesY + minutesY / 60),
            (x == 'W' ? -1 : 1) * (degreesX + minutesX / 60)};
}

// Reads an address by the grammar of RFC 5870.
inline Position readGeo(const std::string& text)
{
    double latitude = 0, longitude = 0;
    int length = 0;
    EXPECT_EQ(std::sscanf(text.c_str(), "geo:%lf,%lf%n", &latitude, &longitude, &length), 2)
        << text;
    EXPECT_EQ(static_cast<std::size_t>(length), text.size());
    EXPECT_EQ(text.find_first_not_of("geo:0123456789.,-"), std::string::npos) << text;
    return {latitude, longitude};
}

// The middle of a plus code's cell, by adding up what each digit is worth.
inline Position readPlusCode(const std::string& text)
{
    const std::string digits = "23456789CFGHJMPQRVWX";
    EXPECT_EQ(text.size(), 13U) << text;
    EXPECT_EQ(text.find('+'), 8U) << text;
    double latitude = -90, longitude = -180, height = 20, width = 20;
    std::string code = text;
    code.erase(8, 1);
    for (int pair = 0; pair < 5; ++pair) {
        latitude += static_cast<double>(digits.find(code[2 * pair])) * height;
        longitude += static_cast<double>(digits.find(code[2 * pair + 1])) * width;
        if (pair < 4) height /= 20, width /= 20;
    }
    for (int at = 10; at < 12; ++at) {
        height /= 5, width /= 4;
        const std::size_t digit = digits.find(code[at]);
        EXPECT_LT(digit, 20U) << text;
        latitude += static_cast<double>(digit / 4) * height;
        longitude += static_cast<double>(digit % 4) * width;
    }
    return {latitude + height / 2, longitude + width / 2};
}
