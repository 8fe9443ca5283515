// Lets the program finish its current piece of work after Ctrl-C and other requests to end.

#pragma once

#include "base/descriptor.h"

#include <csignal>

namespace pinorama {

class StopSignals {
public:
    // From now on SIGINT, SIGTERM and SIGHUP are only recorded, and writing to a closed pipe is an
    // error like any other.
    StopSignals();
    // Restores the earlier settings.
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    // Becomes readable when a signal arrives.
    int descriptor() const { return descriptor_.get(); }

    // The first signal that has arrived; 0 for none.
    int caught();

private:
    sigset_t earlierMask_{};
    struct sigaction earlierPipeAction_ {};
    DescriptorHolder descriptor_;
    int caught_ = 0;
};

}  // namespace pinorama
