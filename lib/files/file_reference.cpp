#include "lib/files/file_reference.h"

#include "base/descriptor.h"
#include "base/file_uri.h"
#include "base/item_path.h"
#include "base/memory_guard.h"
#include "base/status.h"
#include "lib/files/path_block.h"
#include "lib/files/path_text.h"

#include <cerrno>
#include <utility>

using namespace pinorama;

namespace {
std::int32_t lastStatus()
{
    return statusOfErrno(errno);
}
}  // namespace

std::int32_t feMakeFSRefFromPath(TovStringRef path, FSRef* outRef)
{
    const PathBlock block(path);
    if (!block) return kErrNoMemory;
    return feMakeFSRefFromBytes(block.bytes(), outRef);
}

std::int32_t feMakeFSRefFromBytes(const char* path, FSRef* outRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        std::string resolved = resolvedPath(path);
        if (resolved.empty()) return lastStatus();
        outRef->path = std::move(resolved);
        return kErrNone;
    });
}

std::int32_t feMakeFSRefFromParent(const FSRef* parent, TovStringRef name, FSRef* outRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        std::string path = childPath(parent->path, pathBytes(name));
        if (path.empty() || !itemExists(path)) return lastStatus();
        outRef->path = std::move(path);
        return kErrNone;
    });
}

std::int32_t feGetFSRefFromCFURL(TovStringRef fileURL, FSRef* outRef)
{
    return baseGuardMemory(kErrBadArgument, [&] {
        const auto path = pathOfFileURI(pathBytes(fileURL));
        if (!path) return kErrBadArgument;
        return feMakeFSRefFromBytes(path->c_str(), outRef) == kErrNone ? kErrNone : kErrBadArgument;
    });
}

std::int32_t feGetParentRef(const FSRef* ref, FSRef* outParent)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        if (!itemExists(ref->path)) return lastStatus();
        std::string folder = folderOf(ref->path);
        if (folder.empty()) return kErrNotFound;
        outParent->path = std::move(folder);
        return kErrNone;
    });
}

TovStringRef feGetPathFromFSRef(const FSRef* ref, std::int32_t pathStyle)
{
    if (pathStyle != 0 || !itemExists(ref->path)) return nullptr;
    return createPathText(ref->path);
}

TovStringRef feGetItemNameFromRef(const FSRef* ref)
{
    if (!itemExists(ref->path)) return nullptr;
    return createPathText(nameOf(ref->path));
}

bool feItemExists(const FSRef* parent, TovStringRef name)
{
    return baseGuardMemory([&]() -> bool {
        const std::string path = childPath(parent->path, pathBytes(name));
        return !path.empty() && itemExists(path);
    });
}
