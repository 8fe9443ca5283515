// A desktop folder of the test's own, and the log on it.

#pragma once

#include <string>

#include "tests/support/environment.h"

namespace test {

class LogFolder {
public:
    LogFolder();

    const std::string& home() const { return home_.path(); }
    std::string desktop() const { return home_.file("Desktop"); }
    std::string logPath() const { return home_.file("Desktop/KVL Log.txt"); }

    // The whole log, its dates and times written as "DATE" and "TIME".
    std::string log() const;

    // The same after the banner, which must be there exactly once and in front.
    std::string entries() const;

    // Makes a log without a banner, as any file that is there already.
    void startLog(std::string_view content) const;

private:
    TemporaryFolder home_;
    ScopedVariable variable_;
};

// The banner of this machine and build.
std::string banner();

}  // namespace test
