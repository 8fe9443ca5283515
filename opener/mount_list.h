// Which file system a path leads into, by the kernel's own list of mounts: nothing is asked of the
// file systems themselves, so that a disk or a server that hangs cannot keep the caller.
//
// A file system is known by the number of its device, which all places share where it is mounted:
// when it hangs it hangs in all of them.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace pinorama {

class MountList {
public:
    // The mounts that this process sees now; none without /proc.
    static MountList current();

    // Those of a text as /proc/self/mountinfo has it (proc_pid_mountinfo(5)); lines that are
    // malformed are passed over.
    explicit MountList(std::string_view mountinfo);

    // The file system that has the item of that path.
    //
    //   path  absolute and free of links, "." and "..".
    //
    // Returns its device, never 0; 0 if it is not known.
    std::uint64_t deviceOf(std::string_view path) const;

    // Whether a file system keeps the last one who gives up a file until a disk or a server has
    // answered, and not only whoever opens, reads and saves one.
    bool keepsWhoGivesUp(std::uint64_t device) const { return keeping_.contains(device); }

private:
    std::map<std::string, std::uint64_t, std::less<>> devices_;  // by the path of the mount
    std::set<std::uint64_t> keeping_;                            // devices
};

// Follows `path` part by part and link by link, and calls `enter` with the device of each file
// system just before something is asked of it, the first one included. Ends early when `enter`
// returns false, where something is missing, and at the links below /proc, which lead to no path.
//
//   path  in the bytes of the system; a relative one begins in the current folder.
//
// Returns false if `enter` did.
bool followPath(std::string_view path, const MountList& mounts,
                const std::function<bool(std::uint64_t device)>& enter);

}  // namespace pinorama
