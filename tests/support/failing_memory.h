// Makes each memory request of a call fail in turn. In programs that link
// pinorama_test_failing_new, this includes the requests of the standard library's containers.

#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "base/alloc.h"
#include "tests/support/texts.h"

namespace test {

// Calls `call` with its first request for memory failing, then with its second, and so on until a
// call needs no more requests. `hasFailed(result)` must be true for every call but the last one,
// and false for that. `call` must contain no assertions, because their memory would count.
//
// Returns how many requests have failed.
template <typename Call, typename HasFailed>
std::uint64_t failEachRequest(Call call, HasFailed hasFailed)
{
    constexpr std::uint64_t kMaxRequests = 10000;
    for (std::uint64_t nth = 1; nth <= kMaxRequests; nth++) {
        pinorama::baseFailAllocation(nth);
        const auto result = call();
        const bool ranOut = pinorama::baseAllocationHasFailed();
        pinorama::baseFailAllocation(0);
        EXPECT_EQ(hasFailed(result), ranOut) << "request " << nth;
        if (!ranOut) return nth - 1;
    }
    ADD_FAILURE() << "it never ends";
    return kMaxRequests;
}

// The same for a function that returns a new text, or null if memory runs out.
template <typename Make>
std::uint64_t failEachRequest(Make make)
{
    return failEachRequest([&] { return Text(make()); },
                           [](const Text& text) { return text.get() == nullptr; });
}

}  // namespace test
