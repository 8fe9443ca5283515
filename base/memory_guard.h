// Where the containers of the standard library, which throw when memory runs out, meet functions
// that promise a result for it. A function guards all that it does with them, so that no exception
// leaves it.

#pragma once

#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace pinorama {

// Returns what `work()` returns, or `failure` when memory runs out in it or a container would
// become longer than containers can. What `work` has made until then goes with its scope; what it
// has changed outside stays changed, so it changes that last.
template <typename Result, typename Work>
[[nodiscard]] Result baseGuardMemory(Result failure, Work work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return failure;
    } catch (const std::length_error&) {
        return failure;
    }
}

// The same for work that gives null, false, 0 or an empty holder then.
template <typename Work>
[[nodiscard]] std::invoke_result_t<Work> baseGuardMemory(Work work)
{
    return baseGuardMemory(std::invoke_result_t<Work>(), std::move(work));
}

}  // namespace pinorama
