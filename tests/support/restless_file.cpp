#include "tests/support/restless_file.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace {
void write(const char* path, const std::string& bytes)
{
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    (void)!::write(file, bytes.data(), bytes.size());
    close(file);
}

[[noreturn]] void change(const std::string& path, const std::string& bytes)
{
    const std::string other = path + ".other";
    std::string damaged = bytes;
    for (std::size_t i = 0; i < damaged.size(); i += 7) damaged[i] = static_cast<char>(i);
    for (unsigned round = 0;; round++) {
        write(path.c_str(), bytes);
        usleep(round % 3 * 300);
        switch (round % 5) {
        case 0: (void)!truncate(path.c_str(), static_cast<off_t>(bytes.size() / 3)); break;
        case 1: (void)!truncate(path.c_str(), off_t{1} << 32); break;
        case 2:
            write(other.c_str(), damaged);
            (void)std::rename(other.c_str(), path.c_str());
            break;
        case 3: unlink(path.c_str()); break;
        default: write(path.c_str(), damaged);
        }
        usleep(round % 4 * 300);
    }
}
}  // namespace

test::RestlessFile::RestlessFile(std::string path, const std::string& bytes)
{
    write(path.c_str(), bytes);
    process_ = fork();
    if (process_ != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    change(path, bytes);
}

test::RestlessFile::~RestlessFile()
{
    kill(process_, SIGKILL);
    (void)waitpid(process_, nullptr, 0);
}
