#include "cli/worker_pool.h"

#include "base/child_process.h"
#include "cli/batch_message.h"
#include "cli/diagnostic.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <utility>

#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kMaxBatchesPerWorker = 4;  // dispatched, or with a result not yet taken
constexpr std::size_t kMaxQueuedBatches = 2;     // of one worker: the current one and the next
constexpr std::size_t kReceiveSize = 65536;
constexpr std::chrono::milliseconds kMaxEnd(200);  // of a worker that was killed

// The main function of a worker. It ends when its parent closes the socket or dies. Signals from
// the terminal are for the parent; they stay blocked here as they are there.
void runWorker(int socket, const WorkerPool::Work& work)
{
    while (const auto paths = receivePaths(socket)) {
        BatchResult result = work(*paths);
        result.items = paths->size();
        if (!sendResult(socket, result)) return;
    }
}
}  // namespace

int usableProcessors()
{
    cpu_set_t usable;
    if (sched_getaffinity(0, sizeof usable, &usable) != 0) return 1;
    return std::max(1, CPU_COUNT(&usable));
}

WorkerPool::WorkerPool(int workerCount, Work work)
    : work_(std::move(work)),
      workers_(static_cast<std::size_t>(workerCount)),
      maxBatches_(workers_.size() * kMaxBatchesPerWorker)
{
}

WorkerPool::~WorkerPool()
{
    for (const Worker& worker : workers_) {
        if (worker.process > 0) kill(worker.process, SIGKILL);
    }
    // Whoever stops the program does not wait for a disk that keeps them.
    const auto end = std::chrono::steady_clock::now() + kMaxEnd;
    for (const Worker& worker : workers_) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            std::max(end - std::chrono::steady_clock::now(), {}));
        if (worker.process > 0) (void)waitForEnd(worker.process, left);
    }
}

void WorkerPool::add(std::vector<std::string> paths)
{
    const std::size_t count = paths.size();
    batches_.push_back({.paths = std::move(paths), .step = count});
    dispatch();
}

std::optional<BatchResult> WorkerPool::take()
{
    if (batches_.empty() || batches_.front().done < batches_.front().paths.size()) {
        return std::nullopt;
    }
    BatchResult result = std::move(batches_.front().result);
    batches_.pop_front();
    return result;
}

std::vector<pid_t> WorkerPool::processes() const
{
    std::vector<pid_t> processes;
    for (const Worker& worker : workers_) {
        if (worker.process > 0) processes.push_back(worker.process);
    }
    return processes;
}

bool WorkerPool::start(Worker* worker)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return false;
    worker->socket = DescriptorHolder(ends[0]);
    DescriptorHolder theirs(ends[1]);
    worker->process = forkProcess(theirs.get(), [this](int socket) { runWorker(socket, work_); });
    if (worker->process < 0) worker->socket = DescriptorHolder();
    return worker->process > 0;
}

// Gives up a worker that has died. Nobody knows which file of its current batch was the reason, so
// the rest of that batch is dispatched file by file. The other batches in its queue are dispatched
// again.
void WorkerPool::discard(Worker* worker)
{
    worker->socket = DescriptorHolder();
    if (worker->process > 0) {
        kill(worker->process, SIGKILL);
        (void)waitForEnd(worker->process, kMaxEnd);
    }
    std::deque<Batch*> queue = std::move(worker->queue);
    *worker = Worker{};
    for (Batch* batch : queue) batch->isDispatched = false;
    if (!queue.empty()) failNextFile(queue.front());
}

void WorkerPool::failNextFile(Batch* batch)
{
    if (batch->step > 1) {
        batch->step = 1;
        return;
    }
    BatchResult failure;
    appendDiagnostic(
        shownPath(batch->paths[batch->done]) + ": the process that read it ended unexpectedly",
        &failure.diagnostics);
    failure.files = 1;
    failure.failed = 1;
    batch->result.add(std::move(failure));
    batch->done++;
}

// Fills the queues of the workers, the oldest batches first.
void WorkerPool::dispatch()
{
    for (Batch& batch : batches_) {
        while (!batch.isDispatched && batch.done < batch.paths.size()) {
            const auto worker = std::min_element(
                workers_.begin(), workers_.end(),
                [](const Worker& a, const Worker& b) { return a.queue.size() < b.queue.size(); });
            if (worker->queue.size() >= kMaxQueuedBatches) return;
            if (worker->process <= 0 && !start(&*worker)) {
                failNextFile(&batch);
                continue;
            }
            const std::size_t count = std::min(batch.step, batch.paths.size() - batch.done);
            worker->unsent += encodePaths(std::span(batch.paths).subspan(batch.done, count));
            worker->queue.push_back(&batch);
            batch.isDispatched = true;
            if (!send(&*worker)) discard(&*worker);
        }
    }
}

bool WorkerPool::send(Worker* worker)
{
    while (!worker->unsent.empty()) {
        const ssize_t sent = ::send(worker->socket.get(), worker->unsent.data(),
                                    worker->unsent.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) return errno == EAGAIN || errno == EWOULDBLOCK;
        worker->unsent.erase(0, static_cast<std::size_t>(sent));
    }
    return true;
}

// Takes what the worker has sent. False if the worker is gone.
bool WorkerPool::receive(Worker* worker)
{
    while (true) {
        const std::size_t before = worker->received.size();
        worker->received.resize(before + kReceiveSize);
        const ssize_t count = recv(worker->socket.get(), worker->received.data() + before,
                                   kReceiveSize, MSG_DONTWAIT);
        worker->received.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count < 0 && errno == EINTR) continue;
        if (count == 0) return false;
        if (count < 0) return errno == EAGAIN || errno == EWOULDBLOCK;
        while (auto result = takeResult(&worker->received)) {
            if (worker->queue.empty()) return false;
            Batch* batch = worker->queue.front();
            worker->queue.pop_front();
            batch->done += result->items;
            batch->isDispatched = false;
            batch->result.add(*std::move(result));
        }
        if (static_cast<std::size_t>(count) < kReceiveSize) return true;
    }
}

void WorkerPool::wait(int alarm, int milliseconds)
{
    std::vector<pollfd> descriptors = {{alarm, POLLIN, 0}};
    for (const Worker& worker : workers_) {
        const int events = worker.unsent.empty() ? POLLIN : POLLIN | POLLOUT;
        descriptors.push_back({worker.socket.get(), static_cast<short>(events), 0});
    }
    if (poll(descriptors.data(), descriptors.size(), milliseconds) <= 0) return;
    for (std::size_t i = 0; i < workers_.size(); i++) {
        if (descriptors[i + 1].revents == 0) continue;
        Worker* worker = &workers_[i];
        if (!receive(worker) || !send(worker)) discard(worker);
    }
    dispatch();
}

}  // namespace pinorama
