#include "selection/frame_tracker.h"

#include "selection/bus_process.h"

#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <optional>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kReplyTimeout = 2s;  // of one call in the event loop
constexpr auto kPingTimeout = 3s;   // how long a hanging program is left alone
constexpr auto kSleepAfter = 2s;    // without a call of isReady()
constexpr auto kScanInterval = 2s;  // between two scans of all windows
constexpr auto kScanDelay = 150ms;  // after a window was opened or closed, for those that follow
constexpr std::size_t kMaxPrograms = 256;
constexpr std::size_t kMaxFrames = 32;  // of one program

Accessible rootOf(const QString& service)
{
    return {service, QStringLiteral("/org/a11y/atspi/accessible/root")};
}
}  // namespace

// Exists while a query waits for what it has asked ahead about a window. A file manager reports one
// change with several events in a row, and the first of them, which began the look, is mostly about
// the item that was selected before.
class FrameTracker::Asking {
public:
    Asking(FrameTracker& tracker, DBusQuery& query, SharedFrame frame)
        : tracker_(tracker), query_(query), frame_(std::move(frame))
    {
        tracker_.asking_ = this;
        item_ = frame_->likelyItem();
        frame_->askAhead(query_);
    }
    ~Asking()
    {
        if (tracker_.asking_ == this) tracker_.asking_ = nullptr;
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

    // An item of this window was selected.
    void noteSelected(const SharedFrame& frame)
    {
        if (frame != frame_ || frame_->likelyItem() == item_) return;
        if (furtherItems_ == kMaxFurtherItems) return;
        furtherItems_++;
        item_ = frame_->likelyItem();
        frame_->askAheadAboutItem(query_);
    }

private:
    static constexpr int kMaxFurtherItems = 2;  // a change of many items reports each of them

    FrameTracker& tracker_;
    DBusQuery& query_;
    SharedFrame frame_;
    Accessible item_;  // about which it has asked last
    int furtherItems_ = 0;
};

FrameTracker::FrameTracker(KindOfProcess kindOfProcess, QObject* parent)
    : QObject(parent), kindOfProcess_(std::move(kindOfProcess))
{
    connect(&bus_, &AccessibilityBus::connected, this, &FrameTracker::startScan);
    connect(&bus_, &AccessibilityBus::disconnected, this, &FrameTracker::forgetEverything);
    connect(&bus_, &AccessibilityBus::eventReceived, this, &FrameTracker::onEventReceived);
    connect(&bus_, &AccessibilityBus::programConnected, this, [this] { scanSoon(kScanDelay); });
    connect(&bus_, &AccessibilityBus::programDisconnected, this,
            [this](const QString& service) { list_.remove(service); });
    sleep_.setSingleShot(true);
    connect(&sleep_, &QTimer::timeout, this, &FrameTracker::fallAsleep);
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, &FrameTracker::startScan);
}

FrameTracker::~FrameTracker() = default;

bool FrameTracker::isReady()
{
    sleep_.start(kSleepAfter);
    if (!bus_.isReady()) return false;
    // The scan starts here and not from a timer of its own, so that this process wakes up no more
    // often than its caller does anyway.
    if (Clock::now() - scannedAt_ >= kScanInterval) startScan();
    return true;
}

void FrameTracker::fallAsleep()
{
    soon_.stop();
    forgetEverything();
    bus_.close();
}

void FrameTracker::forgetEverything()
{
    scan_.reset();
    walk_.reset();
    readInLoop_.reset();
    list_.clear();
    lastFrame_.reset();
    revalidateNext_.reset();
    revalidated_.reset();
}

void FrameTracker::scanSoon(std::chrono::milliseconds delay)
{
    if (!soon_.isActive()) soon_.start(delay);
}

void FrameTracker::startScan()
{
    if (scan_ || !bus_.isReady()) return;
    scannedAt_ = Clock::now();
    scan_ = std::make_unique<DBusQuery>(bus_.bus(), kReplyTimeout);
    scan_->start(scanPrograms(*scan_));
    scan_->continueInEventLoop([this] { scan_.reset(); });
}

