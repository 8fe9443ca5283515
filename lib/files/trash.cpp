#include "lib/files/trash.h"

#include "base/descriptor.h"
#include "base/item_path.h"
#include "base/random_bytes.h"
#include "base/status.h"
#include "base/ticks.h"
#include "lib/files/trash_layout.h"

#include <cerrno>
#include <cstdio>
#include <string>

using namespace pinorama;

using pinorama::TrashName;

namespace {
std::int32_t lastStatus()
{
    return statusOfErrno(errno);
}

std::int32_t deleteForGood(const std::string& path)
{
    return std::remove(path.c_str()) == 0 ? kErrNone : lastStatus();
}

std::string nameForAClash()
{
    std::int32_t random = 0;
    (void)fillWithRandomBytes(&random, sizeof random);
    return "Skallion Folder " + std::to_string(static_cast<std::int32_t>(tickCount())) + " " +
           std::to_string(random);
}
// The end of a move: without any Trash the item is deleted.
std::int32_t endWith(const pinorama::TrashResult& result, const FSRef* ref)
{
    if (result.status == kErrNone || result.hasTrash) return result.status;
    return deleteForGood(ref->path);
}
}  // namespace

std::int32_t feDeleteFileAtPath(const char* utf8Path)
{
    const std::string path = utf8Path == nullptr ? "" : utf8Path;
    if (!itemExists(path)) return lastStatus();
    (void)deleteForGood(path);  // only the path's own error is reported
    return kErrNone;
}

std::int32_t feMoveFileToTrash(const FSRef* ref)
{
    const auto name = nameOf(ref->path);
    return endWith(moveToTrash(ref->path, name, TrashName::any), ref);
}

std::int32_t feMoveFolderToTrash(const FSRef* ref)
{
    const auto name = nameOf(ref->path);
    auto result = moveToTrash(ref->path, name, TrashName::wantedOnly);
    if (result.status == kErrExists) {
        result = moveToTrash(ref->path, nameForAClash(), TrashName::wantedOnly);
    }
    return endWith(result, ref);
}
