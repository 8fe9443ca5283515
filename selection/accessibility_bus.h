// The connection to the accessibility bus. It is made when it is first needed, made again after the
// bus has gone, and given up with everything that hangs on it when nobody needs it.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

#include "selection/dbus_inquiry.h"

namespace pinorama {

class AccessibilityBus : public QObject {
    Q_OBJECT

public:
    explicit AccessibilityBus(QObject* parent = nullptr);
    ~AccessibilityBus() override;

    // What happened to: the selection of a view or an item, the focus, a whole window, a name.
    enum class Event { selection, focus, window, name };

    // Whether questions can be asked. When not, starts to connect, at most once a second, and says
    // so with connected() later.
    bool isReady();

    // The connection; only while isReady().
    QDBusConnection bus() const { return QDBusConnection(name_); }

    // Drops the connection. The bus forgets with it whatever this program wanted to hear.
    void close();

    // Asks a program to say when something happens to its selections, its focus and its windows,
    // and, `alsoToNames`, when one of its objects gets another name.
    void listenTo(const QString& service, bool alsoToNames);

Q_SIGNALS:
    void connected();
    void lost();

    // A program that is listened to says that something has happened to an object of its; `isOn`
    // tells whether a state was switched on.
    void heard(const QString& service, const QString& path, Event event, bool isOn);

    // A program has come to the bus or left it.
    void programCame(const QString& service);
    void programLeft(const QString& service);

private Q_SLOTS:
    void onEvent(const QDBusMessage& message);
    void onOwnerChanged(const QString& name, const QString& earlier, const QString& later);
    void onDisconnected();

private:
    void askForAddress();
    void open(const QString& address);

    QString name_;  // of the connection in this process; empty while there is none
    bool isAsking_ = false;
    Clock::time_point askedAt_;
};

}  // namespace pinorama
