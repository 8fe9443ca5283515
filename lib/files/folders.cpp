#include "lib/files/folders.h"

#include "base/folder_listing.h"
#include "base/item_path.h"
#include "base/memory_guard.h"
#include "base/moving.h"
#include "base/status.h"
#include "base/user_folders.h"
#include "lib/files/fork_io.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/strings/tov_search.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

using namespace pinorama;

namespace {
constexpr std::int32_t kDesktopFolder = 13;

std::int32_t lastStatus()
{
    return statusOfErrno(errno);
}

std::string childPath(const FSRef* parent, TovStringRef name)
{
    return pinorama::childPath(parent->path, pathBytes(name));
}

void store(std::string path, FSRef* outRef)
{
    if (outRef != nullptr) outRef->path = std::move(path);
}
}  // namespace

std::int32_t feCreateFolder(const FSRef* parent, TovStringRef name, FSRef* outRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        std::string path = childPath(parent, name);
        if (path.empty() || mkdir(path.c_str(), 0777) != 0) return lastStatus();
        store(std::move(path), outRef);
        return kErrNone;
    });
}

std::int32_t feCreateAndOpenDataFileUnicode(const FSRef* parent, TovStringRef name,
                                            std::uint32_t /*type*/, std::uint32_t /*creator*/,
                                            FSRef* outRef, ForkRef* outForkRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        *outForkRef = 0;
        std::string path = childPath(parent, name);
        if (path.empty()) return lastStatus();
        ForkCloser fork(openDescriptor(path.c_str(), O_RDWR | O_CREAT | O_EXCL));
        if (!fork) return lastStatus();
        store(std::move(path), outRef);
        *outForkRef = fork.take();
        return kErrNone;
    });
}

std::int32_t feRenameFolder(const FSRef* ref, TovStringRef name, FSRef* outRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        if (!itemExists(ref->path)) return lastStatus();
        const std::string folder = folderOf(ref->path);
        if (folder.empty()) return kErrBusy;  // the root folder has no name of its own
        std::string path = childPath(folder, pathBytes(name));
        if (path.empty()) return lastStatus();
        if (path != ref->path && !moveWithoutReplacing(ref->path, path)) return lastStatus();
        store(std::move(path), outRef);
        return kErrNone;
    });
}

std::int32_t feGetFirstFileInFolderWithSuffix(const FSRef* folder, TovStringRef suffix,
                                              FSRef* outRef)
{
    return baseGuardMemory(kErrNothingUsable, [&] {
        std::string first;
        for (std::string& name : namesInFolder(folder->path)) {
            const ObjectHolder<TovStringRef> text(createPathText(name));
            if (!TovStringEndsWith(text.get(), suffix, 0)) continue;
            if (first.empty() || name < first) first = std::move(name);
        }
        if (first.empty()) return kErrNothingUsable;
        outRef->path = childPath(folder->path, first);
        return kErrNone;
    });
}

std::uint64_t feGetFolderSize(const FSRef* folder)
{
    return baseGuardMemory([&]() -> std::uint64_t {
        std::uint64_t sum = 0;
        for (const std::string& name : namesInFolder(folder->path)) {
            struct stat facts = {};
            const std::string path = childPath(folder->path, name);
            if (lstat(path.c_str(), &facts) != 0 || S_ISDIR(facts.st_mode)) continue;
            sum += static_cast<std::uint64_t>(facts.st_size);
        }
        return sum;
    });
}

TovStringRef feGetPathOfSpecialFolder(std::int32_t folderNumber)
{
    return baseGuardMemory([&]() -> TovStringRef {
        if (folderNumber != kDesktopFolder) return nullptr;
        const std::string desktop = desktopFolder();
        if (desktop.empty() || !makeFolders(desktop, 0777)) return nullptr;
        return createPathText(desktop);
    });
}
