#include "pictures/picture_file.h"

#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>

namespace pinorama {
namespace {
int openForReading(const std::string& path)
{
    // A zero byte would silently name another file.
    if (path.find('\0') != std::string::npos) return -1;
    // What was a file may be a pipe by now; openDescriptor does not wait for its writer.
    const int descriptor = openDescriptor(path.c_str(), O_RDONLY | O_NOFOLLOW);
    if (descriptor >= 0 || errno != ELOOP) return descriptor;
    // A link may lead to a device, whose opening alone can do something: a tape rewinds, a board on
    // a serial port starts again. Looking first takes a fifth of the time for a picture, and only
    // who owns the machine can put a device here without a link.
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return -1;
    return openDescriptor(path.c_str(), O_RDONLY);
}
}  // namespace

PictureFile::PictureFile(const std::string& path) : descriptor_(openForReading(path))
{
    if (!descriptor_) return;
    const std::optional<FileAttributes> attributes = attributesOf(descriptor_.get());
    if (attributes && attributes->isRegular) {
        attributes_ = *attributes;
    } else {
        descriptor_ = DescriptorHolder();
    }
}

}  // namespace pinorama
