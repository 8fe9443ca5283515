#include "platform/desktop/frame_tracker.h"

#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <utility>

namespace {
using namespace std::chrono_literals;

constexpr auto kAnswerLimit = 2s;        // of one question in the event loop
constexpr auto kPingLimit = 3s;          // how long a program that hangs is left alone
constexpr auto kSleepAfter = 2s;         // without anybody who needs the tracker
constexpr auto kLookInterval = 2s;       // between two looks at all windows
constexpr int kLookSoon = 150;           // milliseconds after a window came or went
constexpr auto kWalkAgainAfter = 700ms;  // when a window had no view of files
constexpr std::size_t kMostPrograms = 256;
constexpr std::size_t kMostFrames = 32;  // of one program

platform::Accessible rootOf(const QString& service)
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

platform::FrameTracker::FrameTracker(KindOfProcess kindOfProcess, QObject* parent)
    : QObject(parent), kindOfProcess_(std::move(kindOfProcess))
{
    connect(&bus_, &AccessibilityBus::connected, this, &FrameTracker::startLookingAround);
    connect(&bus_, &AccessibilityBus::lost, this, &FrameTracker::forgetEverything);
    connect(&bus_, &AccessibilityBus::heard, this, &FrameTracker::onHeard);
    connect(&bus_, &AccessibilityBus::programCame, this, [this] { lookAroundSoon(kLookSoon); });
    connect(&bus_, &AccessibilityBus::programLeft, this, [this](const QString& service) {
        std::erase_if(programs_,
                      [&](const Program& program) { return program.service == service; });
    });
    sleep_.setSingleShot(true);
    connect(&sleep_, &QTimer::timeout, this, &FrameTracker::fallAsleep);
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, &FrameTracker::startLookingAround);
}

platform::FrameTracker::~FrameTracker() = default;

bool platform::FrameTracker::isReady()
{
    sleep_.start(kSleepAfter);
    if (!bus_.isReady()) return false;
    // Windows are looked for along with the questions of somebody else, so that nothing else has to
    // wake up for it.
    if (Clock::now() - lookedAt_ >= kLookInterval) startLookingAround();
    return true;
}

void platform::FrameTracker::fallAsleep()
{
    soon_.stop();
    forgetEverything();
    bus_.close();
}

void platform::FrameTracker::forgetEverything()
{
    look_.reset();
    walk_.reset();
    readInLoop_.reset();
    programs_.clear();
    lastFrame_.reset();
    checkedNext_.reset();
    checked_.reset();
}

platform::FrameTracker::Program* platform::FrameTracker::programOf(const QString& service)
{
    const auto program = std::find_if(programs_.begin(), programs_.end(),
                                      [&](const Program& p) { return p.service == service; });
    return program == programs_.end() ? nullptr : &*program;
}

void platform::FrameTracker::lookAroundSoon(int milliseconds)
{
    if (!soon_.isActive()) soon_.start(milliseconds);
}

void platform::FrameTracker::startLookingAround()
{
    if (look_ || !bus_.isReady()) return;
    lookedAt_ = Clock::now();
    look_ = std::make_unique<Inquiry>(bus_.bus(), kAnswerLimit);
    look_->begin(lookAround(*look_));
    look_->letRun([this] { look_.reset(); });
}

platform::Task<platform::Done> platform::FrameTracker::lookAround(Inquiry& inquiry)
{
    const QDBusMessage askChildren =
        childrenQuestion(rootOf(QStringLiteral("org.a11y.atspi.Registry")));
    const auto roots = objectsIn(co_await inquiry.answer(askChildren), kMostPrograms);
    if (!roots) co_return {};

    std::vector<QString> unknown;
    std::vector<QDBusMessage> questions;
    for (const Accessible& root : *roots) {
        if (root.isNull() || programOf(root.service) != nullptr) continue;
        unknown.push_back(root.service);
        questions.push_back(processQuestion(root.service));
    }
    const auto answers = co_await inquiry.answers(questions);
    for (std::size_t i = 0; i < unknown.size(); i++) {
        const auto process = static_cast<pid_t>(numberIn(answers[i]).value_or(0));
        if (process == 0) continue;
        const FileManagerKind* kind = kindOfProcess_(process);
        programs_.push_back({.service = unknown[i], .process = process, .kind = kind});
        // Dolphin says no other word when all items get selected.
        if (kind != nullptr) bus_.listenTo(unknown[i], kind->manager == FileManager::dolphin);
    }
    std::vector<QString> services;
    for (const Program& program : programs_) {
        if (program.kind != nullptr && !program.isPaused) services.push_back(program.service);
    }
    for (const QString& service : services) co_await lookAt(inquiry, service);
    co_return {};
}

