// The program on the session bus: one instance per session, which others ask to show a picture.
//
//   name                          org.pinorama.Pinorama
//   object                        /org/pinorama/Pinorama
//   org.freedesktop.Application   Activate, Open, ActivateAction (Desktop Entry Specification,
//                                 D-Bus Activation)
//   org.pinorama.Pinorama1        OpenText(s): a plain text that is taken as a path as it stands
//
// Every session program can call these, so whatever arrives is checked and bounded before it is
// handed on. Without a session bus the program runs on its own.

#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <string>
#include <vector>

namespace pinorama {

constexpr int kLongestServiceText = 65536;  // UTF-16 units

class ApplicationBus : public QObject {
    Q_OBJECT

public:
    explicit ApplicationBus(const QDBusConnection& connection, QObject* parent = nullptr);
    ~ApplicationBus() override;

    // What became of the wish to be the one instance of the session.
    enum class Claim { granted, takenByAnother, noBus };

    // Offers the object and takes the name. Connect the signals first: a program that was started
    // by a message gets that message right away.
    Claim claim();

    // The three below ask the instance that has the name, and wait 5 seconds at most. `token` lets
    // it come to the front and may be empty. False when it does not answer.
    bool activateOther(const QByteArray& token);
    bool openInOther(const std::vector<std::string>& paths, const QByteArray& token);
    bool sendTextToOther(const QString& text);
    bool runActionInOther(const QString& action, const QByteArray& token);

Q_SIGNALS:
    // The window is asked for.
    void activated(const QByteArray& token);

    // The last of the files that were asked for, an absolute path in raw bytes.
    void fileOpened(const QByteArray& path, const QByteArray& token);

    // A plain text was sent; it may be empty.
    void textSent(const QString& text);

    // An action of the desktop entry was chosen.
    void actionActivated(const QString& action, const QByteArray& token);

private:
    bool callOther(const QString& interface, const QString& method, const QVariantList& arguments);

    QDBusConnection connection_;
    bool isOffered_ = false;
};

// The token of a window system by which a program that was just used may put another one in front:
// what the starter of this process left in its environment. Empty when there is none.
QByteArray activationTokenOfStarter();

// Puts a token of another program to use for the next time that a window comes to the front. A
// token that is too long or holds unprintable bytes is dropped.
void useActivationToken(const QByteArray& token);

}  // namespace pinorama
