#include "reader/namespaces.h"

#include "base/descriptor.h"
#include "reader/reader_socket.h"
#include "reader/sandbox.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pinorama {
namespace {
// Where the empty root is mounted first. Every system has this folder.
constexpr const char* kPlace = "/usr";

bool write(const char* path, const std::string& text)
{
    const DescriptorHolder file(openDescriptor(path, O_WRONLY | O_CLOEXEC));
    return file && writeAll(file.get(), text);
}

// The user keeps its number, which is the only one that there is.
bool keepUser(uid_t user, gid_t group)
{
    const auto line = [](unsigned id) {
        return std::to_string(id) + " " + std::to_string(id) + " 1";
    };
    return write("/proc/self/setgroups", "deny") && write("/proc/self/uid_map", line(user)) &&
           write("/proc/self/gid_map", line(group));
}

// What is mounted or unmounted here is seen by no other process.
bool emptyRoot()
{
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("none", kPlace, "tmpfs", MS_NOSUID | MS_NODEV | MS_NOEXEC, "size=4k,mode=0") ==
               0 &&
           chdir(kPlace) == 0 && syscall(SYS_pivot_root, ".", ".") == 0 &&
           umount2(".", MNT_DETACH) == 0 && chdir("/") == 0 &&
           mount(nullptr, "/", nullptr,
                 MS_REMOUNT | MS_BIND | MS_RDONLY | MS_NOSUID | MS_NODEV | MS_NOEXEC, nullptr) == 0;
}
}  // namespace

// The PID namespace comes last: without the rest the first process that is forked, and that all
// others end with, would be that of a picture.
bool enterNamespaces()
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    return unshare(CLONE_NEWUSER | CLONE_NEWNS | CLONE_NEWNET | CLONE_NEWIPC | CLONE_NEWUTS) == 0 &&
           keepUser(user, group) && emptyRoot() && unshare(CLONE_NEWPID) == 0;
}

ReaderProcess forkNamespaceKeeper()
{
    return forkReader([](int socket) {
        if (!enterChildSandbox(socket)) return;
        std::array<std::uint8_t, 1> byte;
        std::vector<DescriptorHolder> descriptors;
        (void)receiveRequest(socket, byte, &descriptors);
    });
}

}  // namespace pinorama
