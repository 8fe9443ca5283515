#include "cli/lane_pool.h"

#include "cli/batch_message.h"
#include "cli/complaint.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>

#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kBatchesPerLane = 4;  // handed over or waiting to be taken
constexpr std::size_t kMostHandedOver = 2;  // to one lane: what it works on, and the next
constexpr std::size_t kReceiveSize = 65536;

// Of everything that is open only the standard streams and `kept` stay.
void closeOthers(int kept)
{
    const auto first = static_cast<unsigned>(kept);
    if (kept > STDERR_FILENO + 1) syscall(SYS_close_range, STDERR_FILENO + 1, first - 1, 0u);
    syscall(SYS_close_range, first + 1, ~0u, 0u);
}

// The whole life of a lane. What is typed in the terminal is for the program: its signals are
// blocked here as there, and a lane ends when the socket does, or with its parent.
[[noreturn]] void live(int socket, pid_t parent, const LanePool::Work& work)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    closeOthers(socket);
    while (const auto paths = receivePaths(socket)) {
        if (!sendResult(socket, work(*paths))) break;
    }
    _exit(0);
}
}  // namespace

int usableProcessors()
{
    cpu_set_t usable;
    if (sched_getaffinity(0, sizeof usable, &usable) != 0) return 1;
    return std::max(1, CPU_COUNT(&usable));
}

LanePool::LanePool(int laneCount, Work work)
    : work_(std::move(work)),
      lanes_(static_cast<std::size_t>(laneCount)),
      most_(lanes_.size() * kBatchesPerLane)
{
}

LanePool::~LanePool()
{
    for (const Lane& lane : lanes_) {
        if (lane.process > 0) kill(lane.process, SIGKILL);
    }
    for (const Lane& lane : lanes_) {
        if (lane.process > 0) waitpid(lane.process, nullptr, 0);
    }
}

void LanePool::add(std::vector<std::string> paths)
{
    const std::size_t count = paths.size();
    batches_.push_back({.paths = std::move(paths), .step = count});
    handOver();
}

std::optional<BatchResult> LanePool::take()
{
    if (batches_.empty() || batches_.front().done < batches_.front().paths.size()) {
        return std::nullopt;
    }
    BatchResult result = std::move(batches_.front().result);
    batches_.pop_front();
    return result;
}

std::vector<pid_t> LanePool::processes() const
{
    std::vector<pid_t> processes;
    for (const Lane& lane : lanes_) {
        if (lane.process > 0) processes.push_back(lane.process);
    }
    return processes;
}

bool LanePool::start(Lane* lane)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return false;
    lane->socket = DescriptorHolder(ends[0]);
    DescriptorHolder theirs(ends[1]);
    const pid_t parent = getpid();
    lane->process = fork();
    if (lane->process == 0) live(theirs.get(), parent, work_);
    if (lane->process < 0) lane->socket = DescriptorHolder();
    return lane->process > 0;
}

// The lane has died, or cannot be started. Nobody knows which file of its batch did that, so the
// rest of the batch is tried file by file. Other batches that it had are none the wiser.
void LanePool::lose(Lane* lane)
{
    lane->socket = DescriptorHolder();
    if (lane->process > 0) {
        kill(lane->process, SIGKILL);
        waitpid(lane->process, nullptr, 0);
    }
    std::deque<Batch*> queue = std::move(lane->queue);
    *lane = Lane{};
    for (Batch* batch : queue) batch->isHandedOver = false;
    if (!queue.empty()) fail(queue.front());
}

void LanePool::fail(Batch* batch)
{
    if (batch->step > 1) {
        batch->step = 1;
        return;
    }
    BatchResult failure;
    appendComplaint(
        shownPath(batch->paths[batch->done]) + ": the process that read it ended unexpectedly",
        &failure.complaints);
    failure.files = 1;
    failure.failed = 1;
    batch->result.add(std::move(failure));
    batch->done++;
}

// Gives the lanes as much as they may have, the oldest first.
void LanePool::handOver()
{
    for (Batch& batch : batches_) {
        while (!batch.isHandedOver && batch.done < batch.paths.size()) {
            const auto lane = std::min_element(
                lanes_.begin(), lanes_.end(),
                [](const Lane& a, const Lane& b) { return a.queue.size() < b.queue.size(); });
            if (lane->queue.size() >= kMostHandedOver) return;
            if (lane->process <= 0 && !start(&*lane)) {
                fail(&batch);
                continue;
            }
            const std::size_t count = std::min(batch.step, batch.paths.size() - batch.done);
            lane->unsent += encodePaths(std::span(batch.paths).subspan(batch.done, count));
            lane->queue.push_back(&batch);
            batch.isHandedOver = true;
            if (!send(&*lane)) lose(&*lane);
        }
    }
}

bool LanePool::send(Lane* lane)
{
    while (!lane->unsent.empty()) {
        const ssize_t sent = ::send(lane->socket.get(), lane->unsent.data(), lane->unsent.size(),
                                    MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) return errno == EAGAIN || errno == EWOULDBLOCK;
        lane->unsent.erase(0, static_cast<std::size_t>(sent));
    }
    return true;
}

// Takes what has come. False when the lane is gone.
bool LanePool::receive(Lane* lane)
{
    while (true) {
        const std::size_t before = lane->received.size();
        lane->received.resize(before + kReceiveSize);
        const ssize_t count =
            recv(lane->socket.get(), lane->received.data() + before, kReceiveSize, MSG_DONTWAIT);
        lane->received.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count < 0 && errno == EINTR) continue;
        if (count == 0) return false;
        if (count < 0) return errno == EAGAIN || errno == EWOULDBLOCK;
        while (auto result = takeResult(&lane->received)) {
            if (lane->queue.empty()) return false;
            Batch* batch = lane->queue.front();
            lane->queue.pop_front();
            batch->done += result->files;
            batch->isHandedOver = false;
            batch->result.add(*std::move(result));
        }
        if (static_cast<std::size_t>(count) < kReceiveSize) return true;
    }
}

void LanePool::wait(int alarm, int milliseconds)
{
    std::vector<pollfd> descriptors = {{alarm, POLLIN, 0}};
    for (const Lane& lane : lanes_) {
        const int events = lane.unsent.empty() ? POLLIN : POLLIN | POLLOUT;
        descriptors.push_back({lane.socket.get(), static_cast<short>(events), 0});
    }
    if (poll(descriptors.data(), descriptors.size(), milliseconds) <= 0) return;
    for (std::size_t i = 0; i < lanes_.size(); i++) {
        if (descriptors[i + 1].revents == 0) continue;
        Lane* lane = &lanes_[i];
        if (!receive(lane) || !send(lane)) lose(lane);
    }
    handOver();
}

}  // namespace pinorama
