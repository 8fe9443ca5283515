#include "pictures/picture_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
int openForReading(const std::string& path)
{
    // A zero byte would silently name another file.
    if (path.find('\0') != std::string::npos) return -1;
    // What was a file may be a pipe by now, whose opening would wait for a writer without
    // O_NONBLOCK.
    constexpr int kFlags = O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const int descriptor = open(path.c_str(), kFlags | O_NOFOLLOW);
    if (descriptor >= 0 || errno != ELOOP) return descriptor;
    // A link may lead to a device, whose opening alone can do something: a tape rewinds, a board on
    // a serial port starts again. Looking first takes a fifth of the time for a picture, and only
    // who owns the machine can put a device here without a link.
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return -1;
    return open(path.c_str(), kFlags);
}
}  // namespace

PictureFile::PictureFile(const std::string& path) : descriptor_(openForReading(path))
{
    if (descriptor_ < 0) return;
    struct stat status;
    if (fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode)) {
        size_ = static_cast<std::uint64_t>(status.st_size);
    } else {
        close(descriptor_);
        descriptor_ = -1;
    }
}

PictureFile::~PictureFile()
{
    if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace pinorama
