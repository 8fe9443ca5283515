#include "selection/dbus_query.h"

#include "opener/events/picture_opener.h"

#include <QDBusError>
#include <QTimer>

#include <algorithm>

namespace pinorama {
namespace {
using std::chrono::milliseconds;

// An error message that the program itself sent is a reply; the one that stands for a timeout is
// not.
bool lacksReply(const QDBusPendingCall& call)
{
    return !call.isFinished() || QDBusError(call.reply()).type() == QDBusError::NoReply;
}

bool isSame(const DBusQuery::Call& a, const QDBusConnection& bus, const QDBusMessage& b)
{
    return a.message.path() == b.path() && a.message.member() == b.member() &&
           a.message.interface() == b.interface() && a.message.service() == b.service() &&
           a.message.arguments() == b.arguments() && a.bus.name() == bus.name();
}
}  // namespace

DBusQuery::DBusQuery(const QDBusConnection& bus, std::chrono::milliseconds timeout)
    : bus_(bus), timeout_(timeout)
{
}

DBusQuery::~DBusQuery() = default;

void DBusQuery::start(Task<Done> work)
{
    work_ = std::move(work);
    work_.start();
}

bool DBusQuery::runUntil(Clock::time_point deadline)
{
    deadline_ = deadline;
    const auto earliestEnd = deadline - timeout_ / 16;  // Qt's timers may fire that early
    while (!work_.isDone()) {
        if (waitsForLook_) {
            if (!runLookUntil(deadline)) return false;
            continue;
        }
        // The last call mostly gets the last reply, so this thread wakes up once and not for each
        // of them. Every call has a timeout, so none of the waits is unbounded.
        for (auto call = calls_.rbegin(); call != calls_.rend(); ++call)
            call->pending.waitForFinished();
        if (Clock::now() >= earliestEnd && !servicesWithoutReply().empty()) return false;
        std::exchange(waiting_, {}).resume();
    }
    return true;
}

void DBusQuery::continueInEventLoop(std::function<void()> whenDone)
{
    whenDone_ = std::move(whenDone);
    runsInEventLoop_ = true;
    if (!work_.isDone()) return waitsForLook_ ? watchLook() : watchCalls();
    const auto done = std::exchange(whenDone_, {});
    if (done) done();
}

std::vector<QString> DBusQuery::servicesWithoutReply() const
{
    std::vector<QString> services;
    for (const PendingCall& call : calls_) {
        if (lacksReply(call.pending)) services.push_back(call.service);
    }
    return services;
}

DBusQuery::Replies DBusQuery::replies(const std::vector<QDBusMessage>& calls)
{
    return repliesFrom(bus_, calls);
}

DBusQuery::Replies DBusQuery::repliesFrom(const QDBusConnection& bus,
                                          const std::vector<QDBusMessage>& calls)
{
    for (const QDBusMessage& call : calls) send(bus, call);
    return Replies(*this);
}

DBusQuery::Reply DBusQuery::reply(const QDBusMessage& call)
{
    send(bus_, call);
    return Reply(*this);
}

bool DBusQuery::hasAllReplies() const
{
    return std::all_of(calls_.begin(), calls_.end(),
                       [](const PendingCall& call) { return call.pending.isFinished(); });
}

void DBusQuery::wait(std::coroutine_handle<> waiting)
{
    waiting_ = waiting;
    if (runsInEventLoop_) watchCalls();
}

std::vector<QDBusMessage> DBusQuery::takeReplies()
{
    if (std::exchange(hasSent_, false)) roundTrips_++;
    std::vector<QDBusMessage> replies;
    replies.reserve(calls_.size());
    for (const PendingCall& call : calls_) {
        if (call.ahead) {
            keepReplySentAhead(call);
        } else {
            replies.push_back(call.pending.reply());
        }
    }
    calls_.clear();
    return replies;
}

const QDBusMessage& DBusQuery::takeReply()
{
    const std::vector<QDBusMessage> replies = takeReplies();
    reply_ = replies.front();
    return reply_;
}

void DBusQuery::keepReplySentAhead(const PendingCall& call)
{
    // Whether it replies at all is found out by calls that somebody waits for on purpose.
    if (call.ahead && !lacksReply(call.pending))
        known_.push_back({*call.ahead, call.pending.reply()});
}

void DBusQuery::send(const QDBusConnection& bus, const QDBusMessage& call)
{
    if (noted_.size() < kMaxNotedCalls) noted_.push_back({bus, call});
    const auto ahead = takeCallSentAhead(bus, call);
    calls_.push_back({call.service(), ahead ? *ahead : startCall(bus, call)});
}

std::optional<QDBusPendingCall> DBusQuery::takeCallSentAhead(const QDBusConnection& bus,
                                                             const QDBusMessage& call)
{
    std::optional<QDBusPendingCall> found;
    const auto known = std::find_if(known_.begin(), known_.end(), [&](const KnownReply& reply) {
        return isSame(reply.call, bus, call);
    });
    if (known != known_.end()) {
        found = QDBusPendingCall::fromCompletedCall(known->reply);
        known_.erase(known);
        return found;
    }
    const auto underWay =
        std::find_if(calls_.begin(), calls_.end(), [&](const PendingCall& pending) {
            return pending.ahead && isSame(*pending.ahead, bus, call);
        });
    if (underWay != calls_.end()) {
        found = underWay->pending;
        calls_.erase(underWay);
    }
    return found;
}

void DBusQuery::sendAhead(const std::vector<QDBusMessage>& calls)
{
    std::vector<Call> all;
    all.reserve(calls.size());
    for (const QDBusMessage& call : calls) all.push_back({bus_, call});
    sendAhead(all);
}

void DBusQuery::sendAhead(const std::vector<Call>& calls)
{
    if (!calls.empty() && !sentAheadAt_) sentAheadAt_ = Clock::now();
    for (const Call& call : calls)
        calls_.push_back({call.message.service(), startCall(call.bus, call.message), call});
    if (waiting_ && runsInEventLoop_ && !waitsForLook_) watchCalls();
}

QDBusPendingCall DBusQuery::startCall(const QDBusConnection& bus, const QDBusMessage& call)
{
    using std::chrono::milliseconds;
    hasSent_ = true;
    const auto left = std::chrono::ceil<milliseconds>(deadline_ - Clock::now());
    const milliseconds timeout = std::clamp(left, milliseconds(1), timeout_);
    return bus.asyncCall(call, static_cast<int>(timeout.count()));
}

// A second watcher of a call would never be told of a reply that came before it, so each call has
// one, until the work goes on. The first one is told also of an earlier reply.
void DBusQuery::watchCalls()
{
    for (PendingCall& call : calls_) {
        if (std::exchange(call.isWatched, true)) continue;
        auto watcher = std::make_unique<QDBusPendingCallWatcher>(call.pending);
        QObject::connect(watcher.get(), &QDBusPendingCallWatcher::finished, watcher.get(),
                         [this] { resumeWork(); });
        watchers_.push_back(std::move(watcher));
    }
}

DBusQuery::Look DBusQuery::look(const OpenRequest& request, const OpenerQuestion::TakeNames& take)
{
    look_ = cuPictureOpener().ask(request, take);
    return Look(*this);
}

void DBusQuery::waitForLook(std::coroutine_handle<> waiting)
{
    waiting_ = waiting;
    waitsForLook_ = true;
    if (runsInEventLoop_) watchLook();
}

bool DBusQuery::runLookUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::floor<milliseconds>(deadline - Clock::now());
    (void)cuPictureOpener().wait(*look_, std::max(left, milliseconds(0)));
    if (!look_->isAnswered()) return false;
    waitsForLook_ = false;
    std::exchange(waiting_, {}).resume();
    return true;
}

