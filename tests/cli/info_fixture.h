// A folder with a few files for pinorama-info: a picture with a place, one without, and no picture.

#pragma once

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <string>

namespace test {

// The suite is named after the program.
class pinoramaInfo : public testing::Test {
protected:
    TemporaryFolder folder_;
    std::string located_ =
        folder_.write("located.jpg", pictureWithGps({.lat = 48.125,
                                                     .latRef = "N",
                                                     .lon = 11.5,
                                                     .lonRef = "E",
                                                     .altitude = 520,
                                                     .imgDirection = 271.26,
                                                     .taken = "2008:12:16 11:58:00",
                                                     .takenOffset = "+01:00",
                                                     .city = "M\u00fcnchen",
                                                     .state = "Bayern",
                                                     .country = "Deutschland",
                                                     .caption = "A street"}));
    std::string plain_ = folder_.write("plain.JPG", jpegPicture({}));
    std::string notes_ = folder_.write("notes.txt", "1234");
};

}  // namespace test
