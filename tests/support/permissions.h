// Runs a part of a test with fewer permissions. The system refuses root nothing, so a test of a
// refusal accesses files as another user.

#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

namespace test {

// If root runs the tests, this thread accesses files as the user nobody until the end of the scope;
// otherwise nothing changes.
class WithoutPrivileges {
public:
    WithoutPrivileges() : earlier_(setfsuid(geteuid() == 0 ? kNobody : geteuid())) {}
    ~WithoutPrivileges() { setfsuid(static_cast<uid_t>(earlier_)); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    int earlier_;
};

}  // namespace test
