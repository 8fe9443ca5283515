// A request as the reader takes it apart.

#include "reader/reader_protocol.h"

#include <algorithm>

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto request = decodeRequest({data, size});
    if (!request) return 0;
    // What is accepted says nothing beside what it is taken for.
    const auto bytes = encodeRequest(*request);
    if (!std::equal(bytes.begin(), bytes.end(), data, data + size)) __builtin_trap();
    if (request->descriptorCount < 1 || request->descriptorCount > kMostDescriptors) {
        __builtin_trap();
    }
    return 0;
}
