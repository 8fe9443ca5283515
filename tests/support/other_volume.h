// A second volume, for tests of what happens between volumes.

#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test {

// The volume in memory that Linux machines have besides that of the temporary files, with a folder
// for the test. One test at a time uses it; everything that the test leaves there is removed.
class OtherVolume {
public:
    OtherVolume() : lock_(open(kTop, O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (lock_ < 0 || flock(lock_, LOCK_EX) != 0) return;
        struct stat here = {}, there = {};
        isUsable_ = stat(std::filesystem::temp_directory_path().c_str(), &here) == 0 &&
                    fstat(lock_, &there) == 0 && here.st_dev != there.st_dev &&
                    access(kTop, W_OK) == 0 && !exists(sharedTrash()) && !exists(ownTrash());
        if (isUsable_) std::filesystem::create_directory(folder());
    }
    ~OtherVolume()
    {
        if (isUsable_) {
            for (const std::string& path : {sharedTrash(), ownTrash(), folder()}) {
                std::filesystem::remove_all(path);
            }
        }
        if (lock_ >= 0) close(lock_);
    }
    OtherVolume(const OtherVolume&) = delete;
    OtherVolume& operator=(const OtherVolume&) = delete;

    // False if the machine has no such volume, or if there is a Trash on it already.
    bool isUsable() const { return isUsable_; }

    // The folder to work in, a direct child of the volume's top folder, and its name.
    static std::string folder() { return std::string(kTop) + "/" + folderName(); }
    static std::string folderName() { return "pinorama-test-" + std::to_string(getpid()); }

    // Writes a file in the folder and returns its path.
    static std::string write(const std::string& name, const std::string& content)
    {
        std::ofstream(folder() + "/" + name) << content;
        return folder() + "/" + name;
    }

    // The places of the two kinds of Trash on the volume.
    static std::string sharedTrash() { return std::string(kTop) + "/.Trash"; }
    static std::string ownTrash() { return sharedTrash() + "-" + std::to_string(geteuid()); }

private:
    static constexpr const char* kTop = "/dev/shm";

    static bool exists(const std::string& path)
    {
        return std::filesystem::exists(std::filesystem::symlink_status(path));
    }

    int lock_;
    bool isUsable_ = false;
};

}  // namespace test
