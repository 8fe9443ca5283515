// Searches that nobody waits for any more and whose process is still there. Usually it ends in a
// moment. But the processes that read pictures for it cannot end while a disk does not respond, and
// it ends after the last of them. How many of those there may be is limited, so that one search
// after the other does not fill the machine with processes.
//
//     KeptSearches::all().prepare(process);  // before it is started, unless isFull()
//     KeptSearches::all().end(process, 5s);

#pragma once

#include <QObject>

#include <chrono>
#include <cstddef>
#include <vector>

class QProcess;

namespace pinorama {

class KeptSearches : public QObject {
    Q_OBJECT

public:
    static constexpr std::size_t kMax = 4;

    // Those of this program.
    static KeptSearches& all();

    // Prepares a process that will become pinorama-search: it gives way to the window, ends with
    // the window, and adopts what its own processes leave behind, so that it ends after them
    // (endAfterAllProcesses). It inherits a pipe, and is done when it has closed that.
    void prepare(QProcess* process);

    // Takes over a process that was prepared and tells it to end, if it was started. It is killed
    // after the patience unless it is done: then it only waits.
    void end(QProcess* process, std::chrono::milliseconds patience);

    // Takes over a process that is done.
    void keep(QProcess* process);

    // Whether this one was told to end and is not done yet.
    bool isEnding(const QProcess* process) const;

    // Whether no other search may begin.
    bool isFull() const { return searches_.size() >= kMax; }

Q_SIGNALS:
    // One of them is gone, or done.
    void changed();

    // This process, which may be anybody's, is done. Most end with that.
    void done(QProcess* process);

private:
    struct Search {
        QProcess* process;
        bool isEnding;
    };

    KeptSearches() = default;
    void add(QProcess* process, bool isEnding);
    void setDone(QProcess* process);
    void remove(QProcess* process);

    std::vector<Search> searches_;
};

}  // namespace pinorama
