#include "cli/folder_watch.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <utility>

#include <dirent.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kMaxSeen = 1024;
constexpr std::size_t kBufferSize = 65536;
constexpr std::uint32_t kFolderEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_ONLYDIR;

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};
}  // namespace

FolderWatch::FolderWatch(bool recursive, OnError onError)
    : recursive_(recursive),
      onError_(std::move(onError)),
      inotify_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
{
}

void FolderWatch::add(const std::string& path)
{
    addFolder(path, Contents::old);
}

void FolderWatch::addFolder(const std::string& path, Contents contents)
{
    const std::uint32_t created = recursive_ ? IN_CREATE : 0;
    const int watch = inotify_add_watch(inotify_.get(), path.c_str(), kFolderEvents | created);
    if (watch < 0) {
        onError_(path,
                 errno == ENOSPC ? "the system watches no more folders" : std::strerror(errno));
        return;
    }
    std::string& folder = folders_[watch];
    folder = path.ends_with('/') ? path : path + '/';
    if (recursive_ || contents == Contents::justArrived) {
        listFolder(std::string(folder), contents);
    }
}

// Watches the subfolders of a folder, and takes the pictures that came before its watch.
void FolderWatch::listFolder(const std::string& path, Contents contents)
{
    const std::unique_ptr<DIR, FolderCloser> folder(opendir(path.c_str()));
    if (!folder) return;
    while (const dirent* entry = readdir(folder.get())) {
        const std::string item = path + entry->d_name;
        if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
        struct stat status {};
        if (lstat(item.c_str(), &status) != 0) continue;
        if (S_ISDIR(status.st_mode)) {
            if (recursive_) addFolder(item, contents);
        } else if (contents == Contents::justArrived && S_ISREG(status.st_mode) &&
                   accepted_.accepts(item)) {
            arrived_.push_back(item);
        }
    }
}

std::optional<std::string> FolderWatch::next(int alarm)
{
    while (true) {
        while (!arrived_.empty()) {
            std::string path = std::move(arrived_.front());
            arrived_.pop_front();
            if (isNew(path)) return path;
        }
        if (folders_.empty()) return std::nullopt;
        pollfd waiting[] = {{inotify_.get(), POLLIN, 0}, {alarm, POLLIN, 0}};
        if (poll(waiting, 2, -1) < 0 && errno != EINTR) return std::nullopt;
        if (waiting[1].revents != 0) return std::nullopt;
        if (!takeEvents()) return std::nullopt;
    }
}

// Takes what the system has reported. False if it reports nothing any more.
bool FolderWatch::takeEvents()
{
    alignas(inotify_event) char buffer[kBufferSize];
    const ssize_t length = read(inotify_.get(), buffer, sizeof buffer);
    if (length < 0) return errno == EAGAIN || errno == EINTR;
    for (ssize_t at = 0; at < length;) {
        inotify_event event;
        std::memcpy(&event, buffer + at, sizeof event);
        takeEvent(*reinterpret_cast<const inotify_event*>(buffer + at));
        at += static_cast<ssize_t>(sizeof event + event.len);
    }
    return true;
}

void FolderWatch::takeEvent(const inotify_event& event)
{
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
        onError_("the watched folders", "too much happened at once; pictures may be missing");
        return;
    }
    const auto folder = folders_.find(event.wd);
    if (folder == folders_.end()) return;
    if ((event.mask & IN_IGNORED) != 0) {
        folders_.erase(folder);  // it is gone
        return;
    }
    if (event.len == 0) return;
    const std::string item = folder->second + event.name;
    if ((event.mask & IN_ISDIR) != 0) {
        if (recursive_) addFolder(item, Contents::justArrived);
    } else if ((event.mask & (IN_CLOSE_WRITE | IN_MOVED_TO)) != 0 && accepted_.accepts(item)) {
        arrived_.push_back(item);
    }
}

bool FolderWatch::isNew(const std::string& path)
{
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return false;  // it has gone again
    const Seen seen{path, static_cast<std::uint64_t>(status.st_size),
                    status.st_mtim.tv_sec * std::int64_t{1'000'000'000} + status.st_mtim.tv_nsec};
    if (std::find(seen_.begin(), seen_.end(), seen) != seen_.end()) return false;
    seen_.push_back(seen);
    if (seen_.size() > kMaxSeen) seen_.pop_front();
    return S_ISREG(status.st_mode);
}

}  // namespace pinorama
