// The search for pictures that were taken near a place: pinorama-search as a child process, which
// reads pictures in sandboxed processes of its own and remembers what it finds out. Everything
// comes through the event loop; nothing here waits.
//
//     connect(&search, &NearbySearch::found, &model, &NearbyModel::add);
//     search.begin({48.8584, 2.2945}, folders);

#pragma once

#include "app/nearby/nearby_list.h"

#include <QByteArray>
#include <QObject>

#include <string>
#include <vector>

class QProcess;

namespace pinorama {

struct NearbyPlace {
    double latitude = 0.0;   // degrees, negative in the south
    double longitude = 0.0;  // degrees, negative in the west
};

// The path of the program pinorama-search: what the environment variable PINORAMA_SEARCH says, else
// the one beside the running program, else the one under the install prefix.
std::string nearbySearchProgram();

class NearbySearch : public QObject {
    Q_OBJECT

public:
    static constexpr int kRadius = 2000;  // metres

    // How a search ended by itself.
    enum class Outcome {
        complete,
        cutShort,  // it died, or printed something else; what it has found until then is right
        missing,   // the program cannot be started
    };

    explicit NearbySearch(QObject* parent = nullptr);
    ~NearbySearch() override;

    // Searches the folders, with everything in them, for pictures within kRadius of a place. An
    // earlier search ends. `found` and `finished` come from the event loop. While a disk keeps too
    // many earlier ones (KeptSearches) the search is running and waits for the end of one of them.
    //
    //   folders  absolute, in the bytes of the system; with none the search is complete at once.
    void begin(NearbyPlace place, const std::vector<std::string>& folders);

    // Ends the search, if there is one: nothing more comes of it. What it has read is remembered.
    void end();

    bool isRunning() const { return process_ != nullptr; }

    // For tests: the process; 0 for none, and while the search waits.
    qint64 processID() const;

Q_SIGNALS:
    // Pictures that were found, in no order.
    void found(const std::vector<NearbyPicture>& pictures);
    void finished(NearbySearch::Outcome outcome);

private:
    void startIfThereIsRoom();
    void takeOutput(QProcess* process);
    void leave();
    void finish(Outcome outcome);

    QProcess* process_ = nullptr;
    QByteArray input_;  // of a process that has not been started
    NearbyListReader reader_;
};

}  // namespace pinorama
