// A reader to be tested, pictures for it, and files that tell a faulty one what to do.

#pragma once

#include "base/resource_folder.h"
#include "pictures/picture_file.h"
#include "reader/reader_client.h"
#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace test {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kHasSanitizers = true;
#else
constexpr bool kHasSanitizers = false;
#endif

constexpr pinorama::PixelSize kBox = {64, 64};

inline pinorama::ReaderLauncher faultyReader(const std::vector<std::string>& arguments = {})
{
    return [arguments] {
        return pinorama::startReaderProgram(pinorama::programFolder() + "/faulty-reader",
                                            arguments);
    };
}

inline pinorama::ReaderLauncher realReader()
{
    return
        [] { return pinorama::startReaderProgram(pinorama::programFolder() + "/pinorama-reader"); };
}

class ReaderPictures {
public:
    ReaderPictures()
    {
        folder_.write(
            "good.jpg",
            jpegOfQuarters(
                200, 100,
                {.exif = tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 11.25, .lonRef = "E"})}));
        folder_.write("secret", "treasure");
    }

    std::string good() const { return folder_.file("good.jpg"); }
    std::string secret() const { return folder_.file("secret"); }
    std::string harm() const { return folder_.file("harm"); }

    std::string withFault(const std::string& fault) const
    {
        return folder_.write("fault.jpg", "FAULT " + fault + "\n");
    }

    // The good picture, which takes the faulty reader so long.
    std::string slow(std::chrono::milliseconds time) const
    {
        return folder_.write("slow.jpg", readFile(good()) + "SLOW " + std::to_string(time.count()));
    }

    std::string file(const std::string& name, const std::string& bytes) const
    {
        return folder_.write(name, bytes);
    }

private:
    TemporaryFolder folder_;
};

inline pinorama::PropertyResult propertiesOf(pinorama::ReaderClient& client,
                                             const std::string& path)
{
    const pinorama::PictureFile file(path);
    return client.readProperties(file.descriptor());
}

inline pinorama::PreviewResult previewOf(pinorama::ReaderClient& client, const std::string& path)
{
    const pinorama::PictureFile file(path);
    (void)client.startPreview(file.descriptor(), pinorama::PreviewKind::picture, kBox);
    return client.waitForPreview();
}

inline void expectGoodPicture(pinorama::ReaderClient& client, const ReaderPictures& pictures)
{
    const pinorama::PropertyResult properties = propertiesOf(client, pictures.good());
    EXPECT_EQ(properties.outcome, pinorama::ReadOutcome::found);
    EXPECT_EQ(properties.properties.latitude, 48.5);
    const pinorama::PreviewResult preview = previewOf(client, pictures.good());
    EXPECT_EQ(preview.outcome, pinorama::ReadOutcome::found);
    EXPECT_EQ(preview.reply.image.width, 64);
    EXPECT_EQ(preview.reply.image.height, 32);
    EXPECT_TRUE(areNear(quartersOf(preview.reply.image), {kRed, kGreen, kBlue, kYellow}));
}

// True as soon as `isTrue` is; false if that takes half a minute.
inline bool waitUntil(const std::function<bool()>& isTrue)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (std::chrono::steady_clock::now() < end) {
        if (isTrue()) return true;
        usleep(1000);
    }
    return false;
}

// What /proc says about a process under that name; empty if it says nothing.
inline std::string statusLine(pid_t process, const std::string& name)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name + ":\t")) return line.substr(name.size() + 2);
    }
    return {};
}

// The processes that `parent` has started and that are not gone yet, without the one that keeps its
// PID namespace.
inline std::vector<pid_t> childrenOf(pid_t parent)
{
    std::vector<pid_t> children;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t process = std::atoi(entry.path().filename().c_str());
        // "PID (NAME) STATE PARENT ...", where the name may contain anything.
        const std::string line = process > 0 ? readFile(entry.path() / "stat") : "";
        const std::size_t end = line.rfind(") ");
        if (end == std::string::npos || line[end + 2] == 'Z') continue;
        if (std::atoi(line.c_str() + end + 4) != parent) continue;
        if (!statusLine(process, "NSpid").ends_with("\t1")) children.push_back(process);
    }
    return children;
}

// The hard limit of a resource, by its name in /proc/PID/limits.
inline std::string hardLimitOf(pid_t process, const std::string& resource)
{
    const std::string limits = readFile("/proc/" + std::to_string(process) + "/limits");
    const std::size_t at = limits.find(resource);
    if (at == std::string::npos) return {};
    std::istringstream row(limits.substr(at + resource.size()));
    std::string soft;
    std::string hard;
    row >> soft >> hard;
    return hard;
}

// So that tests of readers that are stuck take less time.
inline pinorama::ReaderLimits shortLimits()
{
    using namespace std::chrono_literals;
    pinorama::ReaderLimits limits;
    limits.start.silence = 2s;
    limits.properties = {.processor = 500ms, .silence = 1500ms, .whole = 1min};
    limits.preview = {.processor = 600ms, .silence = 1600ms, .whole = 1min};
    return limits;
}

}  // namespace test
