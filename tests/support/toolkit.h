// The toolkit for tests of windows: drawn into memory, one application object for all tests of a
// program.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>

#include <memory>

namespace test {

// Put one into a test program with
//   const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);
class Toolkit : public testing::Environment {
public:
    void SetUp() override;
    void TearDown() override;

private:
    std::unique_ptr<QApplication> application_;
};

// Runs the event loop until `isTrue` or for 5 seconds; what it is in the end.
template <typename Predicate>
bool waitUntil(Predicate isTrue)
{
    QDeadlineTimer limit(5000);
    while (!isTrue() && !limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    return isTrue();
}

}  // namespace test
