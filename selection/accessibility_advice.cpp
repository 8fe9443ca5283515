#include "selection/accessibility_advice.h"

#include "selection/accessible.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kAnswerLimit = 2s;
constexpr int kSwitchLimit = 5000;  // milliseconds; the service may have to be started first
constexpr qsizetype kMostPrograms = 1024;

const QString kBus = QStringLiteral("org.freedesktop.DBus");

QDBusMessage busQuestion(const QString& member, const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus, member);
    message.setArguments(arguments);
    return message;
}

// Get or Set of the property that switches accessibility on.
QDBusMessage statusQuestion(const QString& member, const QVariantList& further)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.freedesktop.DBus.Properties"), member);
    message.setArguments(
        QVariantList{QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled")} + further);
    return message;
}

QStringList programsIn(const QDBusMessage& answer)
{
    QStringList names = answer.arguments().value(0).toStringList();
    names.removeIf([](const QString& name) { return !name.startsWith(u':'); });
    return names.mid(0, kMostPrograms);
}

std::vector<QDBusMessage> processQuestions(const QStringList& programs)
{
    std::vector<QDBusMessage> questions;
    for (const QString& program : programs)
        questions.push_back(busQuestion(QStringLiteral("GetConnectionUnixProcessID"), {program}));
    return questions;
}

std::vector<pid_t> processesIn(const std::vector<QDBusMessage>& answers)
{
    std::vector<pid_t> processes;
    for (const QDBusMessage& answer : answers) {
        const auto process = static_cast<pid_t>(numberIn(answer).value_or(0));
        if (process > 0) processes.push_back(process);
    }
    return processes;
}

// Whether accessibility is known to be off.
bool isOff(const QDBusMessage& answer)
{
    const QVariant value = answer.arguments().value(0).value<QDBusVariant>().variant();
    return value.userType() == QMetaType::Bool && !value.toBool();
}
}  // namespace

AccessibilityAdvice::AccessibilityAdvice(KindOfProcess kindOfProcess,
                                         std::chrono::milliseconds settling, QObject* parent)
    : QObject(parent), kindOfProcess_(std::move(kindOfProcess))
{
    round_.setSingleShot(true);
    round_.setInterval(settling);
    connect(&round_, &QTimer::timeout, this, &AccessibilityAdvice::onSettled);
    connect(&accessibility_, &AccessibilityBus::connected, this, &AccessibilityAdvice::startLooking,
            Qt::QueuedConnection);
}

AccessibilityAdvice::~AccessibilityAdvice()
{
    stop();
}

void AccessibilityAdvice::setWanted(bool isWanted)
{
    if (isWanted == isWanted_ || !silent_.isEmpty()) return;
    if (!isWanted) return stop();
    isWanted_ = true;
    QDBusConnection::sessionBus().connect(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus,
                                          QStringLiteral("NameOwnerChanged"), this,
                                          SLOT(onOwnerChanged(QString, QString, QString)));
    round_.start();
}

void AccessibilityAdvice::stop()
{
    if (!isWanted_) return;
    isWanted_ = false;
    QDBusConnection::sessionBus().disconnect(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus,
                                             QStringLiteral("NameOwnerChanged"), this,
                                             SLOT(onOwnerChanged(QString, QString, QString)));
    round_.stop();
    look_.reset();
    accessibility_.close();
    hasListedAll_ = false;
    newcomers_.clear();
    settling_.clear();
    settled_.clear();
    suspects_.clear();
}

void AccessibilityAdvice::onOwnerChanged(const QString& name, const QString& /*earlier*/,
                                         const QString& later)
{
    if (!name.startsWith(u':') || later.isEmpty() || newcomers_.size() >= kMostPrograms) return;
    newcomers_ << name;
    if (!round_.isActive()) round_.start();
}

// Everybody gets a whole round, and no stream of newcomers puts off the others.
void AccessibilityAdvice::onSettled()
{
    settled_ += std::exchange(settling_, std::exchange(newcomers_, {}));
    if (!settling_.isEmpty()) round_.start();
    startLooking();
}

void AccessibilityAdvice::startLooking()
{
    if (look_ || !isWanted_ || !QDBusConnection::sessionBus().isConnected()) return;
    look_ = std::make_unique<Inquiry>(QDBusConnection::sessionBus(), kAnswerLimit);
    look_->begin(look(*look_));
    look_->letRun([this] {
        look_.reset();
        if (silent_.isEmpty()) return;
        stop();
        Q_EMIT needed(silent_);
    });
}

Task<Done> AccessibilityAdvice::look(Inquiry& inquiry)
{
    QStringList programs = std::exchange(settled_, {});
    if (!hasListedAll_) {
        const QDBusMessage askNames = busQuestion(QStringLiteral("ListNames"), {});
        programs = programsIn(co_await inquiry.answer(askNames));
        hasListedAll_ = true;
    }
    const std::vector<QDBusMessage> askProcesses = processQuestions(programs);
    const auto answers = co_await inquiry.answers(askProcesses);
    for (const pid_t process : processesIn(answers)) {
        const FileManagerKind* kind = kindOfProcess_(process);
        if (kind != nullptr && kind->toolkit == Toolkit::qt)
            suspects_.push_back(
                {process, QString::fromLatin1(kind->name.data(), qsizetype(kind->name.size()))});
    }
    std::erase_if(suspects_, [this](const Suspect& suspect) {
        return kindOfProcess_(suspect.process) == nullptr;  // it has ended
    });
    if (suspects_.empty()) co_return {};

    const QDBusMessage askStatus = statusQuestion(QStringLiteral("Get"), {});
    if (!isOff(co_await inquiry.answer(askStatus))) {
        suspects_.clear();
        co_return {};
    }
    // One that found the accessibility bus by itself speaks all the same.
    if (!accessibility_.isReady()) {
        if (!round_.isActive()) round_.start();  // connected() looks again, or this does
        co_return {};
    }
    const QDBusMessage askSpeakers = busQuestion(QStringLiteral("ListNames"), {});
    const std::vector<QDBusMessage> askThem = together(askSpeakers);
    const auto speakers = co_await inquiry.answersFrom(accessibility_.bus(), askThem);
    const std::vector<QDBusMessage> askTheirs = processQuestions(programsIn(speakers.front()));
    const auto theirs = co_await inquiry.answersFrom(accessibility_.bus(), askTheirs);
    const std::vector<pid_t> speaking = processesIn(theirs);
    accessibility_.close();
    if (speaking.empty()) co_return {};  // not even this program: nothing is known
    for (const Suspect& suspect : std::exchange(suspects_, {})) {
        if (std::find(speaking.begin(), speaking.end(), suspect.process) != speaking.end())
            continue;
        silent_ = suspect.name;
        co_return {};
    }
    co_return {};
}

void AccessibilityAdvice::switchOn()
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        Q_EMIT switched(false);
        return;
    }
    const QDBusMessage wish =
        statusQuestion(QStringLiteral("Set"), {QVariant::fromValue(QDBusVariant(QVariant(true)))});
    auto* answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(wish, kSwitchLimit), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        Q_EMIT switched(!answer->isError());
    });
}

}  // namespace pinorama
