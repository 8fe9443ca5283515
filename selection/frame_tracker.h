// The windows of the file managers that run, and which of them was active last.

#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

#include "selection/accessibility_bus.h"
#include "selection/dbus_inquiry.h"
#include "selection/frame_list.h"
#include "selection/frame_reader.h"

namespace pinorama {

class FrameTracker : public QObject {
    Q_OBJECT

public:
    using OutlivesItsTasks = void;  // its inquiries are members; those of others end before it

    // Tells the kind of the process behind a program on the bus, or null for one that is no file
    // manager. Tests put their own in.
    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;

    explicit FrameTracker(KindOfProcess kindOfProcess = fileManagerKindOfProcess,
                          QObject* parent = nullptr);
    ~FrameTracker() override;

    // Whether file managers can be asked now. Every call keeps the tracker awake; two seconds after
    // the last one it drops its connection and everything that it knows.
    bool isReady();

    QDBusConnection bus() const { return bus_.bus(); }

    // Asks every window whether it is active, and gives the one that was active last and shows a
    // folder; null when there is none or when it is not known yet what is in the one in front.
    Task<SharedFrame> askForFrame(Inquiry& inquiry);

    // Has the next askForFrame() check along with its own questions whether what was last read of a
    // window still holds; that takes no time of its own.
    void checkAlong(const SharedFrame& frame) { checkedNext_ = frame; }

    // Whether the last askForFrame() has done so.
    bool hasChecked(const SharedFrame& frame) const { return checked_ == frame; }

    // The window of the last askForFrame(), without asking.
    SharedFrame lastFrame() const { return lastFrame_; }

    // Reads a window in the event loop, for as long as it takes.
    void readInEventLoop(const SharedFrame& frame);

    // Drops such a reading where it is, so that somebody else can read the window.
    void dropReading(const SharedFrame& frame);

    // Leaves a program alone that did not answer in time, until it answers a question of no weight
    // that is put to it once in three seconds.
    void pause(const QString& service);

Q_SIGNALS:
    // The selection of a window of the process may have changed.
    void selectionMayHaveChanged(pid_t process);

private:
    Task<Done> lookAround(Inquiry& inquiry);
    Task<Done> lookAt(Inquiry& inquiry, QString service);
    void lookAroundSoon(int milliseconds);
    void startLookingAround();
    void startWalking(const SharedFrame& frame);
    void forgetEverything();
    void ping(const QString& service);
    void onHeard(const QString& service, const QString& path, AccessibilityBus::Event event,
                 bool isOn);
    void fallAsleep();

    AccessibilityBus bus_;
    KindOfProcess kindOfProcess_;
    FrameList list_;
    SharedFrame lastFrame_;
    SharedFrame checkedNext_;
    SharedFrame checked_;
    Clock::time_point lookedAt_;
    QTimer sleep_;
    QTimer soon_;
    std::unique_ptr<Inquiry> look_;
    std::unique_ptr<Inquiry> walk_;  // of the one window that is found or read in the event loop
    SharedFrame readInLoop_;         // that window when it is read
};

}  // namespace pinorama
