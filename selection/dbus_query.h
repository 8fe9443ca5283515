// A query over D-Bus: calls of which each depends on earlier replies, written as one coroutine that
// sends calls and waits for the replies with co_await. In between it may have files and folders
// looked at, which no query does itself: a disk may not answer. The same coroutine runs while a
// caller blocks for it, up to a deadline, or step by step in the event loop. One thread; nothing
// here blocks without a bound.
//
//     Task<int> countItems(DBusQuery& query, Accessible view);      // as in task.h
//
//     DBusQuery query(bus, 300ms);
//     const auto count = query.valueUntil(countItems(query, view), Clock::now() + 300ms);
//
// task.h says what a coroutine may use after a co_await. Also give every message that it sends a
// name, as `getCount` there: GCC 12 never destroys some of the temporary objects in a co_await
// expression, and each of them would leak.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QString>

#include <chrono>
#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "opener/opener_question.h"
#include "selection/task.h"

namespace pinorama {

using Clock = std::chrono::steady_clock;

// Calls for DBusQuery::replies. A braced list would do, but GCC 12 does not compile one inside a
// co_await.
template <typename... Calls>
std::vector<QDBusMessage> callList(const Calls&... calls)
{
    std::vector<QDBusMessage> all;
    (all.push_back(calls), ...);
    return all;
}

// The same call for each of several objects.
template <typename Objects, typename MakeCall>
std::vector<QDBusMessage> callsFor(const Objects& objects, MakeCall makeCall)
{
    std::vector<QDBusMessage> all;
    all.reserve(std::size(objects));
    for (const auto& object : objects) all.push_back(makeCall(object));
    return all;
}

class DBusQuery {
public:
    using OutlivesItsTasks = void;  // it owns its work, and with it every task that this awaits

    // Sends its calls over `bus`. A call without a reply after `timeout` has failed.
    DBusQuery(const QDBusConnection& bus, std::chrono::milliseconds timeout);
    ~DBusQuery();  // cancels the work where it waits; replies that arrive later are ignored
    DBusQuery(const DBusQuery&) = delete;
    DBusQuery& operator=(const DBusQuery&) = delete;

    // Starts the work and runs it up to the first reply that it has to wait for.
    void start(Task<Done> work);

    // Resumes the work whenever its replies are there, and blocks in between. Runs no event loop,
    // so that no signal arrives meanwhile. Returns true when the work has ended, and false if the
    // deadline has passed and a reply is missing, or as soon as it has to wait for a file system
    // that keeps others waiting.
    bool runUntil(Clock::time_point deadline);

    // The same for work that has a value. Nothing if the deadline has passed without it.
    template <typename Value>
    std::optional<Value> valueUntil(Task<Value> work, Clock::time_point deadline)
    {
        const auto value = std::make_shared<std::optional<Value>>();
        start(keepValue(std::move(work), value));
        if (!runUntil(deadline)) return std::nullopt;
        return std::move(*value);
    }

    // From here on the event loop resumes the work. Calls `whenDone` when it has ended, which may
    // destroy this query.
    void continueInEventLoop(std::function<void()> whenDone);

    bool isDone() const { return work_.isDone(); }
    bool runsInEventLoop() const { return runsInEventLoop_; }

    // The programs (their names on the bus) whose reply is missing.
    std::vector<QString> servicesWithoutReply() const;

    // For the work itself: sends calls all at once. co_await gives their replies in the same order;
    // an error message stands for a reply that is missing.
    class Replies {
    public:
        explicit Replies(DBusQuery& query) : query_(query) {}
        bool await_ready() const { return query_.hasAllReplies(); }
        void await_suspend(std::coroutine_handle<> waiting) { query_.wait(waiting); }
        std::vector<QDBusMessage> await_resume() { return query_.takeReplies(); }

    protected:
        DBusQuery& query_;
    };
    class Reply : private Replies {
    public:
        using Replies::await_ready;
        using Replies::await_suspend;
        using Replies::Replies;

        // Borrowed until the next reply: use it in the expression that awaits it. (A message that
        // is returned by value would be one of the temporaries that GCC 12 leaks.)
        const QDBusMessage& await_resume() { return query_.takeReply(); }
    };
    Replies replies(const std::vector<QDBusMessage>& calls);
    Reply reply(const QDBusMessage& call);

