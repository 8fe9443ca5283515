// Has the user choose the program that opens a file, in the dialog that the desktop's portal shows
// for that.
//
//     connect(&portal, &PortalOpener::unavailable, this, &Window::openInUsualProgram);
//     portal.openWith(file.descriptor(), portalParent(window));
//
// Source: xdg-desktop-portal, org.freedesktop.portal.OpenURI version 1.

#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QString>

namespace pinorama {

class PortalOpener : public QObject {
    Q_OBJECT

public:
    explicit PortalOpener(QDBusConnection bus = QDBusConnection::sessionBus(),
                          QObject* parent = nullptr);

    // Asks the user which program opens an open file, and has it opened there. Returns at once.
    //
    //   descriptor  one that only refers to the file (O_PATH) will do. It stays the caller's, and
    //               may be closed afterwards; copies of it are closed later, on this thread.
    //   parent      the window that the dialog belongs to (portalParent); may be empty.
    void openWith(int descriptor, const QString& parent);

Q_SIGNALS:
    // There is no such portal, or it cannot ask; at once without a bus.
    void unavailable();

private:
    void takeReply(QDBusPendingCallWatcher* call);

    QDBusConnection bus_;
};

}  // namespace pinorama
