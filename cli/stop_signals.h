// Ctrl-C and the other friendly ways to end a program, noticed between two pieces of work instead
// of ending it at once.

#pragma once

#include "base/descriptor.h"

#include <csignal>

namespace pinorama {

class StopSignals {
public:
    // From now on SIGINT, SIGTERM and SIGHUP wait to be asked for, and writing to a closed pipe is
    // an error like any other.
    StopSignals();
    // As it was before.
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    // Readable when a signal has come.
    int descriptor() const { return descriptor_.get(); }

    // The first signal that has come; 0 for none.
    int caught();

private:
    sigset_t earlierMask_{};
    struct sigaction earlierPipeAction_ {};
    DescriptorHolder descriptor_;
    int caught_ = 0;
};

}  // namespace pinorama
