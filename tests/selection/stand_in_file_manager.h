// A file manager as the accessibility bus shows it: a window with a location entry, a view of items
// and a status bar. It answers from a thread of its own, as another program does, counts what it is
// asked, and says nothing about a change unless it is told to.

#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QThread>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "selection/accessible.h"

namespace test {

struct StandInObject {
    pinorama::Role role = pinorama::Role::panel;
    pinorama::States states = 0;
    QString name = {};  // of a text what stands in it
    QStringList interfaces = {};
    int parent = 0;
    std::vector<int> children = {};
    std::vector<int> selected = {};  // places among the children, in the order of the view
};

class StandInFileManager {
public:
    // Numbers of the objects; the items follow each other from kFirstItem on.
    static constexpr int kFrame = 1;
    static constexpr int kLocation = 3;
    static constexpr int kView = 4;
    static constexpr int kStatusBar = 5;
    static constexpr int kFirstItem = 100;

    // How the view tells what is selected in it.
    enum class Kind { selection, states, statusBar };

    // Comes to the session bus, which serves as the accessibility bus as well, with a window that
    // shows `folder` and has items of these names. Nothing is selected.
    StandInFileManager(Kind kind, const std::string& folder, const std::vector<QString>& names);
    ~StandInFileManager();
    StandInFileManager(const StandInFileManager&) = delete;
    StandInFileManager& operator=(const StandInFileManager&) = delete;

    // Its name on the bus.
    QString service() const;

    // Selects the items at these places and nothing else, without a word.
    void select(const std::vector<int>& places);

    // Changes an object without a word.
    void change(int number, const std::function<void(StandInObject&)>& what);

    // Says that something has happened: `member` of the interface org.a11y.atspi.Event.Object with
    // the detail `detail` about an object.
    void tell(int number, const char* member, const char* detail, int value);

    // Returns when the bus has passed on all that was told, to those who listen now and to nobody
    // who only begins to.
    void waitUntilTold() const;

    // Whether questions are answered at all. The ones that were not are answered when it is
    // switched on again.
    void setAnswering(bool isAnswering);

    // The same as setAnswering(false) from the moment on in which it is asked `question` (as
    // takeQuestions() calls it); whether that was so.
    void pauseWhenAsked(const std::string& question);
    bool hasPaused();

    // Leaves the bus, now or when it is asked `question`, which it does not answer. Those that came
    // before have their answers.
    void leave();
    void leaveWhenAsked(const std::string& question);

    // Has another one listed as well by the accessibility bus, which the first one stands for.
    void list(const StandInFileManager& other);

    // The questions since the last call, each as "number of the object, blank, what was asked".
    std::vector<std::string> takeQuestions();

private:
    class Answerer;

    void add(int number, StandInObject object);
    QDBusMessage answerTo(const QDBusMessage& question);
    void take(const QDBusMessage& question);
    void disconnect();

    std::mutex mutex_;  // of everything below
    std::map<int, StandInObject> objects_;
    std::vector<std::string> questions_;
    std::vector<QDBusMessage> unanswered_;
    bool isAnswering_ = true;
    std::string pausesAt_;  // a question; empty for none
    std::string leavesAt_;
    bool isThere_ = true;
    std::vector<QString> others_;  // programs that are listed as well

    QDBusConnection bus_;
    QDBusConnection registry_;
    const QString service_;
    std::unique_ptr<Answerer> answerer_;
    std::unique_ptr<Answerer> registrar_;
    QThread thread_;
};

}  // namespace test
