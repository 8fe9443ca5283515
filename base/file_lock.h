// Turns between processes that change the same files.

#pragma once

#include <chrono>
#include <string>

#include "base/descriptor.h"

namespace pinorama {

// Holds the lock that a file stands for until the end of the scope, or of the process. The file is
// made when missing and stays; its content means nothing.
class FileLock {
public:
    // Waits for at most `patience` for whoever holds the lock.
    FileLock(const std::string& path, std::chrono::milliseconds patience);

    // False when the lock could not be had. A file system that knows no locks gives it to
    // everybody.
    explicit operator bool() const { return isHeld_; }

private:
    DescriptorHolder file_;
    bool isHeld_ = false;
};

}  // namespace pinorama
