// A client with its openers, and disks on which files come at once, late or never.

#pragma once

#include "opener/opener_client.h"

#include "base/descriptor_box.h"
#include "base/resource_folder.h"
#include "tests/opener/opener_turns.h"
#include "tests/support/environment.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <poll.h>
#include <sys/wait.h>

// The suite is named after what it tests, which it hides here.
namespace pinorama::tests {
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using test::SlowDisk;

class OpenerClient : public testing::Test {
protected:
    static constexpr auto kPatience = 30s;  // no measure of speed: a busy machine may stall
    static constexpr auto kShort = 300ms;   // for what does not come

    std::string textOf(const PictureFile& file) const
    {
        char bytes[64] = {};
        const DescriptorHolder unboxed = unboxDescriptor(file.descriptor());
        const auto count = readAt(unboxed.get(), 0, bytes, sizeof bytes);
        return {bytes, static_cast<std::size_t>(std::max<std::int64_t>(count, 0))};
    }

    // Goes on as an event loop does until so many openers are at work.
    bool goesOnUntil(const std::function<bool()>& isTrue)
    {
        return test::goesOnUntil(&client_, isTrue);
    }

    OpenStage after(const std::string& path, std::chrono::milliseconds wait = kPatience)
    {
        client_.request(path);
        return client_.wait(wait);
    }

    // A disk in the folder `name` with a file that is read at once and others that never come.
    std::unique_ptr<SlowDisk> disk(const std::string& name)
    {
        std::filesystem::create_directory(folder_.file(name));
        return std::make_unique<SlowDisk>(
            folder_.file(name),
            std::vector<SlowDisk::File>{{"good.jpg", "good", 0},
                                        {"other.jpg", "other", 0},
                                        {"look.jpg", "l", SlowDisk::kNever, SlowDisk::Step::look},
                                        {"open.jpg", "o", SlowDisk::kNever, SlowDisk::Step::open},
                                        {"read.jpg", "r", SlowDisk::kNever},
                                        {"late.jpg", "late", 700}});
    }

    ~OpenerClient() override
    {
        for (const pid_t process : ended_) {
            kill(process, SIGKILL);
            (void)waitpid(process, nullptr, 0);
        }
    }

    test::TemporaryFolder folder_;
    std::vector<pid_t> ended_;  // to be waited for, after the disks are gone
    pinorama::OpenerClient client_{
        [] { return startOpenerProgram(programFolder() + "/pinorama-opener"); }};
};

}  // namespace pinorama::tests
