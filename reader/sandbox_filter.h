// The filter of system calls that a sandboxed process runs under. make_sandbox_filter.cpp compiles
// it from the table in sandbox_calls.h when the program is built.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <linux/filter.h>

namespace pinorama {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kHasSanitizers = true;
#elif defined(__has_feature)
constexpr bool kHasSanitizers = __has_feature(address_sanitizer);
#else
constexpr bool kHasSanitizers = false;
#endif

// Puts the calling process under the filter, for good: what the table does not allow fails with
// EPERM or ends the process.
//
//   socket   the descriptor that the table's rules for the socket are about.
//   mayFork  whether to allow the calls of the second table, too. A process that is forked may put
//            itself under the filter without them.
//
// Returns false when the kernel has no such filter.
[[nodiscard]] bool filterSystemCalls(int socket, bool mayFork = false);

// An instruction of the filter, for the kernel's Berkeley Packet Filter.
struct BpfInstruction {
    // What its constant stands for; the number is known only when the filter is loaded.
    enum class Operand : std::uint8_t { constant, socket, process };

    sock_filter code;
    Operand operand;
};

constexpr std::size_t kMaxBpfInstructions = 512;

extern const std::span<const BpfInstruction> kSandboxFilter;
extern const std::span<const BpfInstruction> kForkingFilter;

}  // namespace pinorama