Task<Done> FrameTracker::scanPrograms(DBusQuery& query)
{
    const QDBusMessage getChildren =
        childrenCall(rootOf(QStringLiteral("org.a11y.atspi.Registry")));
    const auto roots = objectsIn(co_await query.reply(getChildren), kMaxPrograms);
    if (!roots) co_return {};

    // Every program is listed before the calls about it are sent. If it leaves the bus during a
    // co_await, it is removed from the list, and identify() finds nothing to identify.
    std::vector<QString> unknown;
    std::vector<QDBusMessage> calls;
    for (const Accessible& root : *roots) {
        if (root.isNull() || !list_.add(root.service)) continue;
        unknown.push_back(root.service);
        calls.push_back(processCall(root.service));
    }
    const auto replies = co_await query.replies(calls);
    for (std::size_t i = 0; i < unknown.size(); i++) {
        const auto process = processIn(replies[i]);
        if (!process) {
            list_.remove(unknown[i]);
            continue;
        }
        const FileManagerKind* kind = kindOfProcess_(*process);
        if (!list_.identify(unknown[i], *process, kind) || kind == nullptr) continue;
        bus_.listenTo(unknown[i],
                      {.names = kind->reportsByNames, .activity = kind->activatesSilently});
    }
    // A copy: programs come and go while each of them is scanned.
    const std::vector<QString> services = list_.managers();
    for (const QString& service : services) co_await scanWindows(query, service);
    co_return {};
}

// Brings the list of one program's windows up to date.
Task<Done> FrameTracker::scanWindows(DBusQuery& query, QString service)
{
    const QDBusMessage getChildren = childrenCall(rootOf(service));
    const auto objects = objectsIn(co_await query.reply(getChildren), kMaxFrames);
    if (!objects) co_return {};
    const std::vector<Accessible> unknown = list_.keepOnly(service, *objects);
    for (const Accessible& object : unknown) {
        const std::vector<QDBusMessage> calls = callList(roleCall(object), attributesCall(object));
        const auto replies = co_await query.replies(calls);
        // Looked up again after every co_await: the program may have left, and others with it, so
        // that its entry has moved or is gone.
        const auto manager = list_.manager(service);
        if (!manager) co_return {};
        const auto role = static_cast<Role>(numberIn(replies[0]).value_or(0));
        if (role != Role::frame && role != Role::window && role != Role::filler) continue;
        const bool isDesktop = manager->kind->isDesktop(role, replies[1]);
        if (role == Role::filler && !isDesktop) continue;
        list_.addFrame(service, std::make_shared<FrameReader>(object, *manager->kind,
                                                              manager->process, isDesktop));
        Q_EMIT changeReported();
    }
    co_return {};
}

Task<SharedFrame> FrameTracker::findLatestFrame(DBusQuery& query)
{
    const std::vector<SharedFrame> frames = list_.frames();
    const auto calls =
        callsFor(frames, [](const SharedFrame& frame) { return statesCall(frame->frame()); });
    const SharedFrame wanted = revalidateNext_;
    const bool isThere = wanted && std::find(frames.begin(), frames.end(), wanted) != frames.end();
    const bool revalidates = isThere && !wanted->isStale();
    Validators sent;
    if (revalidates) sent = wanted->sendRevalidation(query);
    revalidated_ = revalidates ? wanted : nullptr;
    std::optional<Asking> asking;
    if (isThere && wanted->isStale()) asking.emplace(*this, query, wanted);
    const auto replies = co_await query.replies(calls);
    asking.reset();
    revalidateNext_.reset();
    // `frames` and `wanted` hold the windows that were asked, also those that have closed
    // meanwhile; the list ignores what it no longer contains.
    if (revalidates) wanted->takeRevalidation(sent, replies);

    std::vector<FrameList::Activity> activities;
    for (std::size_t i = 0; i < frames.size(); i++) {
        const auto states = statesIn(replies[replies.size() - frames.size() + i]);
        if (states) {
            activities.push_back({frames[i], has(*states, State::active)});
        } else {
            scanSoon(0ms);
        }
    }
    list_.note(activities);
    lastFrame_ = list_.latest(lastFrame_);
    if (!lastFrame_) co_return nullptr;
    // The program of this window may be paused.
    const std::vector<QString> services = list_.managers();
    if (std::find(services.begin(), services.end(), lastFrame_->frame().service) == services.end())
        co_return nullptr;
    if (!lastFrame_->isFound()) {
        startWalking(lastFrame_);
        co_return nullptr;
    }
    co_return lastFrame_;
}

