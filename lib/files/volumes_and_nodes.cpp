#include "lib/files/volumes_and_nodes.h"

#include "base/item_path.h"
#include "base/mac_roman.h"
#include "base/memory_guard.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/files/fork_io.h"
#include "lib/files/item_facts.h"
#include "lib/files/mounts.h"
#include "lib/files/node_paths.h"
#include "lib/files/path_text.h"
#include "lib/files/trash.h"
#include "lib/objects/object_holder.h"
#include "lib/text/byte_texts.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

using namespace pinorama;

namespace {
constexpr std::size_t kMaxNameLength = 63;  // bytes

std::int32_t lastStatus()
{
    return statusOfErrno(errno);
}

// The path that a specification names, of an item that need not exist. Empty with errno set.
std::string pathOf(const FSSpec* spec)
{
    std::string folder = pathOfNode({spec->volume, spec->parentNode});
    const std::size_t length = std::min<std::size_t>(spec->name[0], kMaxNameLength);
    if (folder.empty() || length == 0) return folder;
    const ObjectHolder<TovStringRef> name(
        createStringFromMacRoman({reinterpret_cast<const char*>(spec->name + 1), length}));
    if (!name) {
        errno = ENOMEM;
        return {};
    }
    return childPath(folder, pathBytes(name.get()));
}

// The reference of an existing item.
std::int32_t referenceOf(const FSSpec* spec, FSRef* outRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        std::string path = pathOf(spec);
        if (path.empty() || !itemExists(path)) return lastStatus();
        outRef->path = std::move(path);
        return kErrNone;
    });
}
}  // namespace

void feMakeFastFSSpec(std::uint64_t volume, std::uint64_t parentNode, const std::uint8_t* pName,
                      FSSpec* outSpec)
{
    *outSpec = {volume, parentNode, {}};
    if (pName == nullptr) return;
    const std::size_t length = std::min<std::size_t>(pName[0], kMaxNameLength);
    outSpec->name[0] = static_cast<std::uint8_t>(length);
    std::copy_n(pName + 1, length, outSpec->name + 1);
}

std::int32_t feMakeFSSpec(std::uint64_t volume, std::uint64_t parentNode, const std::uint8_t* pName,
                          FSSpec* outSpec)
{
    feMakeFastFSSpec(volume, parentNode, pName, outSpec);
    FSRef ref;
    return referenceOf(outSpec, &ref);
}

std::int32_t feMakeFSSpecFromFSRef(const FSRef* ref, FSSpec* outSpec)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        if (!itemExists(ref->path)) return lastStatus();
        // The root folder is in no other one; it is named by its own node.
        std::string folder = folderOf(ref->path);
        const bool isRoot = folder.empty();
        Node node = {};
        if (!nodeAt(isRoot ? ref->path : folder, &node)) return lastStatus();

        const ObjectHolder<TovStringRef> name(createPathText(isRoot ? "" : nameOf(ref->path)));
        if (!name) return kErrNoMemory;
        const std::u16string_view units = unitsOf(name.get());
        if (units.size() > kMaxNameLength || !isMacRoman(units)) return kErrBadName;
        *outSpec = {node.volume, node.number, {}};
        outSpec->name[0] = static_cast<std::uint8_t>(units.size());
        encodeMacRoman(units, reinterpret_cast<char*>(outSpec->name + 1));
        return kErrNone;
    });
}

std::int32_t feMakeFSRefFromNodeID(std::uint64_t volume, std::uint64_t node, FSRef* outRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        std::string path = pathOfNode({volume, node});
        if (path.empty()) return lastStatus();
        outRef->path = std::move(path);
        return kErrNone;
    });
}

std::int32_t feGetDirID(const FSSpec* spec, std::uint64_t* outNode)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        FSRef ref;
        const std::int32_t status = referenceOf(spec, &ref);
        if (status != kErrNone) return status;
        struct stat facts = {};
        if (lstat(ref.path.c_str(), &facts) != 0) return lastStatus();
        if (!S_ISDIR(facts.st_mode)) return kErrNotAFolder;
        Node node = {};
        if (!nodeAt(ref.path, &node)) return lastStatus();
        *outNode = node.number;
        return kErrNone;
    });
}

std::uint64_t feGetVolumeRefFromFSRef(const FSRef* ref)
{
    return baseGuardMemory([&]() -> std::uint64_t {
        Node node = {};
        return nodeAt(ref->path, &node) ? node.volume : 0;
    });
}

std::int32_t feGetVolRefAndDirIDFromPath(TovStringRef path, std::uint64_t* outVolume,
                                         std::uint64_t* outNode)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        FSRef ref;
        const std::int32_t status = feMakeFSRefFromPath(path, &ref);
        if (status != kErrNone) return status;
        Node node = {};
        if (!nodeAt(ref.path, &node)) return lastStatus();
        *outVolume = node.volume;
        *outNode = node.number;
        return kErrNone;
    });
}

TovStringRef feGetPathCFString(std::uint64_t volume, std::uint64_t node)
{
    FSRef ref;
    if (feMakeFSRefFromNodeID(volume, node, &ref) != kErrNone || !feIsFolder(&ref)) return nullptr;
    return feGetPathFromFSRef(&ref, 0);
}

std::int32_t feNumberOfVolumesOnDisk(const FSRef* ref, std::uint32_t* outCount)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        *outCount = 0;
        Node node = {};
        if (!nodeAt(ref->path, &node)) return lastStatus();
        *outCount = countVolumesOnDisk(node.volume);
        return kErrNone;
    });
}

std::int32_t feOpenExistingFile(const FSSpec* spec, ForkRef* outForkRef,
                                std::uint8_t writePermission, std::uint8_t dataFork)
{
    *outForkRef = 0;
    FSRef ref;
    const std::int32_t status = referenceOf(spec, &ref);
    if (status != kErrNone) return status;
    return feOpenExistingFileRef(&ref, outForkRef, writePermission, dataFork);
}

std::int32_t feCreateNewFile(const FSSpec* spec, std::uint32_t /*type*/, std::uint32_t /*creator*/,
                             std::uint8_t openDataFork, std::uint8_t /*addResourceFork*/,
                             ForkRef* outForkRef)
{
    return baseGuardMemory(kErrNoMemory, [&] {
        *outForkRef = 0;
        const FSRef ref = {pathOf(spec)};
        if (ref.path.empty()) return lastStatus();
        const ForkCloser made(openDescriptor(ref.path.c_str(), O_RDWR | O_CREAT | O_EXCL));
        if (!made && errno != EEXIST) return lastStatus();
        if (openDataFork == 0) return kErrNone;
        return feOpenExistingFileRef(&ref, outForkRef, 1, 1);
    });
}

std::int32_t feAddVersRessource(const FSSpec* spec)
{
    FSRef ref;
    return referenceOf(spec, &ref);
}

std::int32_t feDeleteFile(const FSSpec* spec)
{
    FSRef ref;
    const std::int32_t status = referenceOf(spec, &ref);
    return status != kErrNone ? status : feMoveFileToTrash(&ref);
}
