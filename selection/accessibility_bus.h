// The connection to the accessibility bus. It opens when it is first needed, opens again after the
// bus has been restarted, and closes with all its subscriptions when nobody needs it.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

#include "selection/dbus_query.h"

namespace pinorama {

class AccessibilityBus : public QObject {
    Q_OBJECT

public:
    explicit AccessibilityBus(QObject* parent = nullptr);
    ~AccessibilityBus() override;

    // What changed: the selection of a view or of an item, the focus, a window, a name.
    enum class Event { selection, focus, window, name };

    // Whether the connection is open. If not, starts to connect, at most once a second, and emits
    // connected() later.
    bool isReady();

    // The connection; only while isReady().
    QDBusConnection bus() const { return QDBusConnection(name_); }

    // Closes the connection. The bus then drops all subscriptions of this program.
    void close();

    // Events that only some programs need, because every event that somebody subscribes to costs
    // the program time, and this one too.
    struct Further {
        bool names = false;     // the names of objects
        bool activity = false;  // the state of windows, for programs that send no event of a window
    };

    // Subscribes to a program's events about selections, the focus and windows, and to further
    // ones.
    void listenTo(const QString& service, Further further);

Q_SIGNALS:
    void connected();
    void disconnected();

    // A program that is listened to sent an event about one of its objects. `isOn` says whether a
    // state was set or cleared.
    void eventReceived(const QString& service, const QString& path, Event event, bool isOn);

    // A program has connected to the bus or disconnected from it.
    void programConnected(const QString& service);
    void programDisconnected(const QString& service);

private Q_SLOTS:
    void onEvent(const QDBusMessage& message);
    void onOwnerChanged(const QString& name, const QString& earlier, const QString& later);
    void onDisconnected();

private:
    void requestAddress();
    void open(const QString& address);

    QString name_;  // of the connection in this process; empty while there is none
    bool isConnecting_ = false;
    Clock::time_point triedAt_;
};

}  // namespace pinorama
