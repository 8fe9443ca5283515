// The one place where pinorama-info lets the bytes of pictures be read.

#pragma once

#include "platform/pictures/reader_client.h"

#include <functional>
#include <span>
#include <vector>

struct PropertyReading {
    // Makes ready for pictures that will come in a moment, and returns at once. What has been made
    // ready is not to be shared with processes that are split off later.
    std::function<void()> prepare;

    // Reads the pictures that are open under the descriptors, which stay the caller's: a result for
    // each, in their order.
    std::function<std::vector<platform::PropertyResult>(std::span<const int> descriptors)> read;

    // Says that no picture follows.
    std::function<void()> finish;
};

// Reading by locked-in copies of this process, one at a time, the first of which starts with the
// first picture. A picture that one dies of, or takes too long for, costs that picture.
PropertyReading makePropertyReading();
