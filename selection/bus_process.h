// Which process has a name on a bus, as the bus itself knows it: a program can say anything about
// itself but this.
//
//     const QDBusMessage getProcess = processCall(service);         // in a query (dbus_query.h)
//     const auto process = processIn(co_await query.reply(getProcess));
//
//     askForProcess(bus, message().service(), this,                  // in the event loop
//                   [this](std::optional<pid_t> process) { ... });

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

#include <sys/types.h>

#include <functional>
#include <optional>

namespace pinorama {

// Asks the bus on which it is sent for the process that has the name, unique or well-known.
QDBusMessage processCall(const QString& name);

// The process in the reply, which is above 0; nothing for an error message, as the bus sends it if
// nobody has the name.
std::optional<pid_t> processIn(const QDBusMessage& reply);

// Sends the call and returns at once. Later the event loop calls `take` once, unless `receiver` was
// destroyed meanwhile. Nothing if the bus does not name a process, or is gone.
void askForProcess(const QDBusConnection& bus, const QString& name, QObject* receiver,
                   std::function<void(std::optional<pid_t>)> take);

}  // namespace pinorama
