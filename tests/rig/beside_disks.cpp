// Runs a program with two disks that nobody else sees: one that hangs and one that is full.
//
// usage: beside_disks PICTURE HUNG_FOLDER FULL_FOLDER PROGRAM [ARGUMENT...]
//   HUNG_FOLDER  gets good.jpg, which is PICTURE, and look.jpg, look.kml, open.jpg and read.jpg,
//                which never come
// It exits with status 77 if this machine allows no such disks.

#include "tests/support/slow_disk.h"
#include "tests/support/small_disk.h"

#include <sys/mount.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <string>

int main(int argc, char** argv)
{
    constexpr int kCannotMount = 77;
    if (argc < 5) return 2;
    std::ifstream picture(argv[1], std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(picture), {});
    using test::SlowDisk;
    const SlowDisk disk(argv[2], {{"good.jpg", bytes, 0},
                                  {"look.jpg", bytes, SlowDisk::kNever, SlowDisk::Step::look},
                                  {"open.jpg", bytes, SlowDisk::kNever, SlowDisk::Step::open},
                                  {"look.kml", {}, SlowDisk::kNever, SlowDisk::Step::look},
                                  {"read.jpg", bytes, SlowDisk::kNever}});
    if (!disk.isUsable() || !test::mountSmallDisk(argv[3])) return kCannotMount;
    test::fillDisk(argv[3]);
    execv(argv[4], argv + 4);  // the disks go away with the program
    return 1;
}