void DBusQuery::watchLook()
{
    lookWatcher_ = std::make_unique<QObject>();
    QObject::connect(OpenerEvents::instance(), &OpenerEvents::advanced, lookWatcher_.get(), [this] {
        if (look_->isAnswered()) resumeAfterLook();
    });
    // One that was answered since the coroutine looked needs nobody to be waited for.
    const milliseconds patience = look_->isAnswered() ? milliseconds(0) : timeout_;
    QTimer::singleShot(patience, lookWatcher_.get(), [this] { resumeAfterLook(); });
}

void DBusQuery::resumeAfterLook()
{
    lookWatcher_.reset();
    waitsForLook_ = false;
    resume();
}

void DBusQuery::resumeWork()
{
    if (!waiting_ || !hasAllReplies()) return;
    // One of the watchers emits the signal that this runs in, so none may be destroyed before the
    // event loop has control again.
    for (auto& watcher : watchers_) {
        watcher->disconnect();
        watcher.release()->deleteLater();
    }
    watchers_.clear();
    resume();
}

void DBusQuery::resume()
{
    std::exchange(waiting_, {}).resume();
    if (!work_.isDone()) return;
    const auto done = std::exchange(whenDone_, {});
    if (done) done();  // may destroy this query
}

}  // namespace pinorama