    // The same on a bus other than the query's own.
    Replies repliesFrom(const QDBusConnection& bus, const std::vector<QDBusMessage>& calls);

    // Has an opener look at files or folders. co_await gives the question with its answer, borrowed
    // until the next look; its stage is OpenStage::done if there is one.
    class Look {
    public:
        explicit Look(DBusQuery& query) : query_(query) {}
        bool await_ready() const { return query_.look_->isAnswered(); }
        void await_suspend(std::coroutine_handle<> waiting) { query_.waitForLook(waiting); }
        const OpenerQuestion& await_resume() { return *query_.look_; }

    private:
        DBusQuery& query_;
    };
    Look look(const OpenRequest& request, const OpenerQuestion::TakeNames& take = {});

    // Sends a call now and does not wait for its reply, which comes first among those that the next
    // replies() gives. It costs no round trip of its own.
    void sendAlong(const QDBusMessage& call) { send(bus_, call); }
    void sendAlong(const QDBusConnection& bus, const QDBusMessage& call) { send(bus, call); }

    // A call, and the bus that it belongs to.
    struct Call {
        QDBusConnection bus;
        QDBusMessage message;
    };

    // Sends calls now that the work will probably make later; this may happen while it waits. The
    // next replies(), or the present one, waits for them as well. After that, the first equal call
    // of the work gets the reply at once, without a round trip; replies that nobody asks for are
    // dropped.
    void sendAhead(const std::vector<QDBusMessage>& calls);
    void sendAhead(const std::vector<Call>& calls);

    // When calls were sent ahead first; nothing if none were.
    std::optional<Clock::time_point> sentAheadAt() const { return sentAheadAt_; }

    // The calls that the work has made since the last time, without those sent ahead; at most the
    // first kMaxNotedCalls.
    static constexpr std::size_t kMaxNotedCalls = 128;
    std::vector<Call> takeCalls() { return std::exchange(noted_, {}); }

    // How often the work has needed replies to calls that it sent just then.
    int roundTrips() const { return roundTrips_; }

private:
    struct PendingCall {
        QString service;
        QDBusPendingCall pending;
        std::optional<Call> ahead = {};  // the call, if it was sent ahead
        bool isWatched = false;          // by one of watchers_
    };
    struct KnownReply {
        Call call;
        QDBusMessage reply;
    };

    template <typename Value>
    static Task<Done> keepValue(Task<Value> work, std::shared_ptr<std::optional<Value>> outValue)
    {
        outValue->emplace(co_await work);
        co_return {};
    }

    bool hasAllReplies() const;
    void wait(std::coroutine_handle<> waiting);
    std::vector<QDBusMessage> takeReplies();
    const QDBusMessage& takeReply();
    void send(const QDBusConnection& bus, const QDBusMessage& call);
    QDBusPendingCall startCall(const QDBusConnection& bus, const QDBusMessage& call);
    std::optional<QDBusPendingCall> takeCallSentAhead(const QDBusConnection& bus,
                                                      const QDBusMessage& call);
    void keepReplySentAhead(const PendingCall& call);
    void watchCalls();
    void waitForLook(std::coroutine_handle<> waiting);
    void watchLook();
    bool runLookUntil(Clock::time_point deadline);
    void resumeAfterLook();
    void resumeWork();
    void resume();

    QDBusConnection bus_;
    std::chrono::milliseconds timeout_;
    Clock::time_point deadline_ = Clock::time_point::max();  // of the caller that blocks
    std::vector<PendingCall> calls_;
    std::vector<KnownReply> known_;  // to calls that were sent ahead
    std::optional<Clock::time_point> sentAheadAt_;
    std::vector<Call> noted_;
    bool hasSent_ = false;  // since the last replies
    int roundTrips_ = 0;
    QDBusMessage reply_;
    std::vector<std::unique_ptr<QDBusPendingCallWatcher>> watchers_;
    std::shared_ptr<OpenerQuestion> look_;  // the last one
    bool waitsForLook_ = false;
    std::unique_ptr<QObject> lookWatcher_;
    std::coroutine_handle<> waiting_;
    std::function<void()> whenDone_;
    bool runsInEventLoop_ = false;
    Task<Done> work_;  // last, so that it is destroyed first: its coroutines use the members above
};

}  // namespace pinorama
