#include "lib/files/mounts.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <sched.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

TEST(mountsInText, readsDeviceAndFolder)
{
    const auto mounts = mountsInText(
        "22 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw\n"
        "23 22 0:21 / /proc rw,nosuid - proc proc rw\n"
        "90 22 8:17 /sub /media/anna/My\\040Card\\134\\012x rw - vfat /dev/sdb1 rw\n"
        "damaged\n"
        "24 22 x:y / /bad rw - ext4 /dev/x rw\n"
        "25 22 8:1x / /bad rw - ext4 /dev/x rw\n"
        "26 22 8: / /bad rw - ext4 /dev/x rw\n"
        "27 22 8:1 / relative rw\n"
        "28 22 8:1 / /last\\04");
    ASSERT_EQ(mounts.size(), 4u);
    EXPECT_EQ(mounts[0].device, makedev(259, 2));
    EXPECT_EQ(mounts[0].folder, "/");
    EXPECT_EQ(mounts[1].folder, "/proc");
    EXPECT_EQ(mounts[2].device, makedev(8, 17));
    EXPECT_EQ(mounts[2].folder, "/media/anna/My Card\\\nx");
    EXPECT_EQ(mounts[3].folder, "/last\\04") << "no escape";
    EXPECT_TRUE(mountsInText("").empty());
    EXPECT_TRUE(mountsInText("\n\n   \n").empty());
}

TEST(mountedVolumes, includeTheRootFolder)
{
    struct stat root = {};
    ASSERT_EQ(stat("/", &root), 0);
    const auto mounts = mountedVolumes();
    EXPECT_TRUE(std::any_of(mounts.begin(), mounts.end(),
                            [](const Mount& mount) { return mount.folder == "/"; }));
}

// A folder that is no mount, and in which there is nobody to ask about mounts either.
TEST(mountedVolumes, includeARootFolderThatIsNoMount)
{
    enum Outcome : int { kKnown, kUnknown, kNotAllowed };
    const test::TemporaryFolder folder;
    struct stat facts = {};
    ASSERT_EQ(stat(folder.path().c_str(), &facts), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (geteuid() != 0 && unshare(CLONE_NEWUSER) != 0) _exit(kNotAllowed);
        if (chroot(folder.path().c_str()) != 0 || chdir("/") != 0) _exit(kNotAllowed);
        const auto mounts = mountedVolumes();
        const bool isKnown =
            mounts.size() == 1 && mounts[0].folder == "/" && mounts[0].device == facts.st_dev;
        _exit(isKnown ? kKnown : kUnknown);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == kNotAllowed) GTEST_SKIP() << "no rights to change the root folder";
    EXPECT_EQ(WEXITSTATUS(status), kKnown);
}

TEST(countVolumesOnDisk, countsAtLeastTheVolumeItself)
{
    struct stat facts = {};
    ASSERT_EQ(stat("/proc", &facts), 0);
    EXPECT_EQ(countVolumesOnDisk(facts.st_dev), 1u) << "not on a disk";
    EXPECT_EQ(countVolumesOnDisk(makedev(4000, 1)), 1u) << "no such device";
    ASSERT_EQ(stat("/", &facts), 0);
    EXPECT_GE(countVolumesOnDisk(facts.st_dev), 1u);
}
