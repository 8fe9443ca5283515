#include "selection/frame_tracker.h"

#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kAnswerLimit = 2s;   // of one question in the event loop
constexpr auto kPingLimit = 3s;     // how long a program that hangs is left alone
constexpr auto kSleepAfter = 2s;    // without anybody who needs the tracker
constexpr auto kLookInterval = 2s;  // between two looks at all windows
constexpr int kLookSoon = 150;      // milliseconds after a window came or went
constexpr std::size_t kMostPrograms = 256;
constexpr std::size_t kMostFrames = 32;  // of one program

Accessible rootOf(const QString& service)
{
    return {service, QStringLiteral("/org/a11y/atspi/accessible/root")};
}

QDBusMessage processQuestion(const QString& service)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
    message.setArguments({service});
    return message;
}
}  // namespace

FrameTracker::FrameTracker(KindOfProcess kindOfProcess, QObject* parent)
    : QObject(parent), kindOfProcess_(std::move(kindOfProcess))
{
    connect(&bus_, &AccessibilityBus::connected, this, &FrameTracker::startLookingAround);
    connect(&bus_, &AccessibilityBus::lost, this, &FrameTracker::forgetEverything);
    connect(&bus_, &AccessibilityBus::heard, this, &FrameTracker::onHeard);
    connect(&bus_, &AccessibilityBus::programCame, this, [this] { lookAroundSoon(kLookSoon); });
    connect(&bus_, &AccessibilityBus::programLeft, this,
            [this](const QString& service) { list_.remove(service); });
    sleep_.setSingleShot(true);
    connect(&sleep_, &QTimer::timeout, this, &FrameTracker::fallAsleep);
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, &FrameTracker::startLookingAround);
}

FrameTracker::~FrameTracker() = default;

bool FrameTracker::isReady()
{
    sleep_.start(kSleepAfter);
    if (!bus_.isReady()) return false;
    // Windows are looked for along with the questions of somebody else, so that nothing else has to
    // wake up for it.
    if (Clock::now() - lookedAt_ >= kLookInterval) startLookingAround();
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
    look_.reset();
    walk_.reset();
    readInLoop_.reset();
    list_.clear();
    lastFrame_.reset();
    checkedNext_.reset();
    checked_.reset();
}

void FrameTracker::lookAroundSoon(int milliseconds)
{
    if (!soon_.isActive()) soon_.start(milliseconds);
}

void FrameTracker::startLookingAround()
{
    if (look_ || !bus_.isReady()) return;
    lookedAt_ = Clock::now();
    look_ = std::make_unique<Inquiry>(bus_.bus(), kAnswerLimit);
    look_->begin(lookAround(*look_));
    look_->letRun([this] { look_.reset(); });
}

Task<Done> FrameTracker::lookAround(Inquiry& inquiry)
{
    const QDBusMessage askChildren =
        childrenQuestion(rootOf(QStringLiteral("org.a11y.atspi.Registry")));
    const auto roots = objectsIn(co_await inquiry.answer(askChildren), kMostPrograms);
    if (!roots) co_return {};

    // A program is put down before it is asked about, so that it is missed when it leaves
    // meanwhile.
    std::vector<QString> unknown;
    std::vector<QDBusMessage> questions;
    for (const Accessible& root : *roots) {
        if (root.isNull() || !list_.add(root.service)) continue;
        unknown.push_back(root.service);
        questions.push_back(processQuestion(root.service));
    }
    const auto answers = co_await inquiry.answers(questions);
    for (std::size_t i = 0; i < unknown.size(); i++) {
        const auto process = static_cast<pid_t>(numberIn(answers[i]).value_or(0));
        if (process == 0) {
            list_.remove(unknown[i]);
            continue;
        }
        const FileManagerKind* kind = kindOfProcess_(process);
        if (!list_.identify(unknown[i], process, kind) || kind == nullptr) continue;
        // Dolphin says no other word when all items get selected.
        bus_.listenTo(unknown[i], kind->manager == FileManager::dolphin);
    }
    const std::vector<QString> services = list_.managers();
    for (const QString& service : services) co_await lookAt(inquiry, service);
    co_return {};
}

