#include "cli/path_list.h"

#include "cli/diagnostic.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kReadSize = 65536;
constexpr std::size_t kMaxPathLength = 1 << 20;  // bytes; the system takes 4095
}  // namespace

PathList::PathList(const std::string& path, char end, int alarm)
    : name_(path == "-" ? "standard input" : shownPath(path)),
      end_(end),
      alarm_(alarm),
      descriptor_(STDIN_FILENO)
{
    if (path == "-") return;
    own_ = DescriptorHolder(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    descriptor_ = own_.get();
    if (!own_) fail(errno);
}

std::optional<std::string> PathList::next()
{
    while (true) {
        const std::size_t end = bytes_.find(end_, taken_);
        if (end == bytes_.npos && !isOver_) {
            if (!readMore()) return std::nullopt;
            continue;
        }
        const std::size_t stop = std::min(end, bytes_.size());
        std::string path = bytes_.substr(taken_, stop - taken_);
        taken_ = std::min(stop + 1, bytes_.size());
        // A line may hold any other byte; a path ends at its first zero byte.
        path.resize(std::strlen(path.c_str()));
        if (!path.empty()) return path;
        if (end == bytes_.npos) return std::nullopt;
    }
}

// Adds what the other program has written to the bytes. False if nothing more will be read.
bool PathList::readMore()
{
    bytes_.erase(0, taken_);
    taken_ = 0;
    if (bytes_.size() > kMaxPathLength) {
        fail(ENAMETOOLONG);
        return false;
    }
    pollfd waiting[] = {{descriptor_, POLLIN, 0}, {alarm_, POLLIN, 0}};
    while (poll(waiting, 2, -1) < 0) {
        if (errno != EINTR) break;
    }
    if (waiting[1].revents != 0) {
        bytes_.clear();
        isOver_ = true;
        return false;
    }
    const std::size_t before = bytes_.size();
    bytes_.resize(before + kReadSize);
    const ssize_t count = read(descriptor_, bytes_.data() + before, kReadSize);
    bytes_.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count < 0 && errno != EINTR) {
        fail(errno);
        return false;
    }
    isOver_ = count == 0;
    return true;
}

void PathList::fail(int error)
{
    error_ = name_ + ": " + std::strerror(error);
    bytes_.clear();
    taken_ = 0;
    isOver_ = true;
}

}  // namespace pinorama
