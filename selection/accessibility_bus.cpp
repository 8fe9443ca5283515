#include "selection/accessibility_bus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariant>

#include <initializer_list>
#include <iterator>
#include <vector>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kRetryInterval = 1s;
constexpr std::chrono::milliseconds kCallTimeout = 5s;  // the bus may have to be started first

// Other changes, such as those of titles and status bars, are found by revalidation anyway, and a
// program that nobody subscribes to for them has less to do.
constexpr const char* kEvents[] = {
    "object:selection-changed",
    "object:state-changed:selected",
    "object:state-changed:focused",
    "window:activate",
    "window:create",
    "window:destroy",
};
constexpr const char* kNameEvent = "object:property-change:accessible-name";
constexpr const char* kActivityEvent = "object:state-changed:active";

QString busName()
{
    static int count = 0;
    return QStringLiteral("pinorama-accessibility-%1").arg(++count);
}
}  // namespace

AccessibilityBus::AccessibilityBus(QObject* parent) : QObject(parent) {}

AccessibilityBus::~AccessibilityBus()
{
    close();
}

bool AccessibilityBus::isReady()
{
    if (!name_.isEmpty() && bus().isConnected()) return true;
    if (!name_.isEmpty()) onDisconnected();
    if (!isConnecting_ && Clock::now() - triedAt_ >= kRetryInterval) requestAddress();
    return false;
}

void AccessibilityBus::close()
{
    if (name_.isEmpty()) return;
    QDBusConnection::disconnectFromBus(name_);
    name_.clear();
}

void AccessibilityBus::requestAddress()
{
    isConnecting_ = true;
    triedAt_ = Clock::now();
    const QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    auto* watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, static_cast<int>(kCallTimeout.count())),
        this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QString> address = *watcher;
        watcher->deleteLater();
        isConnecting_ = false;
        if (address.isValid() && !address.value().isEmpty()) open(address.value());
    });
}

void AccessibilityBus::open(const QString& address)
{
    close();
    const QString name = busName();
    QDBusConnection bus = QDBusConnection::connectToBus(address, name);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(name);
        return;
    }
    name_ = name;
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                SLOT(onDisconnected()));
    bus.connect(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameOwnerChanged"), this,
                SLOT(onOwnerChanged(QString, QString, QString)));
    Q_EMIT connected();
}

void AccessibilityBus::listenTo(const QString& service, Further further)
{
    const QString object = QStringLiteral("org.a11y.atspi.Event.Object");
    bus().connect(service, QString(), object, QStringLiteral("SelectionChanged"), this,
                  SLOT(onEvent(QDBusMessage)));
    // GTK 4 sends the changes of all states, whoever subscribed to what. The match rules keep those
    // that are not listed here on the bus, so that this process does not wake up for them.
    std::vector<const char*> states = {"selected", "focused"};
    if (further.activity) states.push_back("active");
    for (const char* state : states) {
        bus().connect(service, QString(), object, QStringLiteral("StateChanged"),
                      {QString::fromLatin1(state)}, QString(), this, SLOT(onEvent(QDBusMessage)));
    }
    const QString window = QStringLiteral("org.a11y.atspi.Event.Window");
    for (const char* member : {"Activate", "Create", "Destroy"}) {
        bus().connect(service, QString(), window, QString::fromLatin1(member), this,
                      SLOT(onEvent(QDBusMessage)));
    }
    std::vector<const char*> events(std::begin(kEvents), std::end(kEvents));
    if (further.activity) events.push_back(kActivityEvent);
    if (further.names) {
        events.push_back(kNameEvent);
        bus().connect(service, QString(), object, QStringLiteral("PropertyChange"),
                      {QStringLiteral("accessible-name")}, QString(), this,
                      SLOT(onEvent(QDBusMessage)));
    }
    for (const char* event : events) {
        QDBusMessage registerEvent = QDBusMessage::createMethodCall(
            QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
            QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"));
        registerEvent.setArguments({QString::fromLatin1(event), QStringList(), service});
        bus().send(registerEvent);
    }
}

void AccessibilityBus::onEvent(const QDBusMessage& message)
{
    const QList<QVariant> arguments = message.arguments();
    const QString detail = arguments.value(0).toString();
    const bool isOn = arguments.value(1).toInt() != 0;
    Event event = Event::selection;
    if (message.interface().endsWith(QLatin1String(".Window")) ||
        detail == QLatin1String("active")) {
        event = Event::window;
    } else if (detail == QLatin1String("focused")) {
        event = Event::focus;
    } else if (message.member() == QLatin1String("PropertyChange")) {
        event = Event::name;
    }
    Q_EMIT eventReceived(message.service(), message.path(), event, isOn);
}

void AccessibilityBus::onOwnerChanged(const QString& name, const QString& earlier,
                                      const QString& later)
{
    if (!name.startsWith(u':')) return;
    if (later.isEmpty()) Q_EMIT programDisconnected(name);
    if (earlier.isEmpty()) Q_EMIT programConnected(name);
}

void AccessibilityBus::onDisconnected()
{
    if (name_.isEmpty()) return;
    close();
    Q_EMIT disconnected();
}

}  // namespace pinorama
