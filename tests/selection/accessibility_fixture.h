// A selection that follows a file manager on the accessibility bus.

#pragma once

#include "selection/accessibility_selection.h"
#include "selection/file_manager_kind.h"
#include "selection/frame_tracker.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDeadlineTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace test {

class AccessibilitySelectionTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
    }

    // Starts a file manager that shows this number of pictures, and follows it.
    // `names` are those of the items that it shows, if they are others.
    void follow(FakeFileManager::Kind kind, const char* process, int count,
                const std::vector<QString>& names = {})
    {
        source_.reset();
        tracker_.reset();
        manager_.reset();
        // Creating thousands of files takes long, and only those that are selected must exist.
        for (int i = 0; i < count; i++) {
            if (i < 12 || i == count - 1) folder_.write(std::to_string(i) + ".jpg", "x");
        }
        manager_ = std::make_unique<FakeFileManager>(kind, folder_.path(),
                                                     names.empty() ? pictureNames(count) : names);
        tracker_ = std::make_unique<pinorama::FrameTracker>(
            [process](pid_t) { return pinorama::fileManagerKind(process); });
        source_ = std::make_unique<pinorama::AccessibilitySelection>(*tracker_);
    }

    // Calls selectedPaths() five times a second, as the window does, until it returns these paths.
    bool findsPaths(const std::vector<std::string>& wanted)
    {
        return waitFor([&] { return source_->selectedPaths() == wanted; });
    }

    static bool waitFor(const std::function<bool()>& condition)
    {
        const QDeadlineTimer limit(kPatience);
        while (!limit.hasExpired()) {
            if (condition()) return true;
            goOnFor(200);
        }
        return false;
    }

    // The calls that one selectedPaths() makes to the window if nothing has changed. Now and then
    // it makes more, so this takes the shortest list of several rounds.
    std::vector<std::string> callsAtRest(const std::vector<std::string>& wanted)
    {
        std::vector<std::string> shortest;
        for (int round = 0; round < 5; round++) {
            (void)takeCalls();
            EXPECT_TRUE(findsPaths(wanted));
            std::vector<std::string> calls = takeCalls();
            std::sort(calls.begin(), calls.end());
            if (shortest.empty() || calls.size() < shortest.size()) shortest = calls;
        }
        return shortest;
    }

    // Without the calls that look for new and closed windows.
    std::vector<std::string> takeCalls()
    {
        std::vector<std::string> calls = manager_->takeCalls();
        std::erase_if(calls, [](const std::string& call) { return call.starts_with("0 "); });
        return calls;
    }

    std::string picture(int number) const { return folder_.file(std::to_string(number) + ".jpg"); }

    TemporaryFolder folder_;
    std::unique_ptr<FakeFileManager> manager_;
    std::unique_ptr<pinorama::FrameTracker> tracker_;
    std::unique_ptr<pinorama::AccessibilitySelection> source_;

private:
    static std::vector<QString> pictureNames(int count)
    {
        std::vector<QString> names;
        for (int i = 0; i < count; i++) names.push_back(QStringLiteral("%1.jpg").arg(i));
        return names;
    }
};

}  // namespace test
