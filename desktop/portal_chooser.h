// A file that the user chooses in a dialog of the desktop's portal: another process shows it, so
// that no disk keeps this one and no preview is decoded here.
//
//     connect(&chooser, &PortalChooser::chosen, this, &Intake::open);
//     connect(&chooser, &PortalChooser::unavailable, this, &Intake::askWithTheToolkit);
//     chooser.ask({.title = tr("Open Picture"), .parent = portalParent(window)});
//
// Source: xdg-desktop-portal, org.freedesktop.portal.FileChooser version 1 and
// org.freedesktop.portal.Request. Paths are in the bytes of the system.

#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <string>

namespace pinorama {

struct PortalQuestion {
    QString title{};
    QString parent{};          // the window that it is about, as the portal names it; may be empty
    std::string folder{};      // where the dialog begins; empty for a choice of its own
    bool isForSaving = false;  // a new file, not one that is there; then also:
    QString acceptLabel{};     // of the button
    QString name{};            // that is proposed
    QString filterName{};      // the kind of files, and
    QString filterPattern{};   // which names they have
};

class PortalChooser : public QObject {
    Q_OBJECT

public:
    // How long the portal may take to say that it has begun. It may have to be started.
    static constexpr std::chrono::seconds kPatience{3};

    explicit PortalChooser(QDBusConnection bus = QDBusConnection::sessionBus(),
                           QObject* parent = nullptr);
    ~PortalChooser() override;

    // Asks the user, and takes back an earlier question that has no answer yet. One of the signals
    // follows, at once without a bus, or none if the user cancels.
    //
    //   patience  for the portal to begin.
    void ask(const PortalQuestion& question, std::chrono::milliseconds patience = kPatience);

Q_SIGNALS:
    // The user has chosen a file, and for saving has agreed to replace what has that name.
    void chosen(const std::string& path);
    // There is no such portal, or it cannot show the dialog.
    void unavailable();

private Q_SLOTS:
    void takeResponse(unsigned response, const QVariantMap& results);

private:
    void takeBack();
    void close(const QString& request);
    void listenTo(const QString& request);
    void stopListening();
    void takeBegin(QDBusPendingCallWatcher* call);
    void giveUp();

    QDBusConnection bus_;
    QDBusServiceWatcher portals_;
    QTimer patience_;
    QDBusPendingCallWatcher* call_ = nullptr;  // until the portal has begun
    QString request_;                          // the object of the question; empty for none
    unsigned questions_ = 0;
};

// The window of that number as the portal names it on this display; empty where it has no name that
// the toolkit knows.
QString portalParent(quintptr window);

}  // namespace pinorama
