// Runs a program as on a kernel that lacks something: without Landlock or with an old version of
// it, and where users can make no namespaces. It is the kernel's own filter of system calls that
// says so, so that the program is the real one.
//
// usage: old-kernel [--landlock VERSION] [--no-namespaces] PROGRAM [ARGUMENT...]

#include "base/descriptor.h"
#include "reader/reader_socket.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {

struct Lack {
    int landlock = -1;  // the version that there is; 0 for none, -1 for what this kernel has
    bool namespaces = false;
};

void addRule(std::vector<sock_filter>* program, long call, std::uint32_t action)
{
    program->push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 1));
    program->push_back(BPF_STMT(BPF_RET | BPF_K, action));
}

// Returns the descriptor on which the kernel asks what to reply, if there is something to ask; -1
// when the filter cannot be installed.
int install(const Lack& lack)
{
    std::vector<sock_filter> program = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    const std::uint32_t unknown = SECCOMP_RET_ERRNO | ENOSYS;
    if (lack.landlock == 0) addRule(&program, SYS_landlock_create_ruleset, unknown);
    if (lack.landlock > 0) {
        addRule(&program, SYS_landlock_create_ruleset, SECCOMP_RET_USER_NOTIF);
    }
    if (lack.namespaces) addRule(&program, SYS_unshare, SECCOMP_RET_ERRNO | EPERM);
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
    const unsigned flags = lack.landlock > 0 ? SECCOMP_FILTER_FLAG_NEW_LISTENER : 0;
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return -1;
    return static_cast<int>(syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, flags, &filter));
}

// Replies to the question for Landlock's version, and lets every other call through, until all
// processes under the filter are gone.
void reply(int listener, int version)
{
    for (;;) {
        pollfd state = {listener, POLLIN, 0};
        if (poll(&state, 1, -1) < 0 || (state.revents & POLLIN) == 0) return;
        seccomp_notif call = {};
        if (ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0) continue;
        seccomp_notif_resp response = {};
        response.id = call.id;
        if (call.data.args[2] == LANDLOCK_CREATE_RULESET_VERSION) {
            response.val = version;
        } else {
            response.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        }
        (void)ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &response);
    }
}

// Forks the process that replies, which is no child of this one. The socket on which it waits for
// the descriptor.
int startReplies(int version)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        if (fork() != 0) _exit(0);
        for (int descriptor = 0; descriptor < 64; descriptor++) {
            if (descriptor != ends[1]) close(descriptor);
        }
        std::array<std::uint8_t, 1> byte;
        std::vector<DescriptorHolder> received;
        if (receiveRequest(ends[1], byte, &received) && received.size() == 1) {
            reply(received.front().get(), version);
        }
        _exit(0);
    }
    (void)waitpid(child, nullptr, 0);
    close(ends[1]);
    return ends[0];
}
}  // namespace

int main(int argc, char** argv)
{
    Lack lack;
    int next = 1;
    for (; next < argc; next++) {
        const std::string_view option = argv[next];
        if (option == "--landlock" && next + 1 < argc) {
            lack.landlock = std::atoi(argv[++next]);
        } else if (option == "--no-namespaces") {
            lack.namespaces = true;
        } else {
            break;
        }
    }
    if (next >= argc) return 2;
    const int replies = lack.landlock > 0 ? startReplies(lack.landlock) : -1;
    const int listener = install(lack);
    if (listener < 0) return 1;
    if (lack.landlock > 0) {
        const std::array<std::uint8_t, 1> byte = {1};
        const int descriptors[] = {listener};
        if (sendRequest(replies, byte, descriptors) != SendOutcome::sent) return 1;
        close(listener);
        close(replies);
    }
    execv(argv[next], argv + next);
    std::perror(argv[next]);
    return 1;
}
