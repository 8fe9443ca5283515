#include "lib/files/trash_layout.h"

#include "base/descriptor.h"
#include "base/file_uri.h"
#include "base/item_path.h"
#include "base/moving.h"
#include "base/status.h"
#include "base/user_folders.h"

#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
constexpr std::string_view kInfoSuffix = ".trashinfo";
constexpr std::size_t kMaxNameLength = 255;  // bytes, the information file's suffix included
constexpr int kMaxNumber = 100000;  // added to a name before the search for a free one ends

// One of the Trash folders that an item may go to.
struct Trash {
    std::string folder;
    std::string topFolder;  // recorded paths are relative to it; empty: they are absolute
};

std::int32_t lastStatus()
{
    return statusOfErrno(errno);
}

// The device of what is at `path` itself; 0 with errno set when there is nothing.
dev_t deviceOf(const std::string& path)
{
    struct stat facts = {};
    return lstat(path.c_str(), &facts) == 0 ? facts.st_dev : 0;
}

// The highest folder above `path` that is on the same device.
std::string topFolderOf(const std::string& path)
{
    const dev_t device = deviceOf(path);
    std::string top = folderOf(path);
    while (true) {
        std::string above = folderOf(top);
        if (above.empty() || deviceOf(above) != device) return top;
        top = std::move(above);
    }
}

// Makes a folder that only the user may use. Nobody else may have put one there, nor a link.
bool makePrivateFolder(const std::string& path)
{
    if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) return false;
    struct stat facts = {};
    if (lstat(path.c_str(), &facts) != 0) return false;
    errno = EPERM;
    return S_ISDIR(facts.st_mode) && facts.st_uid == geteuid();
}

bool makeInside(const std::string& trash)
{
    return makePrivateFolder(trash + "/files") && makePrivateFolder(trash + "/info");
}

// The administrator's folder is trusted only when it is a real folder with the sticky bit.
bool isSharedTrash(const std::string& path)
{
    struct stat facts = {};
    return lstat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           (facts.st_mode & S_ISVTX) != 0;
}

std::string informationText(const Trash& trash, std::string_view path)
{
    if (!trash.topFolder.empty()) {
        path.remove_prefix(trash.topFolder.size());
        if (path.starts_with('/')) path.remove_prefix(1);
    }
    char date[32] = {};
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    (void)std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &local);
    return "[Trash Info]\nPath=" + escapedPath(path) + "\nDeletionDate=" + date + "\n";
}

// Makes the information file, which claims the name. False with errno set, EEXIST for a taken name.
bool writeInformation(const std::string& infoPath, const std::string& text)
{
    const DescriptorHolder file(
        openDescriptor(infoPath.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600));
    if (!file) return false;
    const std::int64_t written = writeAt(file.get(), 0, text.data(), text.size());
    if (written == static_cast<std::int64_t>(text.size())) return true;
    if (written >= 0) errno = ENOSPC;
    const int error = errno;
    unlink(infoPath.c_str());
    errno = error;
    return false;
}

// Moves the item under exactly this name. False with errno set and nothing changed.
bool moveAs(const Trash& trash, const std::string& path, const std::string& name)
{
    std::string infoPath = trash.folder + "/info/" + name;
    infoPath += kInfoSuffix;
    if (!writeInformation(infoPath, informationText(trash, path))) return false;
    if (moveWithoutReplacing(path, trash.folder + "/files/" + name)) return true;
    const int error = errno;
    unlink(infoPath.c_str());
    errno = error;
    return false;
}

// The name with a number in front of its extension: "photo 2.jpg"; number 1 adds nothing. Too long
// a name loses the end of its stem, never half a character of UTF-8; the full one is in the record.
std::string numberedName(std::string_view name, int number)
{
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != name.npos && dot != 0 && name.size() - dot <= 32;
    std::string_view stem = hasExtension ? name.substr(0, dot) : name;
    std::string tail = number == 1 ? std::string() : " " + std::to_string(number);
    if (hasExtension) tail += name.substr(dot);

    const std::size_t room = kMaxNameLength - kInfoSuffix.size() - tail.size();
    if (stem.size() > room) {
        std::size_t end = room;
        while (room - end < 3 && (stem[end] & 0xc0) == 0x80) end--;
        stem = stem.substr(0, end);
    }
    return std::string(stem) + tail;
}

// True when the item is in the Trash at the end; false with errno set.
bool moveInto(const Trash& trash, const std::string& path, std::string_view wantedName,
              TrashName naming)
{
    for (int number = 1; number <= kMaxNumber; number++) {
        if (moveAs(trash, path, numberedName(wantedName, number))) return true;
        if (errno != EEXIST || naming == TrashName::wantedOnly) return false;
    }
    return false;
}

// The Trash folders that items on the device of `path` may go to, the best one first. Each is made
// only when its turn comes; false when it cannot be made.
bool makeHomeTrash(const std::string& path, Trash* trash)
{
    const std::string data = dataFolder();
    *trash = {data + "/Trash", ""};
    return !data.empty() && makeFolders(trash->folder, 0700) &&
           deviceOf(trash->folder) == deviceOf(path) && makeInside(trash->folder);
}

bool makeSharedTrash(const std::string& path, Trash* trash)
{
    const std::string top = topFolderOf(path);
    const std::string shared = childPath(top, ".Trash");
    *trash = {shared + "/" + std::to_string(geteuid()), top};
    return isSharedTrash(shared) && makePrivateFolder(trash->folder) && makeInside(trash->folder);
}

bool makeOwnTrash(const std::string& path, Trash* trash)
{
    const std::string top = topFolderOf(path);
    *trash = {childPath(top, ".Trash-" + std::to_string(geteuid())), top};
    return makePrivateFolder(trash->folder) && makeInside(trash->folder);
}
}  // namespace

pinorama::TrashResult pinorama::moveToTrash(const std::string& path, std::string_view wantedName,
                                            TrashName naming)
{
    if (!itemExists(path)) return {lastStatus(), false};
    for (const auto make : {makeHomeTrash, makeSharedTrash, makeOwnTrash}) {
        Trash trash;
        if (!make(path, &trash)) continue;
        if (moveInto(trash, path, wantedName, naming)) return {kErrNone, true};
        // One device may be mounted in several places, which nothing can be moved between.
        if (errno != EXDEV) return {lastStatus(), true};
    }
    return {kErrInputOutput, false};
}
