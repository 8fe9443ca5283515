// A disk that takes its time, as one does that has to start turning, a memory card, or a share on
// the network.

#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace test {

// A file system of another process, mounted for this process and those that it starts. Names, sizes
// and folders are told at once, as from a folder that somebody has just listed; the bytes of a file
// come only after a while. Who sleeps there cannot be killed until they come.
class SlowDisk {
public:
    static constexpr int kNever = -1;

    struct File {
        std::string name;
        std::string bytes;
        int wait;  // milliseconds from the first read to its answer, or kNever
    };

    // Mounts the disk over `folder`, an empty folder of the caller's.
    SlowDisk(std::string folder, std::vector<File> files);
    // Takes it away; whoever waits for bytes gets an error.
    ~SlowDisk();
    SlowDisk(const SlowDisk&) = delete;
    SlowDisk& operator=(const SlowDisk&) = delete;

    // False where nothing of the kind may be mounted.
    bool isUsable() const { return server_ > 0; }

    std::string file(const std::string& name) const { return folder_ + "/" + name; }

private:
    std::string folder_;
    pid_t server_ = -1;
};

}  // namespace test
