// The event loop for tests that wait for something. The limits are no measure of the program's
// speed: a busy machine may stall for many seconds.

#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace test {

constexpr int kPatience = 30'000;  // milliseconds

// Runs the event loop until `isTrue` returns true or kPatience has passed; returns its last result.
template <typename Predicate>
bool waitUntil(Predicate isTrue)
{
    const QDeadlineTimer limit(kPatience);
    while (!isTrue() && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(1);
    }
    return isTrue();
}

// Runs the event loop for that time, so that something that must not happen could happen. Counts
// many short turns instead of the time, so that a stalling machine spoils only one of them.
inline void goOnFor(int milliseconds)
{
    constexpr int kTurn = 20;  // milliseconds
    for (int passed = 0; passed < milliseconds; passed += kTurn) {
        const QDeadlineTimer end(kTurn);
        (void)waitUntil([&end] { return end.hasExpired(); });
    }
}

}  // namespace test
