// What the extensions in file managers push: the selection of a window, at the moment in which it
// changes. They are those of packaging/extensions.
//
// Service org.pinorama.Selection1, object /org/pinorama/Selection, interface
// org.pinorama.Selection1:
//
//     Push(in as uris, in s windowTitle)
//
// An empty title says that it is not known any more what is selected. Every program of the session
// can call this: a push counts when the process that sent it, as the bus knows it, is a file
// manager, and whatever it holds is looked at as bytes only, never opened.

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

#include "selection/dbus_inquiry.h"
#include "selection/file_manager_kind.h"

namespace pinorama {

class FrameReader;

struct PushedSelection {
    QString windowTitle;

    // Absolute, in raw bytes, in the order of the view; none when one of the selected items is no
    // local file. At most 64 are kept: any further ones would still be several.
    std::vector<std::string> paths;

    Clock::time_point at;
    std::weak_ptr<FrameReader> frame;  // the window that counted when it came
    bool isConfirmed = false;          // that window was asked for since, and counted still
};

class SelectionPushes : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Selection1")

public:
    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;
    using FrameInFront = std::function<std::shared_ptr<FrameReader>()>;

    explicit SelectionPushes(const QDBusConnection& bus, FrameInFront frameInFront,
                             KindOfProcess kindOfProcess = fileManagerKindOfProcess);
    ~SelectionPushes() override;

    // Whether pushes are taken. When not, the extensions do not find this program on the bus, and
    // what they have pushed is forgotten.
    void setListening(bool isListening);

    // The last push of a process, or null; borrowed until the event loop runs.
    PushedSelection* lastOf(pid_t process);

    void forget(pid_t process) { pushed_.erase(process); }

public Q_SLOTS:
    Q_SCRIPTABLE Q_NOREPLY void Push(const QStringList& uris, const QString& windowTitle);

private:
    void keep(pid_t process, PushedSelection pushed);

    QDBusConnection bus_;
    FrameInFront frameInFront_;
    KindOfProcess kindOfProcess_;
    bool isListening_ = false;
    std::size_t unanswered_ = 0;  // pushes whose process is being asked for
    std::map<pid_t, PushedSelection> pushed_;
};

}  // namespace pinorama
