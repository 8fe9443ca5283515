#include "opener/mount_list.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
namespace {
constexpr std::uint64_t device(std::uint64_t major, std::uint64_t minor)
{
    return major << 32 | minor;
}

constexpr char kMounts[] =
    "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
    "30 22 0:25 / /proc rw - proc proc rw\n"
    "41 22 8:17 / /media/My\\040Card rw - vfat /dev/sdb1 rw\n"
    "42 22 0:40 / /mnt rw - nfs server:/old rw\n"
    "43 22 0:41 / /mnt rw - nfs server:/new rw\n"
    "44 43 8:1 /home /mnt/home rw - ext4 /dev/sda1 rw\n"
    "a line that is none\n"
    "45 22 8 / /bad rw\n"
    "46 22 8:x / /bad rw\n"
    "47 22 9:9";
}  // namespace

TEST(MountList, knowsTheFileSystemOfAPath)
{
    const struct {
        const char *name, *path;
        std::uint64_t device;
    } rows[] = {
        {"the root folder", "/", device(8, 1)},
        {"below it", "/home/a.jpg", device(8, 1)},
        {"a mount", "/media/My Card", device(8, 17)},
        {"below a mount", "/media/My Card/DCIM/a.jpg", device(8, 17)},
        {"a name that begins like a mount", "/media/My Card 2/a.jpg", device(8, 1)},
        {"a mount over another", "/mnt/a.jpg", device(0, 41)},
        {"the same file system in another place", "/mnt/home/a.jpg", device(8, 1)},
        {"malformed lines", "/bad/a.jpg", device(8, 1)},
    };
    const MountList mounts{std::string_view(kMounts)};
    for (const auto& row : rows) EXPECT_EQ(mounts.deviceOf(row.path), row.device) << row.name;
    EXPECT_EQ(MountList(std::string_view()).deviceOf("/a"), 0u);
}

TEST(MountList, knowsWhichOnesKeepWhoeverGivesAFileUp)
{
    const MountList mounts{
        std::string_view("22 1 8:1 / / rw,relatime shared:1 master:2 - ext4 /dev/sda1 rw\n"
                         "23 22 0:40 / /mnt/a rw - nfs4 server:/nfs rw\n"
                         "24 22 0:41 / /mnt/b rw shared:7 - cifs //server/b rw\n"
                         "25 22 8:17 / /mnt/c rw - fuseblk /dev/sdb1 rw\n"
                         "26 22 0:42 / /mnt/d rw - fuse.sshfs server:/ rw\n"
                         "27 22 0:43 / /mnt/e rw nfs")};
    for (const auto keeping : {device(0, 40), device(0, 41), device(8, 17)}) {
        EXPECT_TRUE(mounts.keepsWhoGivesUp(keeping)) << keeping;
    }
    for (const auto other : {device(8, 1), device(0, 42), device(0, 43), device(0, 0)}) {
        EXPECT_FALSE(mounts.keepsWhoGivesUp(other)) << other;
    }
}

TEST(MountList, isThatOfTheSystem)
{
    struct stat facts = {};
    ASSERT_EQ(stat("/proc", &facts), 0);
    EXPECT_EQ(MountList::current().deviceOf("/proc/self"),
              device(major(facts.st_dev), minor(facts.st_dev)));
}

class followPath : public testing::Test {
protected:
    // What it enters on its way, if the mounts were those.
    std::vector<std::uint64_t> entered(const std::string& path, std::uint64_t last = 0)
    {
        const std::string mounts = "1 0 8:1 / / rw\n2 1 0:2 / " + folder_.file("card") +
                                   " rw\n3 1 0:3 / " + folder_.file("share") + " rw\n";
        std::vector<std::uint64_t> devices;
        isWhole_ = pinorama::followPath(path, MountList(mounts), [&](std::uint64_t device) {
            devices.push_back(device);
            return device != last;
        });
        return devices;
    }

    followPath()
    {
        std::filesystem::create_directory(folder_.file("card"));
        std::filesystem::create_directory(folder_.file("share"));
        folder_.write("card/a.jpg", "x");
        (void)!symlink("card/a.jpg", folder_.file("near.jpg").c_str());
        (void)!symlink(folder_.file("share").c_str(), folder_.file("card/far").c_str());
        (void)!symlink("circle", folder_.file("circle").c_str());
    }

    test::TemporaryFolder folder_;
    bool isWhole_ = false;
};

TEST_F(followPath, entersEachFileSystemBeforeItsItems)
{
    using Devices = std::vector<std::uint64_t>;
    const std::uint64_t root = device(8, 1);
    const std::uint64_t card = device(0, 2);
    const std::uint64_t share = device(0, 3);
    EXPECT_EQ(entered("/"), Devices{root});
    EXPECT_EQ(entered(folder_.file("none/a.jpg")), Devices{root});
    EXPECT_EQ(entered(folder_.file("card/a.jpg")), (Devices{root, card}));
    EXPECT_EQ(entered(folder_.file("card/../share/a.jpg")), (Devices{root, card, share}));
    EXPECT_EQ(entered(folder_.file("near.jpg")), (Devices{root, card})) << "through a link";
    EXPECT_EQ(entered(folder_.file("card/far/a.jpg")), (Devices{root, card, root, share}));
    EXPECT_EQ(entered(folder_.file("circle")), Devices{root});
    EXPECT_TRUE(isWhole_);
    EXPECT_EQ(entered("/proc/self/fd/0/x"), Devices{root}) << "a link that leads to no path";
    EXPECT_EQ(entered(""), Devices{root});
}

TEST_F(followPath, beginsARelativePathInTheCurrentFolder)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.file("card"));
    EXPECT_EQ(entered("a.jpg"), std::vector<std::uint64_t>{device(0, 2)});
    std::filesystem::current_path("/");
    EXPECT_EQ(entered("proc"), std::vector<std::uint64_t>{device(8, 1)});
    std::filesystem::current_path(before);
}

TEST_F(followPath, endsWhereItIsTold)
{
    EXPECT_EQ(entered(folder_.file("card/far/a.jpg"), device(0, 2)),
              (std::vector<std::uint64_t>{device(8, 1), device(0, 2)}));
    EXPECT_FALSE(isWhole_);
}

}  // namespace pinorama::tests
