#include "base/replace_file.h"

#include "base/descriptor.h"
#include "base/item_path.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace pinorama {
namespace {
bool writeAndFlush(const std::string& path, std::string_view content)
{
    // Whatever lies there was left by a program that died; it may be a pipe or a link by now.
    unlink(path.c_str());
    const DescriptorHolder file(openDescriptor(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600));
    if (!file) return false;
    const std::int64_t written = writeAt(file.get(), 0, content.data(), content.size());
    if (written != static_cast<std::int64_t>(content.size())) {
        if (written >= 0) errno = EIO;
        return false;
    }
    return fsync(file.get()) == 0;
}

// Makes the new name of a file last. A file system that cannot do it has done what it can.
void flushFolder(const std::string& path)
{
    const DescriptorHolder folder(openDescriptor(path.c_str(), O_RDONLY | O_DIRECTORY));
    if (folder) (void)fsync(folder.get());
}
}  // namespace

bool replaceFile(const std::string& path, std::string_view content)
{
    const std::string existing = resolvedPath(path.c_str());
    const std::string& target = existing.empty() ? path : existing;
    const std::string unfinished = target + ".new";
    if (!writeAndFlush(unfinished, content) ||
        std::rename(unfinished.c_str(), target.c_str()) != 0) {
        const int error = errno;
        unlink(unfinished.c_str());
        errno = error;
        return false;
    }
    flushFolder(folderOf(target));
    return true;
}

}  // namespace pinorama
