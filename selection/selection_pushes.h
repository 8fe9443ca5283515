// Receives the selection of a window from the extensions in file managers (packaging/extensions),
// which push it when it changes.
//
// Service org.pinorama.Pinorama.Selection, object /org/pinorama/Selection, interface
// org.pinorama.Pinorama.Selection:
//
//     Push(in as uris, in s windowTitle)
//
// An empty title takes back the last push: the selection is no longer known. Every program of the
// session can call this, so a push counts only if its sender's process, which the bus knows, runs
// the program of a file manager (push_sender.h); and its paths are only compared here, never
// opened.
//
//     SelectionPushes pushes(QDBusConnection::sessionBus(), [&] { return tracker.lastFrame(); });
//     pushes.setListening(true);
//     if (PushedSelection* pushed = pushes.lastOf(frame->process())) use(pushed->paths);

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "selection/dbus_query.h"
#include "selection/file_manager_kind.h"
#include "selection/push_sender.h"

namespace pinorama {

class FrameReader;

struct PushedSelection {
    QString windowTitle;

    // Absolute, in raw bytes, in the order of the view; empty if one of the selected items is not a
    // local file. At most 64 are kept: with more, the selection would still be "several".
    std::vector<std::string> paths;

    Clock::time_point at;
    std::weak_ptr<FrameReader> frame;  // the window that was active last when the push arrived
    bool isConfirmed = false;          // a later query found the same window active last
};

class SelectionPushes : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Pinorama.Selection")

public:
    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;
    using FrameInFront = std::function<std::shared_ptr<FrameReader>()>;

    explicit SelectionPushes(const QDBusConnection& bus, FrameInFront frameInFront,
                             KindOfProcess kindOfProcess = fileManagerKindOfSender);
    ~SelectionPushes() override;

    // Whether pushes are accepted. If not, the extensions do not find this program on the bus, and
    // earlier pushes are forgotten.
    void setListening(bool isListening);

    // The last push of a process, or null. Borrowed until the event loop runs: do not keep it
    // across a co_await.
    PushedSelection* lastOf(pid_t process);

    void forget(pid_t process) { pushed_.erase(process); }

public Q_SLOTS:
    Q_SCRIPTABLE Q_NOREPLY void Push(const QStringList& uris, const QString& windowTitle);

Q_SIGNALS:
    // A file manager has pushed a selection, or has taken back its last one.
    void pushed();

private:
    void keep(pid_t process, PushedSelection pushed);

    QDBusConnection bus_;
    FrameInFront frameInFront_;
    KindOfProcess kindOfProcess_;
    bool isListening_ = false;
    std::size_t pending_ = 0;  // pushes whose process the bus has not named yet
    std::map<pid_t, PushedSelection> pushed_;
};

}  // namespace pinorama
