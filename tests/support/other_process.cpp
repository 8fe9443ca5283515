#include "tests/support/other_process.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int test::inChild(const std::function<int()>& work)
{
    (void)std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int result = work();
        (void)std::fflush(nullptr);
        _exit(result);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

bool test::becomeNobody()
{
    constexpr uid_t kNobody = 65534;
    if (geteuid() != 0) return true;
    return setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
}
