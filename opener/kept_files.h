// Files that an opener has handed over in boxes and keeps open as well, because their file system
// keeps the last one who gives a file up until a server has answered (MountList::keepsWhoGivesUp).
// So that one is the opener, and never whoever had the box.
//
// A file is kept, then released, as nobody else has its box any more, and in the end closed here.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "base/descriptor.h"
#include "pictures/picture_file.h"

namespace pinorama {

class KeptFiles {
public:
    static constexpr std::size_t kMax = 100;  // a window has a handful

    bool isFull() const { return kept_.size() + released_.size() >= kMax; }

    // Keeps a file.
    //
    //   otherEnd  of its box (boxDescriptor).
    //   device    of its file system.
    void add(PictureFile file, DescriptorHolder otherEnd, std::uint64_t device);

    // Waits until `socket` is readable or files are released.
    //
    // Returns the devices of the files that were released meanwhile, each of them once.
    std::vector<std::uint64_t> waitFor(int socket);

    // Closes the file that was released first, which may take any time. False if there is none.
    bool closeOldest();

private:
    struct File {
        PictureFile file;
        DescriptorHolder otherEnd;
        std::uint64_t device;
    };

    std::deque<File> kept_;
    std::deque<PictureFile> released_;  // in the order in which waitFor() has returned them
};

}  // namespace pinorama
