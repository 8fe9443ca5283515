// A request as the reader takes it apart.

#include "reader/reader_protocol.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto request = platform::decodeRequest({data, size});
    if (!request) return 0;
    // What is accepted says nothing beside what it is taken for.
    const auto bytes = platform::encodeRequest(*request);
    if (!std::equal(bytes.begin(), bytes.end(), data, data + size)) __builtin_trap();
    if (request->descriptorCount < 1 || request->descriptorCount > platform::kMostDescriptors) {
        __builtin_trap();
    }
    return 0;
}
