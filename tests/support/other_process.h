// Runs work in a child process: changes of its rights, limits and mounts end with it.

#pragma once

#include <functional>

namespace test {

// The status of a child that this machine does not allow to set up what it needs; the test is then
// skipped.
constexpr int kCannotTest = 77;

// The status that `work` ends with in a child; -1 when it crashed. Failed expectations of the child
// are printed but not counted, so let `work` return testing::Test::HasFailure().
int inChild(const std::function<int()>& work);

// Makes a child that runs as root another user, because root may read and write everything. True if
// the child is not root afterwards.
bool becomeNobody();

}  // namespace test
