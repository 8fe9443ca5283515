#include "opener/opener_at_work.h"

#include <algorithm>

namespace pinorama {

bool OpenerAtWork::mayReply(const OpenReply& reply) const
{
    if (reply.event == OpenEvent::released) return reply.number == 0 && released.size() < kept;
    if (isIdle() || reply.number != number) return false;
    if ((reply.event == OpenEvent::closed) != (request.task == OpenTask::close)) return false;
    return reply.event != OpenEvent::facts || reply.facts.size() == request.paths.size();
}

std::size_t countAtWork(const OpenersAtWork& openers)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(openers, [](const auto& opener) { return !opener->isIdle(); }));
}

std::vector<std::uint64_t> fileSystemsToLeaveAlone(const OpenersAtWork& openers)
{
    std::vector<std::uint64_t> devices;
    const std::size_t atWork = countAtWork(openers);
    for (const auto& opener : openers) {
        if (opener->isIdle() || opener->device == 0) continue;
        const auto here =
            static_cast<std::size_t>(std::ranges::count_if(openers, [&](const auto& other) {
                return !other->isIdle() && other->device == opener->device;
            }));
        const bool isFull = here >= OpenerAtWork::kMaxInFileSystem || atWork > here;
        if (isFull && std::ranges::find(devices, opener->device) == devices.end()) {
            devices.push_back(opener->device);
        }
    }
    return devices;
}

bool isToBeLeftAlone(const OpenersAtWork& openers, std::uint64_t device)
{
    const std::vector<std::uint64_t> devices = fileSystemsToLeaveAlone(openers);
    return std::ranges::find(devices, device) != devices.end();
}

}  // namespace pinorama
