#include "selection/bus_process.h"

#include "selection/accessible.h"

#include <QDBusPendingCallWatcher>

#include <cstdint>
#include <utility>

namespace pinorama {

QDBusMessage processCall(const QString& name)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
    call.setArguments({name});
    return call;
}

std::optional<pid_t> processIn(const QDBusMessage& reply)
{
    const std::uint32_t number = numberIn(reply).value_or(0);
    const bool isProcess = number > 0 && std::in_range<pid_t>(number);
    return isProcess ? std::optional(static_cast<pid_t>(number)) : std::nullopt;
}

void askForProcess(const QDBusConnection& bus, const QString& name, QObject* receiver,
                   std::function<void(std::optional<pid_t>)> take)
{
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(processCall(name)), receiver);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver,
                     [watcher, take = std::move(take)] {
                         watcher->deleteLater();
                         take(processIn(watcher->reply()));
                     });
}

}  // namespace pinorama