// Finds the windows of one program that came or went.
platform::Task<platform::Done> platform::FrameTracker::lookAt(Inquiry& inquiry, QString service)
{
    const QDBusMessage askChildren = childrenQuestion(rootOf(service));
    const auto objects = objectsIn(co_await inquiry.answer(askChildren), kMostFrames);
    Program* program = programOf(service);
    if (!objects || program == nullptr) co_return {};
    const auto isListed = [&](const Accessible& frame) {
        return std::find(objects->begin(), objects->end(), frame) != objects->end();
    };
    std::erase_if(program->frames,
                  [&](const Frame& frame) { return !isListed(frame.reader->frame()); });

    for (const Accessible& object : *objects) {
        program = programOf(service);
        if (program == nullptr) co_return {};
        const bool isKnown =
            std::any_of(program->frames.begin(), program->frames.end(),
                        [&](const Frame& frame) { return frame.reader->frame() == object; });
        if (isKnown || object.isNull()) continue;
        const std::vector<QDBusMessage> asked =
            together(roleQuestion(object), attributesQuestion(object), statesQuestion(object));
        const auto answers = co_await inquiry.answers(asked);
        const auto role = static_cast<Role>(numberIn(answers[0]).value_or(0));
        if (role != Role::frame && role != Role::window && role != Role::filler) continue;
        // A window without a frame of its own is a desktop in the one program that has such.
        const bool isDesktop =
            program->kind->isDesktop || role == Role::filler ||
            hasAttribute(answers[1], QStringLiteral("is-desktop"), QStringLiteral("true")) ||
            hasAttribute(answers[1], QStringLiteral("window-type"), QStringLiteral("desktop"));
        program = programOf(service);
        if (program == nullptr) co_return {};
        program->frames.push_back({.reader = std::make_shared<FrameReader>(
                                       object, *program->kind, program->process, isDesktop)});
    }
    co_return {};
}

platform::Task<std::shared_ptr<platform::FrameReader>> platform::FrameTracker::askForFrame(
    Inquiry& inquiry)
{
    std::vector<Accessible> objects;
    std::vector<QDBusMessage> questions;
    checked_.reset();
    for (const Program& program : programs_) {
        if (program.isPaused) continue;
        for (const Frame& frame : program.frames) {
            objects.push_back(frame.reader->frame());
            questions.push_back(statesQuestion(frame.reader->frame()));
            if (frame.reader == checkedNext_ && !checkedNext_->isStale()) checked_ = checkedNext_;
        }
    }
    checkedNext_.reset();
    if (checked_) checked_->askToCheck(inquiry);
    auto answers = co_await inquiry.answers(questions);
    if (checked_) checked_->takeCheck(answers);
    answers.erase(answers.begin(), answers.end() - static_cast<long>(objects.size()));

    Frame* latest = nullptr;
    for (Program& program : programs_) {
        for (Frame& frame : program.frames) {
            const auto object = std::find(objects.begin(), objects.end(), frame.reader->frame());
            if (object == objects.end()) continue;
            const auto states =
                statesIn(answers[static_cast<std::size_t>(object - objects.begin())]);
            if (!states) {
                lookAroundSoon(0);
                continue;
            }
            const bool isActive = has(*states, State::active);
            if (isActive && !frame.isActive) frame.activatedAt = ++activations_;
            frame.isActive = isActive;
        }
    }
    // Who leaves a window and comes back between two questions was never seen elsewhere.
    for (Program& program : programs_) {
        for (Frame& frame : program.frames) {
            if (frame.isActive && !isLatestActive()) frame.activatedAt = ++activations_;
        }
    }
    // A window without a view of files, such as one that shows the progress of copying, does not
    // count; whether it has one must be found out first.
    for (Program& program : programs_) {
        for (Frame& frame : program.frames) {
            const bool isWalked = frame.walkedAt != Clock::time_point();
            if (isWalked && !frame.reader->isFound() && !frame.isActive &&
                frame.reader != lastFrame_)
                continue;
            if (latest == nullptr || frame.activatedAt >= latest->activatedAt) latest = &frame;
        }
    }
    lastFrame_ = latest == nullptr ? nullptr : latest->reader;
    if (latest == nullptr) co_return nullptr;
    const Program* program = programOf(lastFrame_->frame().service);
    if (program == nullptr || program->isPaused) co_return nullptr;
    if (!lastFrame_->isFound()) {
        startWalking(*latest);
        co_return nullptr;
    }
    co_return lastFrame_;
}

