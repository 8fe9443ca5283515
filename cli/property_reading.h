// The one place where pinorama-info lets the bytes of pictures be read.

#pragma once

#include "reader/reader_client.h"

#include <functional>
#include <span>
#include <vector>

namespace pinorama {

struct PropertyReading {
    // Makes ready for pictures that will come in a moment, and returns at once. What has been made
    // ready is not to be shared with processes that are split off later.
    std::function<void()> prepare;

    // Reads the pictures that are open under the descriptors, which stay the caller's: a result for
    // each, in their order.
    //
    //   alarm  as of ReaderClient::readProperties.
    std::function<std::vector<PropertyResult>(std::span<const int> descriptors, int alarm)> read;

    // Says that no picture follows.
    std::function<void()> finish;
};

// Reading by locked-in copies of this process, one at a time, the first of which starts with the
// first picture. A picture that one dies of, or gets stuck with, costs that picture: 30 seconds
// without a sign of life or 2 of processor time, and 60 at most. Among others it may take that
// twice, until it is known which one it is.
PropertyReading makePropertyReading();

}  // namespace pinorama