// Finds the windows of one program that came or went.
Task<Done> FrameTracker::lookAt(Inquiry& inquiry, QString service)
{
    const QDBusMessage askChildren = childrenQuestion(rootOf(service));
    const auto objects = objectsIn(co_await inquiry.answer(askChildren), kMostFrames);
    if (!objects) co_return {};
    const std::vector<Accessible> unknown = list_.keepOnly(service, *objects);
    for (const Accessible& object : unknown) {
        const std::vector<QDBusMessage> asked =
            together(roleQuestion(object), attributesQuestion(object));
        const auto answers = co_await inquiry.answers(asked);
        const auto manager = list_.manager(service);
        if (!manager) co_return {};
        const auto role = static_cast<Role>(numberIn(answers[0]).value_or(0));
        if (role != Role::frame && role != Role::window && role != Role::filler) continue;
        // A window without a frame of its own is a desktop in the one program that has such.
        const bool isDesktop =
            manager->kind->isDesktop || role == Role::filler ||
            hasAttribute(answers[1], QStringLiteral("is-desktop"), QStringLiteral("true")) ||
            hasAttribute(answers[1], QStringLiteral("window-type"), QStringLiteral("desktop"));
        list_.addFrame(service, std::make_shared<FrameReader>(object, *manager->kind,
                                                              manager->process, isDesktop));
    }
    co_return {};
}

Task<SharedFrame> FrameTracker::askForFrame(Inquiry& inquiry)
{
    const std::vector<SharedFrame> frames = list_.frames();
    const auto questions = questionsAbout(
        frames, [](const SharedFrame& frame) { return statesQuestion(frame->frame()); });
    const SharedFrame checked = std::exchange(checkedNext_, nullptr);
    const bool isChecked = checked && !checked->isStale() &&
                           std::find(frames.begin(), frames.end(), checked) != frames.end();
    Witnesses witnesses;
    if (isChecked) witnesses = checked->askToCheck(inquiry);
    checked_ = isChecked ? checked : nullptr;
    const auto answers = co_await inquiry.answers(questions);
    if (isChecked) checked->takeCheck(witnesses, answers);

    std::vector<FrameList::Activity> activities;
    for (std::size_t i = 0; i < frames.size(); i++) {
        const auto states = statesIn(answers[answers.size() - frames.size() + i]);
        if (states) {
            activities.push_back({frames[i], has(*states, State::active)});
        } else {
            lookAroundSoon(0);
        }
    }
    list_.note(activities);
    lastFrame_ = list_.latest(lastFrame_);
    if (!lastFrame_) co_return nullptr;
    // It may be of a program that is left alone.
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
    walk_ = std::make_unique<Inquiry>(bus_.bus(), kAnswerLimit);
    walk_->begin(frame->findAndRead(*walk_));
    walk_->letRun([this, frame] { walk_.reset(); });
}

void FrameTracker::readInEventLoop(const SharedFrame& frame)
{
    if (walk_) return;
    walk_ = std::make_unique<Inquiry>(bus_.bus(), kAnswerLimit);
    readInLoop_ = frame;
    walk_->begin(frame->read(*walk_));
    walk_->letRun([this, frame] {
        readInLoop_.reset();
        walk_.reset();
    });
}

void FrameTracker::dropReading(const SharedFrame& frame)
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
    const int limit = static_cast<int>(std::chrono::milliseconds(kPingLimit).count());
    auto* answer = new QDBusPendingCallWatcher(
        bus_.bus().asyncCall(roleQuestion(rootOf(service)), limit), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, service] {
        const QDBusMessage message = answer->reply();
        answer->deleteLater();
        if (!bus_.isReady()) return;
        if (message.type() == QDBusMessage::ReplyMessage) {
            (void)list_.setPaused(service, false);
        } else if (list_.manager(service)) {
            ping(service);
        }
    });
}

// Many of these come at once when a lot changes. Nobody is asked anything here.
void FrameTracker::onHeard(const QString& service, const QString& path,
                           AccessibilityBus::Event event, bool isOn)
{
    using Event = AccessibilityBus::Event;
    const auto manager = list_.manager(service);
    if (!manager) return;
    if (event == Event::window) lookAroundSoon(kLookSoon);
    for (const SharedFrame& frame : list_.framesOf(service)) {
        if (event == Event::focus && isOn) {
            frame->noteFocus({service, path});
        } else if (event == Event::selection) {
            frame->noteSelection({service, path});
        } else {
            frame->markStale();
        }
    }
    if (event == Event::selection || event == Event::focus)
        Q_EMIT selectionMayHaveChanged(manager->process);
}

}  // namespace pinorama
