// A file manager on the accessibility bus: a window with a location entry, a view of items and a
// status bar. It replies from a thread of its own, as another program would, records the calls, and
// emits no event about a change unless the test says so.

#pragma once

#include <QDBusConnection>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThread>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "selection/accessible.h"

namespace test {

struct FakeObject {
    pinorama::Role role = pinorama::Role::panel;
    pinorama::States states = 0;
    QString name = {};  // of a text entry, its content; also the description
    QStringList interfaces = {};
    int parent = 0;
    std::vector<int> children = {};
    std::vector<int> selected = {};  // indexes of children, in the order of the view
    std::vector<int> cells = {};     // of a row of a list, without the first, which is the row
    bool hidesRows = false;          // reports no selected rows, as the views of Qt 6
    bool hidesLater = false;         // of several selected items names only the first
    pinorama::Size size = {800, 600};
    int treeParent = -1;  // the row above it in a tree, or the tree; -1 for none
};

class FakeFileManager {
public:
    // Numbers of the objects; the items follow each other from kFirstItem on.
    static constexpr int kFrame = 1;
    static constexpr int kLocation = 3;
    static constexpr int kView = 4;
    static constexpr int kStatusBar = 5;
    static constexpr int kFirstItem = 100;

    // How the view reports what is selected in it.
    enum class Kind { selection, table, states, statusBar };

    // Connects to the session bus, which serves as the accessibility bus as well, with a window
    // that shows `folder` and items of these names. Nothing is selected.
    FakeFileManager(Kind kind, const std::string& folder, const std::vector<QString>& names);
    ~FakeFileManager();
    FakeFileManager(const FakeFileManager&) = delete;
    FakeFileManager& operator=(const FakeFileManager&) = delete;

    // Its name on the bus, and one of its objects.
    QString service() const;
    pinorama::Accessible object(int number) const;

    // From here on the paths of its objects are like those of GTK 4.
    void useObjectsOfGtk4();

    // Selects the items with these indexes and no others, without an event.
    void select(const std::vector<int>& places);

    // Changes an object without an event.
    void change(int number, const std::function<void(FakeObject&)>& what);

    // Publishes the addresses of all tabs of each window, as org.freedesktop.FileManager1.
    void publishWindows(const std::vector<QStringList>& windows);

    // Replies as the first window of Dolphin in this process, with the title "Pictures", whether
    // exactly one item is selected: whatever the view says.
    void claimOneSelected();

    // Adds a cell with this text to the row of an item.
    void addCell(int place, const QString& text);

    // Adds a status bar with this text to the window, which has to be found again.
    void addStatusBar(const QString& text);

    // Gives the name of an item to a label inside it.
    void moveNameInside(int place);

    // Emits the event `member` of the interface org.a11y.atspi.Event.Object about an object.
    void emitEvent(int number, const char* member, const char* detail, int value);

    // Returns when the bus has delivered all events that were emitted: nobody who begins to listen
    // after that receives them.
    void waitUntilSent() const;

    // Whether it replies to calls at all. When that is switched on again, it replies to those that
    // wait.
    void setReplying(bool isReplying);

    // The same as setReplying(false) as soon as it receives `call` (written as in takeCalls()), and
    // whether that has happened.
    void pauseOnCall(const std::string& call);
    bool hasPaused();

    // Disconnects from the bus, now or when it receives `call`, to which it does not reply any
    // more. It has replied to earlier calls.
    void leave();
    void leaveOnCall(const std::string& call);

    // Lists another program too, as the registry of the accessibility bus, whose part this one
    // plays.
    void list(const FakeFileManager& other);

    // The calls that arrived since the last time, each as the number of the object, a blank, and
    // the name of the method or property.
    std::vector<std::string> takeCalls();

private:
    class Responder;

    QString pathOf(int number) const;
    void add(int number, FakeObject object);
    QDBusMessage replyTo(const QDBusMessage& call);
    void take(const QDBusMessage& call);
    void disconnect();

    std::mutex mutex_;  // of everything below
    std::map<int, FakeObject> objects_;
    std::vector<std::string> calls_;
    std::vector<QDBusMessage> pending_;
    bool isReplying_ = true;
    std::string pausesOn_;  // a call; empty for none
    std::string leavesOn_;
    bool isConnected_ = true;
    QMap<QString, QStringList> windows_;  // that are published
    std::vector<QString> others_;         // programs that it lists too

    QDBusConnection bus_;
    QDBusConnection registry_;
    const QString service_;
    QString prefix_;  // of the paths of its objects
    std::unique_ptr<Responder> responder_;
    std::unique_ptr<Responder> registrar_;
    QThread thread_;
};

}  // namespace test
