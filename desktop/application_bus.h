// The program on the session bus: one instance per session, which other programs ask to show a
// picture.
//
//   name                          org.pinorama.Pinorama
//   object                        /org/pinorama/Pinorama
//   org.freedesktop.Application   Activate, Open, ActivateAction (Desktop Entry Specification,
//                                 D-Bus Activation)
//   org.pinorama.Pinorama1        OpenText(s): a plain text, used as a path without any change
//   org.pinorama.Pinorama         Show(s): an absolute path or file URI, for programs that report
//                                 what is selected in them; the window stays where it is
//
// Every program of the session can call these, so all arguments are checked and bounded before they
// are passed on. Without a session bus the program runs on its own. At start-up:
//
//     ApplicationBus bus(QDBusConnection::sessionBus());
//     if (bus.claim() == ApplicationBus::Claim::takenByAnother && bus.openInOther(paths, token))
//         return 0;  // the other instance shows them
//     connect(&bus, &ApplicationBus::fileOpened, ...);

#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <string>
#include <vector>

namespace pinorama {

constexpr int kMaxServiceTextLength = 65536;  // UTF-16 units

class ApplicationBus : public QObject {
    Q_OBJECT

public:
    explicit ApplicationBus(const QDBusConnection& connection, QObject* parent = nullptr);
    ~ApplicationBus() override;

    // Whether this process has become the one instance of the session.
    enum class Claim { granted, takenByAnother, noBus };

    // Registers the object and requests the name. Connect the signals before the event loop runs:
    // if the bus started this process to deliver a message, that message is the first event.
    Claim claim();

    // The calls below go to the instance that owns the name, and block for 5 seconds at most.
    // `token` allows that instance to raise its window, and may be empty. False if it does not
    // reply.
    bool activateOther(const QByteArray& token);
    bool openInOther(const std::vector<std::string>& paths, const QByteArray& token);
    bool sendTextToOther(const QString& text);
    bool runActionInOther(const QString& action, const QByteArray& token);

    // The same for a file that the other instance shows without coming to the front. `nobody` if
    // there is no such instance, or no session bus.
    enum class Delivery { delivered, nobody, noReply };
    Delivery showInOther(const std::string& path);

Q_SIGNALS:
    // Another program asks for the window.
    void activated(const QByteArray& token);

    // Another program asks for files. `path` is the last of them, absolute, in raw bytes.
    void fileOpened(const QByteArray& path, const QByteArray& token);

    // Another program reports that a file is selected in it. `path` is absolute, in raw bytes.
    void fileReported(const QByteArray& path);

    // Another program sent a plain text, which may be empty.
    void textSent(const QString& text);

    // The user chose an action of the desktop entry.
    void actionActivated(const QString& action, const QByteArray& token);

private:
    QDBusMessage callOther(const QString& interface, const QString& method,
                           const QVariantList& arguments);

    QDBusConnection connection_;
    bool hasName_ = false;
};

// The activation token in this process's environment. With it the window system lets a program that
// the user has just used hand the focus to the one that it starts. Empty if there is none.
QByteArray activationTokenOfStarter();

// Uses another program's token the next time that a window is raised. Drops a token that is too
// long or contains unprintable bytes.
void useActivationToken(const QByteArray& token);

}  // namespace pinorama
