// A slow disk, such as one that has to spin up, a memory card, or a network share.

#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace test {

// A file system in another process, mounted for this process and those that it starts. Names, sizes
// and folders come at once, as from a folder that has just been listed; the bytes of a file come
// only after a while. A process that waits for them cannot be killed until they come.
class SlowDisk {
public:
    static constexpr int kNever = -1;

    // What takes its time.
    enum class Step {
        look,  // whether there is such a file, and its attributes
        open,
        read,
    };

    struct File {
        std::string name;
        std::string bytes;
        int wait;  // milliseconds from the first such request to its reply, or kNever
        Step step = Step::read;
    };

    // Mounts the disk over `folder`, an empty folder of the caller's.
    SlowDisk(std::string folder, std::vector<File> files);
    // Unmounts it; a process that waits for bytes gets an error.
    ~SlowDisk();
    SlowDisk(const SlowDisk&) = delete;
    SlowDisk& operator=(const SlowDisk&) = delete;

    // False if this machine does not allow such a mount.
    bool isUsable() const { return server_ > 0; }

    // Lets the whole disk stand still, for a quarter of a minute at most, and go on.
    void hang() const;
    void recover() const;

    std::string file(const std::string& name) const { return folder_ + "/" + name; }

private:
    std::string folder_;
    pid_t server_ = -1;
};

}  // namespace test
