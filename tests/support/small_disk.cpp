#include "tests/support/small_disk.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <fstream>

namespace {
// A process that is not root may mount in a user namespace, in which it keeps its user ID.
bool enterUserNamespace()
{
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << group + " " + group + " 1";
    std::ofstream("/proc/self/uid_map") << user + " " + user + " 1";
    return std::to_string(geteuid()) == user;
}
}  // namespace

bool test::enterMountNamespace()
{
    if (unshare(CLONE_NEWNS) != 0 && !enterUserNamespace()) return false;
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool test::mountSmallDisk(const std::string& folder)
{
    return enterMountNamespace() && mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

void test::leaveSmallDisk(const std::string& folder)
{
    (void)umount2(folder.c_str(), MNT_DETACH);
}

void test::fillDisk(const std::string& folder)
{
    const std::string bytes(4096, 'x');
    const int filler =
        open((folder + "/filler").c_str(), O_CREAT | O_APPEND | O_WRONLY | O_CLOEXEC, 0600);
    for (std::size_t count = bytes.size(); count > 0; count /= 2) {
        while (write(filler, bytes.data(), count) > 0) {
        }
    }
    close(filler);
}
