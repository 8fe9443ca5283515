// The event loop for tests that wait for something. How long they wait says nothing about the
// program: a machine that tests may stand still for many seconds.

#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace test {

constexpr int kPatience = 30'000;  // milliseconds

// Runs the event loop until `isTrue` or until there is no hope any more; what it is in the end.
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

// Runs the event loop for that time, so that what should not happen may show. It is made up of many
// short turns, of which a machine that stands still spoils only one.
inline void goOnFor(int milliseconds)
{
    constexpr int kTurn = 20;  // milliseconds
    for (int passed = 0; passed < milliseconds; passed += kTurn) {
        const QDeadlineTimer end(kTurn);
        (void)waitUntil([&end] { return end.hasExpired(); });
    }
}

}  // namespace test
