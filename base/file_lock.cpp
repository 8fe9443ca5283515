#include "base/file_lock.h"

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace pinorama {

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : file_(openDescriptor(path.c_str(), O_RDWR | O_CREAT, 0600))
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kPause(5);
    if (!file_) return;
    const auto deadline = Clock::now() + patience;
    while (true) {
        isHeld_ = flock(file_.get(), LOCK_EX | LOCK_NB) == 0 || errno == EOPNOTSUPP ||
                  errno == ENOLCK || errno == ENOSYS;
        if (isHeld_ || Clock::now() >= deadline) return;
        std::this_thread::sleep_for(kPause);
    }
}

}  // namespace pinorama
