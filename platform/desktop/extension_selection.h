// The selection as an extension inside the file manager tells it. The extensions of
// packaging/extensions push what is selected over the session bus whenever it changes; the last
// push answers for the window that it came from, as long as that window is the one that was active
// last.
//
// Service org.pinorama.Selection1, object /org/pinorama/Selection, interface
// org.pinorama.Selection1:
//
//     Push(in as uris, in s windowTitle)
//
// The process is the sender's, as the bus knows it. At most 64 addresses of a push are kept.

#pragma once

#include <QDBusContext>
#include <QObject>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/dbus_inquiry.h"
#include "platform/desktop/frame_tracker.h"
#include "platform/desktop/selection_source.h"

namespace platform {

class ExtensionSelection : public QObject, public SelectionSource, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Selection1")

public:
    // `tracker` must outlive this.
    explicit ExtensionSelection(FrameTracker& tracker);
    ~ExtensionSelection() override;

    std::vector<std::string> selectedPaths() override;

    // The same as a part of a longer inquiry, for a window that is known to be the one that counts.
    // Nothing when no extension speaks for this window.
    Task<std::optional<std::vector<std::string>>> pathsIn(Inquiry& inquiry,
                                                          std::shared_ptr<FrameReader> frame);

    // Whether pushes are taken; when not, the extensions do not find this program on the bus.
    void setListening(bool isListening);

public Q_SLOTS:
    Q_SCRIPTABLE Q_NOREPLY void Push(const QStringList& uris, const QString& windowTitle);

private:
    struct PushedSelection {
        QString windowTitle;
        std::vector<std::string> paths;
        Clock::time_point at;
        std::weak_ptr<FrameReader> frame;  // known from the next question on
    };

    void keep(pid_t process, PushedSelection pushed);
    void drop(pid_t process);
    Task<Done> answer(Inquiry& inquiry, std::vector<std::string>* outPaths);

    FrameTracker& tracker_;
    bool isListening_ = false;
    std::map<pid_t, PushedSelection> pushed_;  // the last of each process
};

}  // namespace platform