void FrameTracker::startWalking(const SharedFrame& frame)
{
    if (walk_ || !list_.beginWalk(frame, Clock::now())) return;
    walk_ = std::make_unique<DBusQuery>(bus_.bus(), kReplyTimeout);
    walk_->start(frame->findAndRead(*walk_));
    walk_->continueInEventLoop([this, frame] {  // `frame` outlives the walk
        walk_.reset();
        if (frame->isFound()) Q_EMIT changeReported();
    });
}

void FrameTracker::readInEventLoop(const SharedFrame& frame)
{
    if (walk_) return;
    walk_ = std::make_unique<DBusQuery>(bus_.bus(), kReplyTimeout);
    readInLoop_ = frame;
    const auto before = frame->paths();
    walk_->start(frame->read(*walk_));
    walk_->continueInEventLoop([this, frame, before] {
        readInLoop_.reset();
        walk_.reset();
        if (frame->isStale() || frame->paths() != before) Q_EMIT changeReported();
    });
}

void FrameTracker::cancelReading(const SharedFrame& frame)
{
    if (readInLoop_ != frame) return;
    readInLoop_.reset();
    walk_.reset();
}

void FrameTracker::pause(const QString& service)
{
    if (!list_.setPaused(service, true)) return;
    for (const SharedFrame& frame : list_.framesOf(service)) {
        frame->markStale();
        frame->setCost(1s);
    }
    ping(service);
}

void FrameTracker::ping(const QString& service)
{
    const auto timeout = static_cast<int>(std::chrono::milliseconds(kPingTimeout).count());
    auto* watcher =
        new QDBusPendingCallWatcher(bus_.bus().asyncCall(roleCall(rootOf(service)), timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, service] {
        const QDBusMessage reply = watcher->reply();
        watcher->deleteLater();
        if (!bus_.isReady()) return;
        if (reply.type() == QDBusMessage::ReplyMessage) {
            if (list_.setPaused(service, false)) Q_EMIT changeReported();
        } else if (list_.manager(service)) {
            ping(service);
        }
    });
}

// A change of many items sends many events in a burst, so none of them makes a call.
void FrameTracker::onEventReceived(const QString& service, const QString& path,
                                   AccessibilityBus::Event event, bool isOn)
{
    using Event = AccessibilityBus::Event;
    const auto manager = list_.manager(service);
    if (!manager) return;
    if (event == Event::window) scanSoon(kScanDelay);
    for (const SharedFrame& frame : list_.framesOf(service)) {
        if (event == Event::focus && isOn) {
            frame->noteFocus({service, path});
            if (asking_ != nullptr) asking_->noteSelected(frame);
        } else if (event == Event::selection && isOn) {
            frame->noteSelected({service, path});
            if (asking_ != nullptr) asking_->noteSelected(frame);
        } else if (event == Event::selection) {
            frame->noteSelection({service, path});
        } else {
            frame->markStale();
        }
    }
    if (event == Event::selection || event == Event::focus)
        Q_EMIT selectionMayHaveChanged(manager->process);
    Q_EMIT changeReported();
}

}  // namespace pinorama
