// The window with its real reader, shown files that may be anything.

#pragma once

#include "location/picture_source.h"
#include "previews/picture_reader.h"
#include "tests/app/controller_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>

namespace test {
using namespace pinorama;

class HostileWindowTest : public ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        cuReadPicturesElsewhere();
        good_ = folder.write(
            "good.jpg",
            pictureWithGps(
                {.lat = 48.5, .latRef = "N", .lon = 11.25, .lonRef = "E", .altitude = 520.0}));
        other_ = folder.write(
            "other.jpg",
            pictureWithGps(
                {.lat = 10.0, .latRef = "S", .lon = 20.0, .lonRef = "W", .altitude = 7.0}));
    }
    void TearDown() override
    {
        pinorama::installPropertySource({});
        cuPictureReader().stop();
        cuPictureReader().setLimits({});
    }

    // Whether showing a file takes no longer than it may: half a second, and a little for a reader
    // to end and another one to be started.
    bool isQuick(const std::string& path)
    {
        const auto start = Clock::now();
        (void)show(path);
        return Clock::now() - start < std::chrono::milliseconds(1500);
    }

    // The same, at least one time of three: a machine that tests may stand still meanwhile.
    bool isQuickOfThree(const std::string& path, const std::function<void()>& beforeAnother = {})
    {
        for (int again = 0; again < 2; again++) {
            if (isQuick(path)) return true;
            (void)show(path == other_ ? good_ : other_);
            if (beforeAnother) beforeAnother();
        }
        return isQuick(path);
    }

    // Shows a file and waits for its place and its picture. True when both come, and showing it
    // was quick.
    bool showsInTime(const std::string& path, const std::string& what = {})
    {
        const pid_t before = cuPictureReader().processID();
        const int failuresBefore = cuPictureReader().failureCount();
        const bool isInTime = isQuickOfThree(path);
        const bool hasPicture = waitUntil([this] {
            return !controller.reading().isGoingOn() &&
                   !controller.fileIconField->pixmap().isNull();
        });
        if (cuPictureReader().processID() != before ||
            cuPictureReader().failureCount() != failuresBefore) {
            readersLost_++;
            std::printf("a reader was lost with %s (%s)\n", path.c_str(), what.c_str());
        }
        return isInTime && hasPicture;
    }

    // A good picture shows as if nothing had happened.
    void expectGoodPicture()
    {
        EXPECT_TRUE(showsInTime(other_));
        EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
        EXPECT_TRUE(showsInTime(good_));
        EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
        EXPECT_EQ(controller.fileIconField->pixmap().deviceIndependentSize(), QSizeF(8, 8));
        expectLocationActions(true);
    }

    // Lets everything come to its end that goes on after a picture is shown.
    static void rest() { goOnFor(300); }

    static long openDescriptors()
    {
        const std::filesystem::directory_iterator entries("/proc/self/fd");
        return std::distance(begin(entries), end(entries));
    }

    using Clock = std::chrono::steady_clock;
    std::string good_;
    std::string other_;
    int readersLost_ = 0;
};

}  // namespace test
