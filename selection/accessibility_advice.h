// Finds out whether a file manager runs whose selection cannot be followed, because accessibility
// was off when it was started. Those made with Qt (Dolphin, PCManFM-Qt) are silent then. Switching
// it on is a setting of the whole desktop, and so it is done only when it is asked for.

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "selection/accessibility_bus.h"
#include "selection/dbus_inquiry.h"
#include "selection/file_manager_kind.h"

namespace pinorama {

class AccessibilityAdvice : public QObject {
    Q_OBJECT

public:
    using OutlivesItsTasks = void;  // its inquiry is a member

    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;

    // `settling` is how long a program that has come to the session bus gets to come to the
    // accessibility bus as well.
    explicit AccessibilityAdvice(KindOfProcess kindOfProcess = fileManagerKindOfProcess,
                                 std::chrono::milliseconds settling = std::chrono::seconds(3),
                                 QObject* parent = nullptr);
    ~AccessibilityAdvice() override;

    // Whether anybody wants to follow file managers. As long as that is so this hears of programs
    // that come to the session bus; it asks nothing while nobody comes.
    void setWanted(bool isWanted);

    // Asks the desktop to switch accessibility on (org.a11y.Status, IsEnabled). switched() tells
    // what became of it.
    void switchOn();

Q_SIGNALS:
    // The selection in this file manager, called by its name, cannot be followed: it is silent, and
    // accessibility is off. Once at most.
    void needed(const QString& fileManager);

    // After switchOn(): true when accessibility is on now.
    void switched(bool isOn);

private Q_SLOTS:
    void onOwnerChanged(const QString& name, const QString& earlier, const QString& later);

private:
    struct Suspect {
        pid_t process = 0;
        QString name;
    };

    void stop();
    void onSettled();
    void startLooking();
    Task<Done> look(Inquiry& inquiry);

    KindOfProcess kindOfProcess_;
    bool isWanted_ = false;
    bool hasListedAll_ = false;      // who was on the bus before this listened
    QStringList newcomers_;          // came while the time runs, get another round
    QStringList settling_;           // were there when it began
    QStringList settled_;            // can be looked at
    std::vector<Suspect> suspects_;  // file managers that may be silent
    QString silent_;                 // the one that the advice was given for
    AccessibilityBus accessibility_;
    QTimer round_;
    std::unique_ptr<Inquiry> look_;
};

}  // namespace pinorama
