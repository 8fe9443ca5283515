// Finds out whether a file manager runs whose selection cannot be followed because accessibility
// was off when it started. Those that use Qt (Dolphin, PCManFM-Qt) do not connect to the
// accessibility bus then. Switching accessibility on changes a setting of the whole desktop, so
// only the user does it.

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
#include "selection/dbus_query.h"
#include "selection/file_manager_kind.h"

namespace pinorama {

class AccessibilityAdvice : public QObject {
    Q_OBJECT

public:
    using OutlivesItsTasks = void;  // its query is a member of it

    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;

    // `settling` is how long a program may take from its connection to the session bus to the one
    // to the accessibility bus.
    explicit AccessibilityAdvice(KindOfProcess kindOfProcess = fileManagerKindOfProcess,
                                 std::chrono::milliseconds settling = std::chrono::seconds(3),
                                 QObject* parent = nullptr);
    ~AccessibilityAdvice() override;

    // Whether the user wants to follow file managers. While that is so, this object watches for
    // programs that connect to the session bus. It makes no calls while none does.
    void setWanted(bool isWanted);

    // Asks the desktop to switch accessibility on (org.a11y.Status, IsEnabled). Emits switched()
    // with the result.
    void switchOn();

Q_SIGNALS:
    // The selection of the file manager with this name cannot be followed: accessibility is off,
    // and it is not on the accessibility bus. Emitted once at most.
    void needed(const QString& fileManager);

    // After switchOn(): whether the desktop has switched accessibility on.
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
    void startCheck();
    Task<Done> check(DBusQuery& query);

    KindOfProcess kindOfProcess_;
    bool isWanted_ = false;
    bool hasListedAll_ = false;      // the programs that were on the bus before this listened
    QStringList newcomers_;          // connected during this round, and wait for the next one
    QStringList settling_;           // connected before this round
    QStringList settled_;            // have had a whole round, and can be checked
    std::vector<Suspect> suspects_;  // file managers that may be missing on the accessibility bus
    QString silent_;                 // the one that needed() was emitted for
    AccessibilityBus accessibility_;
    QTimer round_;  // lasts `settling`
    std::unique_ptr<DBusQuery> check_;
};

}  // namespace pinorama
