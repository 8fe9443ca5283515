#include "tests/support/hostile_items.h"

#include "base/status.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace {
namespace fs = std::filesystem;

std::string makePipe(const std::string& path)
{
    if (mkfifo(path.c_str(), 0600) != 0) throw std::runtime_error("no pipe");
    return path;
}

std::string makeSocket(const std::string& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool isBound =
        bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(descriptor);
    if (!isBound) throw std::runtime_error("no socket");
    return path;
}

std::string makeLink(const std::string& path, const std::string& target)
{
    fs::create_symlink(target, path);
    return path;
}

std::string makeFolder(const std::string& path)
{
    fs::create_directory(path);
    return path;
}

}  // namespace

std::vector<test::HostileItem> test::hostileItems(const TemporaryFolder& folder)
{
    const char* const missing = "No such file or directory";
    return {
        {"a pipe", makePipe(folder.file("pipe.jpg")), nullptr, 0, false},
        {"a link to a device", makeLink(folder.file("zero.jpg"), "/dev/zero"), nullptr, 0, false},
        {"a socket", makeSocket(folder.file("socket.jpg")), nullptr, 0, false},
        {"a folder", makeFolder(folder.file("folder.jpg")), nullptr, 0, false},
        {"a folder with a slash", folder.file("folder.jpg") + "/", nullptr, 0, false},
        {"a link to nothing", makeLink(folder.file("dangling.jpg"), "nothing/here.jpg"), missing,
         kErrNotFound, false},
        {"a link to itself", makeLink(folder.file("loop.jpg"), "loop.jpg"),
         "Too many levels of symbolic links", kErrInputOutput, false},
        {"8 TiB", hugeFile(folder), nullptr, 0, true},
        {"an empty file", folder.write("empty.jpg", ""), nullptr, 0, true},
        {"the longest name", folder.write(longestName(), "no picture"), nullptr, 0, true},
        {"a longer name", folder.file("x" + longestName()), "File name too long", kErrBadName,
         false},
        {"a name that is no UTF-8", folder.write("\xff\xc3.jpg", "no picture"), nullptr, 0, true},
        {"a path of a megabyte", folder.file(std::string(1'000'000, 'x') + ".jpg"),
         "File name too long", kErrBadName, false},
        {"a file in a file", folder.write("file.jpg", "no picture") + "/in.jpg", "Not a directory",
         kErrNotAFolder, false},
        {"nothing", folder.file("missing.jpg"), missing, kErrNotFound, false},
    };
}

std::string test::longestName()
{
    return std::string(251, 'n') + ".jpg";
}

std::string test::hugeFile(const TemporaryFolder& folder)
{
    // Its directory is said to lie 4 GiB away.
    const std::string path = folder.write("huge.nef", std::string_view("II*\0\xf0\xff\xff\xff", 8));
    std::error_code error;
    for (std::uintmax_t size = std::uintmax_t{8} << 40; size > 0; size /= 2) {
        fs::resize_file(path, size, error);
        if (!error) break;
    }
    return path;
}
