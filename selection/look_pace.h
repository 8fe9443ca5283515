// When to look at the selection after a file manager has reported a change: at once, but never
// twice at a time, and at most 50 times a second. A file manager sends up to thousands of reports
// about one change, and while a key is held down it has better things to do than to reply.
//
//     LookPace pace([&] { startLooking(); });  // which calls pace.end() later
//     pace.request();                          // for every report

#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

#include "selection/dbus_query.h"

namespace pinorama {

class LookPace {
public:
    // `look` is called from the event loop. It has to be followed by end(), during the call or
    // later. It may be called until this is destroyed.
    explicit LookPace(std::function<void()> look);

    // Something has changed: one look is to begin after this. However many requests come before it
    // begins, it is one; those that come after it has begun lead to one more.
    void request();

    // The look has ended, or was cancelled. The next one begins at the earliest 20 ms after this
    // one began and, so that file managers that reply late get time for other things, not before as
    // much time has passed since its end as it has taken.
    void end();

    // Drops the request that has not been granted yet.
    void drop();

    bool isLooking() const { return isLooking_; }

private:
    void schedule();
    void begin();

    std::function<void()> look_;
    QTimer timer_;
    bool isRequested_ = false;
    bool isLooking_ = false;
    Clock::time_point began_;
    Clock::time_point next_;  // when the next look may begin
};

}  // namespace pinorama
