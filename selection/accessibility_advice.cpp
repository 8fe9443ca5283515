#include "selection/accessibility_advice.h"

#include "selection/bus_process.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kReplyTimeout = 2s;
constexpr std::chrono::milliseconds kSwitchOnTimeout = 5s;  // the service may have to be started
constexpr qsizetype kMaxPrograms = 1024;

const QString kBus = QStringLiteral("org.freedesktop.DBus");

QDBusMessage busCall(const QString& member, const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(kBus, QStringLiteral("/org/freedesktop/DBus"), kBus, member);
    message.setArguments(arguments);
    return message;
}

// Get or Set of the property that switches accessibility on; `value` is empty for Get.
QDBusMessage statusCall(const QString& member, const QVariantList& value)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.freedesktop.DBus.Properties"), member);
    message.setArguments(
        QVariantList{QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled")} + value);
    return message;
}

QStringList programsIn(const QDBusMessage& reply)
{
    QStringList names = reply.arguments().value(0).toStringList();
    names.removeIf([](const QString& name) { return !name.startsWith(u':'); });
    return names.mid(0, kMaxPrograms);
}

std::vector<QDBusMessage> processCalls(const QStringList& programs)
{
    std::vector<QDBusMessage> calls;
    for (const QString& program : programs) calls.push_back(processCall(program));
    return calls;
}

std::vector<pid_t> processesIn(const std::vector<QDBusMessage>& replies)
{
    std::vector<pid_t> processes;
    for (const QDBusMessage& reply : replies) {
        if (const auto process = processIn(reply)) processes.push_back(*process);
    }
    return processes;
}

// Whether accessibility is off for certain; an error message proves nothing.
bool isOff(const QDBusMessage& reply)
{
    const QVariant value = reply.arguments().value(0).value<QDBusVariant>().variant();
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
    connect(&accessibility_, &AccessibilityBus::connected, this, &AccessibilityAdvice::startCheck,
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
    check_.reset();
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
    if (!name.startsWith(u':') || later.isEmpty() || newcomers_.size() >= kMaxPrograms) return;
    newcomers_ << name;
    if (!round_.isActive()) round_.start();
}

// Every program gets at least one whole round. Newcomers do not restart the timer, so a stream of
// them cannot delay the check of the others.
void AccessibilityAdvice::onSettled()
{
    settled_ += std::exchange(settling_, std::exchange(newcomers_, {}));
    if (!settling_.isEmpty()) round_.start();
    startCheck();
}

void AccessibilityAdvice::startCheck()
{
    if (check_ || !isWanted_ || !QDBusConnection::sessionBus().isConnected()) return;
    check_ = std::make_unique<DBusQuery>(QDBusConnection::sessionBus(), kReplyTimeout);
    check_->start(check(*check_));
    check_->continueInEventLoop([this] {
        check_.reset();
        if (silent_.isEmpty()) return;
        stop();
        Q_EMIT needed(silent_);
    });
}

Task<Done> AccessibilityAdvice::check(DBusQuery& query)
{
    QStringList programs = std::exchange(settled_, {});
    if (!hasListedAll_) {
        const QDBusMessage getNames = busCall(QStringLiteral("ListNames"), {});
        programs = programsIn(co_await query.reply(getNames));
        hasListedAll_ = true;
    }
    const std::vector<QDBusMessage> getProcesses = processCalls(programs);
    const auto replies = co_await query.replies(getProcesses);
    for (const pid_t process : processesIn(replies)) {
        const FileManagerKind* kind = kindOfProcess_(process);
        if (kind != nullptr && kind->toolkit == Toolkit::qt)
            suspects_.push_back(
                {process, QString::fromLatin1(kind->name.data(), qsizetype(kind->name.size()))});
    }
    std::erase_if(suspects_, [this](const Suspect& suspect) {
        return kindOfProcess_(suspect.process) == nullptr;  // it ended while this waited
    });
    if (suspects_.empty()) co_return {};

    const QDBusMessage getStatus = statusCall(QStringLiteral("Get"), {});
    if (!isOff(co_await query.reply(getStatus))) {
        suspects_.clear();
        co_return {};
    }
    // A file manager may be on the accessibility bus although the setting is off.
    if (!accessibility_.isReady()) {
        if (!round_.isActive()) round_.start();  // the signal connected() or this checks again
        co_return {};
    }
    const QDBusMessage getSpeakers = busCall(QStringLiteral("ListNames"), {});
    const std::vector<QDBusMessage> getThem = callList(getSpeakers);
    const auto speakers = co_await query.repliesFrom(accessibility_.bus(), getThem);
    const std::vector<QDBusMessage> getTheirs = processCalls(programsIn(speakers.front()));
    const auto theirs = co_await query.repliesFrom(accessibility_.bus(), getTheirs);
    const std::vector<pid_t> speaking = processesIn(theirs);
    accessibility_.close();
    if (speaking.empty()) co_return {};  // not even this program is listed: the reply is useless
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
    const QDBusMessage setEnabled =
        statusCall(QStringLiteral("Set"), {QVariant::fromValue(QDBusVariant(QVariant(true)))});
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(
                                        setEnabled, static_cast<int>(kSwitchOnTimeout.count())),
                                    this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        Q_EMIT switched(!watcher->isError());
    });
}

}  // namespace pinorama
