#include "pictures/picture_file.h"

#include "base/descriptor_box.h"

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/stat.h>
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
// a board on a serial port starts again. So the item is looked at first, and opened only if it is a
// regular file.
//
// Somebody may put something else in its place between the two. For a file that is no link that is
// a pipe at worst, of somebody who may write into the folder and wants it to be opened: nobody else
// makes devices, and no link is followed. Through a link any device could be reached. There the
// item is looked at through a descriptor that does not open it (O_PATH), and that descriptor is
// then opened: an item never changes its kind.
PictureFile::PictureFile(const std::string& path)
{
    const std::optional<FileAttributes> seen = attributesOfItself(path);
    if (!seen) {
        error_ = errno;
        return;
    }
    if (!seen->isRegular && !S_ISLNK(seen->type)) {
        item_ = seen;
        return;
    }
    if (seen->isRegular && openPlainFile(path)) return;
    openAnyFile(path);
}

bool PictureFile::openPlainFile(const std::string& path)
{
    DescriptorHolder file(openDescriptor(path.c_str(), O_RDONLY | O_NOFOLLOW));
    const auto attributes = file ? attributesOf(file.get()) : std::nullopt;
    if (!attributes || !attributes->isRegular) return false;
    descriptor_ = std::move(file);
    item_ = attributes;
    return true;
}

void PictureFile::openAnyFile(const std::string& path)
{
    const DescriptorHolder item(openDescriptor(path.c_str(), O_PATH));
    if (item) item_ = attributesOf(item.get());
    if (item_ && !item_->isRegular) return;
    if (item_) descriptor_ = openItem(item, path);
    if (!descriptor_) error_ = errno;
}

std::string PictureFile::realPath() const
{
    const std::string boxed = pathInBox(descriptor());
    if (!boxed.empty()) return boxed;
    char path[PATH_MAX];
    const std::string link = kOwnDescriptors + std::to_string(descriptor());
    const ssize_t length = isOpen() ? readlink(link.c_str(), path, sizeof path) : 0;
    return {path, length > 0 ? static_cast<std::size_t>(length) : 0};
}

}  // namespace pinorama
