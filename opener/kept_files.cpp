#include "opener/kept_files.h"

#include <utility>

#include <poll.h>

namespace pinorama {

void KeptFiles::add(PictureFile file, DescriptorHolder otherEnd, std::uint64_t device)
{
    kept_.push_back({std::move(file), std::move(otherEnd), device});
}

std::vector<std::uint64_t> KeptFiles::waitFor(int socket)
{
    std::vector<pollfd> states = {{socket, POLLIN, 0}};
    // That an end hangs up is reported without being asked for; what somebody sends is not read.
    for (const File& file : kept_) states.push_back({file.otherEnd.get(), 0, 0});
    std::vector<std::uint64_t> devices;
    if (poll(states.data(), states.size(), -1) <= 0) return devices;
    std::size_t next = 1;
    for (auto file = kept_.begin(); file != kept_.end(); next++) {
        if ((states[next].revents & (POLLHUP | POLLERR)) == 0) {
            ++file;
            continue;
        }
        devices.push_back(file->device);
        released_.push_back(std::move(file->file));
        file = kept_.erase(file);
    }
    return devices;
}

bool KeptFiles::closeOldest()
{
    if (released_.empty()) return false;
    released_.pop_front();
    return true;
}

}  // namespace pinorama
