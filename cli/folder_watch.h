// The pictures that arrive in folders, by inotify(7): those that a program has finished writing,
// and those that are moved there.
//
//     FolderWatch watch(true, [](const std::string& path, const std::string& why) { ... });
//     watch.add("/home/anna/Import");
//     while (const auto path = watch.next(signals.descriptor())) read(*path);

#pragma once

#include "base/descriptor.h"
#include "cli/accepted_names.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

struct inotify_event;

namespace pinorama {

class FolderWatch {
public:
    // Called for a folder that cannot be watched, with its path and the reason.
    using OnError = std::function<void(const std::string& path, const std::string& why)>;

    // With `recursive`, subfolders are watched as well, also those that appear later.
    FolderWatch(bool recursive, OnError onError);

    // Watches a folder from now on. What is in it already has not arrived.
    void add(const std::string& path);

    // Waits for the next picture: the path of its folder as it was added, and the names below it.
    // Nothing when `alarm` becomes readable, and when no folder is left.
    std::optional<std::string> next(int alarm);

private:
    // What is in a folder when its watch begins.
    enum class Contents { old, justArrived };

    // A picture that was returned lately. One in a new folder can be found by its listing and
    // reported by the system as well.
    struct Seen {
        std::string path;
        std::uint64_t size;
        std::int64_t modified;  // nanoseconds since 1970
        bool operator==(const Seen&) const = default;
    };

    void addFolder(const std::string& path, Contents contents);
    void listFolder(const std::string& path, Contents contents);
    bool takeEvents();
    void takeEvent(const inotify_event& event);
    bool isNew(const std::string& path);

    bool recursive_;
    OnError onError_;
    DescriptorHolder inotify_;
    std::map<int, std::string> folders_{};  // by the number of their watch; paths end with a slash
    std::deque<std::string> arrived_{};
    std::deque<Seen> seen_{};
    AcceptedNames accepted_{};
};

}  // namespace pinorama
