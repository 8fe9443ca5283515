// Where pictures were taken, in words. pinorama-search reads them as a child process, in sandboxed
// processes of its own, and prints positions; the words come from the file of places. Everything
// comes through the event loop; nothing here waits, and no picture is opened here.
//
//     connect(&lookUp, &PlaceLookUp::finished, this, &Window::show);
//     if (lookUp.isIdle()) lookUp.begin({"/home/anna/Pictures/a.jpg"});

#pragma once

#include "app/nearby/list_fields.h"
#include "places/place_finder.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

class QProcess;

namespace pinorama {

class PlaceLookUp : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kPatience{5000};

    //   patience  for one call of begin; then the process is ended.
    explicit PlaceLookUp(std::chrono::milliseconds patience = kPatience);
    ~PlaceLookUp() override;

    // Whether begin may be called: there is never more than one process at work, and only a few
    // that a disk keeps (KeptSearches).
    bool isIdle() const;

    // Looks up the places of pictures, absolute paths in the bytes of the system. `finished` comes
    // once, when the patience is over at the latest.
    void begin(std::vector<std::string> paths);

    // For tests: the process; 0 for none.
    qint64 processID() const;

Q_SIGNALS:
    // The place of each picture, in the order of begin: words in the user's language, or the
    // coordinate where the file of places has none. Empty for a picture without a position, and
    // for what could not be read in time.
    void finished(const QStringList& places);

    // begin may be called again; comes after `finished`.
    void idle();

private:
    void takeOutput();
    void leave();
    void beIdle();
    bool takePicture(const std::vector<std::string>& fields);
    void finish();
    void end();

    const std::chrono::milliseconds patience_;
    QProcess* process_ = nullptr;
    // The one before, which KeptSearches has, until it ends or is done.
    const QProcess* ending_ = nullptr;
    QTimer timer_;
    PlaceFinder finder_{placesFile()};
    ListFields output_;
    std::vector<std::string> paths_;
    std::unordered_map<std::string, QString> places_;  // by path
    std::size_t pictures_ = 0;                         // in the output so far
    bool isWaiting_ = false;                           // `finished` is still to come
};

}  // namespace pinorama
