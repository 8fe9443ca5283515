// Processes batches of files in several worker processes at once and returns the results in the
// order in which the batches came. A worker that dies costs the file that it was working on, and
// another one takes its place. Memory is bounded: a few batches for each worker, and their results.
//
//     WorkerPool workers(usableProcessors(), processBatch);
//     while (more || !workers.isEmpty()) {
//         while (more && workers.hasRoom()) workers.add(nextBatch(&more));
//         workers.wait(stopDescriptor, 100);
//         while (auto result = workers.take()) print(*result);
//     }

#pragma once

#include "base/descriptor.h"
#include "cli/batch_work.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace pinorama {

// The number of processors that this process may use, at least 1.
int usableProcessors();

class WorkerPool {
public:
    // What a worker does with a batch.
    using Work = std::function<BatchResult(std::span<const std::string> paths)>;

    // Workers are forked from this process when the first batches come; each has its own copy of
    // `work`. The process must have one thread only.
    WorkerPool(int workerCount, Work work);
    // Kills all workers, whatever they are doing.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Whether add() may be called now.
    bool hasRoom() const { return batches_.size() < maxBatches_; }
    void add(std::vector<std::string> paths);

    // Whether the results of all batches have been taken.
    bool isEmpty() const { return batches_.empty(); }

    // The result of the oldest batch that has not been taken; nothing while it is incomplete.
    std::optional<BatchResult> take();

    // Waits until a worker has sent something, `alarm` becomes readable, or the time is over.
    void wait(int alarm, int milliseconds);

    // For tests: the IDs of the running workers.
    std::vector<pid_t> processes() const;

private:
    struct Batch {
        std::vector<std::string> paths;
        std::size_t step;           // files that one request contains
        std::size_t done = 0;       // files that have a result
        bool isDispatched = false;  // a worker has the next request
        BatchResult result{};
    };
    struct Worker {
        pid_t process = -1;
        DescriptorHolder socket{};
        std::string unsent{};
        std::string received{};
        std::deque<Batch*> queue{};  // dispatched, in the order of their replies
    };

    bool start(Worker* worker);
    void discard(Worker* worker);
    void failNextFile(Batch* batch);
    void dispatch();
    bool send(Worker* worker);
    bool receive(Worker* worker);

    Work work_;
    std::vector<Worker> workers_;
    std::size_t maxBatches_;
    std::deque<Batch> batches_{};  // a deque never moves its items
};

}  // namespace pinorama