// Whether the window that became active last is active still.
bool platform::FrameTracker::isLatestActive() const
{
    const Frame* latest = nullptr;
    for (const Program& program : programs_) {
        for (const Frame& frame : program.frames) {
            if (latest == nullptr || frame.activatedAt > latest->activatedAt) latest = &frame;
        }
    }
    return latest != nullptr && latest->isActive;
}

void platform::FrameTracker::startWalking(Frame& frame)
{
    if (walk_ || Clock::now() - frame.walkedAt < kWalkAgainAfter) return;
    frame.walkedAt = Clock::now();
    walk_ = std::make_unique<Inquiry>(bus_.bus(), kAnswerLimit);
    const std::shared_ptr<FrameReader> reader = frame.reader;
    walk_->begin(reader->findAndRead(*walk_));
    walk_->letRun([this, reader] { walk_.reset(); });
}

void platform::FrameTracker::readInEventLoop(const std::shared_ptr<FrameReader>& frame)
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

void platform::FrameTracker::dropReading(const std::shared_ptr<FrameReader>& frame)
{
    if (readInLoop_ != frame) return;
    readInLoop_.reset();
    walk_.reset();
}

void platform::FrameTracker::pause(const QString& service)
{
    Program* program = programOf(service);
    if (program == nullptr || program->isPaused) return;
    program->isPaused = true;
    for (Frame& frame : program->frames) {
        frame.reader->markStale();
        frame.reader->setCost(1s);
    }
    ping(service);
}

void platform::FrameTracker::ping(const QString& service)
{
    const int limit = static_cast<int>(std::chrono::milliseconds(kPingLimit).count());
    auto* answer = new QDBusPendingCallWatcher(
        bus_.bus().asyncCall(roleQuestion(rootOf(service)), limit), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, service] {
        const QDBusMessage message = answer->reply();
        answer->deleteLater();
        Program* program = programOf(service);
        if (program == nullptr || !bus_.isReady()) return;
        if (message.type() == QDBusMessage::ReplyMessage) {
            program->isPaused = false;
        } else {
            ping(service);
        }
    });
}

// Many of these come at once when a lot changes. Nobody is asked anything here.
void platform::FrameTracker::onHeard(const QString& service, const QString& path,
                                     AccessibilityBus::Event event, bool isOn)
{
    using Event = AccessibilityBus::Event;
    Program* program = programOf(service);
    if (program == nullptr) return;
    if (event == Event::window) lookAroundSoon(kLookSoon);
    for (Frame& frame : program->frames) {
        if (event == Event::focus && isOn) {
            frame.reader->noteFocus({service, path});
        } else if (event == Event::selection) {
            frame.reader->noteSelection({service, path});
        } else {
            frame.reader->markStale();
        }
    }
    if (event == Event::selection || event == Event::focus)
        Q_EMIT selectionMayHaveChanged(program->process);
}
