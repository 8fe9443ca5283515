#include "platform/pictures/picture_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
int openForReading(const std::string& path)
{
    // A zero byte would silently name another file.
    if (path.find('\0') != std::string::npos) return -1;
    // Opening alone can do something: a tape rewinds, a board on a serial port starts again.
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return -1;
    // What was a file may be a pipe by now, whose opening would wait for a writer without
    // O_NONBLOCK.
    return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
}
}  // namespace

platform::PictureFile::PictureFile(const std::string& path) : descriptor_(openForReading(path))
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

platform::PictureFile::~PictureFile()
{
    if (descriptor_ >= 0) close(descriptor_);
}
