// The one place where pinorama-info lets the bytes of pictures be read.

#pragma once

#include "platform/pictures/reader_client.h"

#include <functional>
#include <span>
#include <vector>

// Reads the pictures that are open under the descriptors, which stay the caller's: a result for
// each, in their order.
using PropertyReading = std::function<std::vector<platform::PropertyResult>(std::span<const int>)>;

// Readings by locked-in copies of this process, one at a time, the first of which starts with the
// first picture. A picture that one dies of, or takes too long for, costs that picture.
PropertyReading makePropertyReading();
