// Work in a process of its own: what it does there to its rights, limits and mounts ends with it.

#pragma once

#include <functional>

namespace test {

// What a child returns when the machine does not let it set up what it needs; tests then say so and
// count as skipped.
constexpr int kCannotTest = 77;

// The status that `work` ends with in a child; -1 when it crashed. Failed expectations of the child
// are printed but not counted, so let `work` return testing::Test::HasFailure().
int inChild(const std::function<int()>& work);

// Root may read and write everything, so a child that must not is somebody else. True when it is,
// or never was root.
bool becomeNobody();

}  // namespace test
