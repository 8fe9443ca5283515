// Decodes requests as the reader does.

#include "reader/reader_protocol.h"

#include <algorithm>

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto request = decodeRequest({data, size});
    if (!request) return 0;
    // An accepted request contains nothing that its decoded form lacks.
    const auto bytes = encodeRequest(*request);
    if (!std::equal(bytes.begin(), bytes.end(), data, data + size)) __builtin_trap();
    if (request->descriptorCount < 1 || request->descriptorCount > kMaxDescriptors) {
        __builtin_trap();
    }
    return 0;
}
