// Running as somebody who may not do everything. The system forbids root nothing, so a test of a
// refusal looks at files as another user does.

#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

namespace test {

// Makes the file accesses of this thread those of the user nobody until the end of the scope, when
// root runs the tests; else nothing changes.
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
