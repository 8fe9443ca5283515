// The windows of all running file managers, and which of them was active last.
//
//     FrameTracker tracker;
//     if (!tracker.isReady()) return {};  // connects in the event loop; ready a little later
//     DBusQuery query(tracker.bus(), 300ms);
//     const SharedFrame frame = co_await tracker.findLatestFrame(query);
//     if (frame) co_await frame->read(query);
//
// A blocking query and one in the event loop may run over the same windows at once: the first
// starts while the second waits. Their coroutines share only this object, whose lists hand out
// values and shared pointers; see task.h.

#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

#include "selection/accessibility_bus.h"
#include "selection/dbus_query.h"
#include "selection/frame_list.h"
#include "selection/frame_reader.h"

namespace pinorama {

class FrameTracker : public QObject {
    Q_OBJECT

public:
    using OutlivesItsTasks = void;  // its own queries are members; those of others end first

    // Returns the kind of a process, or null if it is no file manager. Tests pass their own.
    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;

    explicit FrameTracker(KindOfProcess kindOfProcess = fileManagerKindOfProcess,
                          QObject* parent = nullptr);
    ~FrameTracker() override;

    // Whether file managers can be called now. Every call keeps the tracker awake; two seconds
    // after the last one it closes its connection and forgets everything.
    bool isReady();

    QDBusConnection bus() const { return bus_.bus(); }

    // Asks every window whether it is active, and returns the one that was active last and shows a
    // folder. Null if there is none, or as long as that window's view has not been found.
    Task<SharedFrame> findLatestFrame(DBusQuery& query);

    // Makes the next findLatestFrame() revalidate this window too, in the same round trip, or ask
    // ahead what reading it needs.
    void revalidateAlong(const SharedFrame& frame) { revalidateNext_ = frame; }

    // Whether the last findLatestFrame() has revalidated this window.
    bool hasRevalidated(const SharedFrame& frame) const { return revalidated_ == frame; }

    // The window that the last findLatestFrame() found, without any call.
    SharedFrame lastFrame() const { return lastFrame_; }

    // Reads a window in the event loop, however long that takes.
    void readInEventLoop(const SharedFrame& frame);

    // Cancels such a reading, so that the caller can read the window itself.
    void cancelReading(const SharedFrame& frame);

    // Makes no further calls to a program that did not reply in time, except for a cheap one with a
    // timeout of three seconds, repeated until the program replies.
    void pause(const QString& service);

Q_SIGNALS:
    // The selection of a window of the process may have changed.
    void selectionMayHaveChanged(pid_t process);

    // findLatestFrame() or the window that it finds may have something new: a file manager sent an
    // event or replies again, a window was found, or a reading in the event loop found another
    // selection.
    void changeReported();

private:
    class Asking;

    Task<Done> scanPrograms(DBusQuery& query);
    Task<Done> scanWindows(DBusQuery& query, QString service);
    void scanSoon(std::chrono::milliseconds delay);
    void startScan();
    void startWalking(const SharedFrame& frame);
    void forgetEverything();
    void ping(const QString& service);
    void onEventReceived(const QString& service, const QString& path, AccessibilityBus::Event event,
                         bool isOn);
    void fallAsleep();

    AccessibilityBus bus_;
    KindOfProcess kindOfProcess_;
    FrameList list_;
    SharedFrame lastFrame_;
    SharedFrame revalidateNext_;
    SharedFrame revalidated_;
    Asking* asking_ = nullptr;  // of the findLatestFrame() that began last and waits; or null
    Clock::time_point scannedAt_;
    QTimer sleep_;
    QTimer soon_;
    std::unique_ptr<DBusQuery> scan_;
    std::unique_ptr<DBusQuery> walk_;  // of the one window that is walked or read in the event loop
    SharedFrame readInLoop_;           // that window, if it is read
};

}  // namespace pinorama
