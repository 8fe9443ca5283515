#include "pictures/picture_file.h"

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr char kOwnDescriptors[] = "/proc/self/fd/";

// Opens for reading what `item` stands for, whatever has its path by now.
DescriptorHolder openItem(const DescriptorHolder& item, const std::string& path)
{
    const std::string link = kOwnDescriptors + std::to_string(item.get());
    DescriptorHolder file(openDescriptor(link.c_str(), O_RDONLY));
    if (file || errno != ENOENT || access(kOwnDescriptors, F_OK) == 0) return file;
    // Without /proc there is only the path. What was a file may be a pipe by now; openDescriptor
    // does not wait for its writer.
    file = DescriptorHolder(openDescriptor(path.c_str(), O_RDONLY));
    const auto attributes = file ? attributesOf(file.get()) : std::nullopt;
    return attributes && attributes->isRegular ? std::move(file) : DescriptorHolder();
}
}  // namespace

// Opening alone can do something: a pipe's writer goes on and loses what it writes, a tape rewinds,
// a board on a serial port starts again. So the item is looked at first, through a descriptor that
// does not open it (O_PATH), and that descriptor is then opened: an item never changes its kind.
PictureFile::PictureFile(const std::string& path)
{
    // A zero byte would silently name another file.
    if (path.find('\0') != std::string::npos) {
        error_ = ENOENT;
        return;
    }
    const DescriptorHolder item(openDescriptor(path.c_str(), O_PATH));
    if (item) item_ = attributesOf(item.get());
    if (item_ && !item_->isRegular) return;
    if (item_) descriptor_ = openItem(item, path);
    if (!descriptor_) error_ = errno;
}

std::string PictureFile::realPath() const
{
    char path[PATH_MAX];
    const std::string link = kOwnDescriptors + std::to_string(descriptor());
    const ssize_t length = isOpen() ? readlink(link.c_str(), path, sizeof path) : 0;
    return {path, length > 0 ? static_cast<std::size_t>(length) : 0};
}

}  // namespace pinorama
