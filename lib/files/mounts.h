// The mounted volumes, as /proc/self/mountinfo lists them: proc(5).

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

struct Mount {
    std::uint64_t device;  // as in st_dev
    std::string folder;    // where its root is
};

// The mounts that the text of a mountinfo file lists; a line that cannot be read is left out.
std::vector<Mount> mountsInText(std::string_view text);

// The volumes that are mounted now and that this process can reach. The one with the root folder is
// always among them: where that folder is no mount of its own, as in a chroot, the system does not
// list it.
std::vector<Mount> mountedVolumes();

// The number of mounted volumes on the disk that the volume `device` is on, itself included. One
// that is on no disk, such as a network volume or one in memory, is alone.
std::uint32_t countVolumesOnDisk(std::uint64_t device);

}  // namespace pinorama
