#include "reader/sandbox_filter.h"

#include <array>

#include <linux/seccomp.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pinorama {
namespace {
sock_filter completed(const BpfInstruction& instruction, int socket)
{
    sock_filter code = instruction.code;
    switch (instruction.operand) {
    case BpfInstruction::Operand::socket: code.k = static_cast<std::uint32_t>(socket); break;
    case BpfInstruction::Operand::process: code.k = static_cast<std::uint32_t>(getpid()); break;
    case BpfInstruction::Operand::constant: break;
    }
    return code;
}
}  // namespace

bool filterSystemCalls(int socket, bool mayFork)
{
    const std::span<const BpfInstruction> program = mayFork ? kForkingFilter : kSandboxFilter;
    std::array<sock_filter, kMaxBpfInstructions> codes;
    for (std::size_t i = 0; i < program.size(); i++) codes[i] = completed(program[i], socket);
    const sock_fprog filter = {static_cast<unsigned short>(program.size()), codes.data()};
    return syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0u, &filter) == 0;
}

}  // namespace pinorama
