// Works on batches in several processes at once, the lanes, and gives their results back in the
// order in which the batches came. A lane that dies costs the file that it worked on and is
// replaced. Memory is bounded: a few batches for each lane and what came of them.

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

// The processors that this process may use, at least 1.
int usableProcessors();

class LanePool {
public:
    // What a lane does, in a process of its own: one result for each batch.
    using Work = std::function<BatchResult(std::span<const std::string> paths)>;

    // Lanes are copies of this process and start with the first batches; `work` begins in each as
    // it is here. The process has one thread.
    LanePool(int laneCount, Work work);
    // Ends all lanes, whatever they are at.
    ~LanePool();
    LanePool(const LanePool&) = delete;
    LanePool& operator=(const LanePool&) = delete;

    // Whether another batch may come now.
    bool hasRoom() const { return batches_.size() < most_; }
    void add(std::vector<std::string> paths);

    // Whether the results of all batches have been taken.
    bool isEmpty() const { return batches_.empty(); }

    // The result of the oldest batch that has not been taken; nothing while it is under way.
    std::optional<BatchResult> take();

    // Waits until a lane has something new, `alarm` becomes readable, or the time is over.
    void wait(int alarm, int milliseconds);

    // For tests: the processes at work.
    std::vector<pid_t> processes() const;

private:
    struct Batch {
        std::vector<std::string> paths;
        std::size_t step;           // files that are handed over at once
        std::size_t done = 0;       // files that have their result
        bool isHandedOver = false;  // the next step is with a lane
        BatchResult result{};
    };
    struct Lane {
        pid_t process = -1;
        DescriptorHolder socket{};
        std::string unsent{};
        std::string received{};
        std::deque<Batch*> queue{};  // handed over, in the order of their answers
    };

    bool start(Lane* lane);
    void lose(Lane* lane);
    void fail(Batch* batch);
    void handOver();
    bool send(Lane* lane);
    bool receive(Lane* lane);

    Work work_;
    std::vector<Lane> lanes_;
    std::size_t most_;
    std::deque<Batch> batches_{};  // a deque: its items stay where they are
};

}  // namespace pinorama
