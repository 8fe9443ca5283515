// Shows a view in the globe program of the desktop: Google Earth Pro, else Marble, else the program
// that opens KML files. Everything runs through the event loop; no call blocks.

#pragma once

#include "desktop/url_opener.h"
#include "globe/globe_view.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <cstdint>

class QDBusServiceWatcher;

namespace pinorama {

class GlobePrograms : public QObject {
    Q_OBJECT

public:
    // `opener`, borrowed, opens the KML file if neither program is installed.
    explicit GlobePrograms(UrlOpener& opener, QObject* parent = nullptr);
    ~GlobePrograms() override;

    // Shows `view`, whose numbers must be finite and in range. Google Earth Pro receives all five
    // of them: through its query file if its settings name one, else through a KML file that it
    // opens. A running Marble is moved over the session bus and raised, otherwise it is started; it
    // has neither tilt nor heading. Every other program receives a KML file with a placemark, a new
    // one each time; it is up to `opener` what happens if there is none.
    void show(const GlobeView& view);

    // Whether Google Earth Pro, Marble or a program that opens KML files is installed.
    bool areInstalled() const;

    // How long a Marble that was started has until it must be on the session bus; 10 seconds.
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }

    enum class Failure : std::uint8_t {
        notStarted,    // the globe program cannot be started
        notWritten,    // the file for it cannot be written
        notAppeared,   // Marble was started and has not appeared in that time
        notAnswering,  // Marble is on the session bus and does not reply
    };

Q_SIGNALS:
    // The globe does not show the view, and why.
    void failed(GlobePrograms::Failure failure);

    // A Marble of which it was said that it has not appeared has done so.
    void appeared();

    // True while Marble is starting, until its time to appear is over.
    void busyChanged(bool isBusy);

private:
    bool showInGoogleEarth(const GlobeView& view);
    bool showInMarble(const GlobeView& view);
    void moveMarble();
    void startMarble();
    void openDocument(const GlobeView& view);
    void takeAppearance();
    void giveUpWaiting();
    void setBusy(bool isBusy);

    UrlOpener& opener_;
    GlobeView view_ = {};  // the latest view, for Marble
    QString placeFile_;    // the last one for another program; empty if there is none
    QString marble_;       // path of the executable; empty if it is not installed
    QDBusServiceWatcher* watcher_ = nullptr;
    std::chrono::milliseconds patience_ = std::chrono::seconds(10);
    QTimer startTimeout_;
    qint64 process_ = 0;     // of the Marble that was started last
    bool isBusy_ = false;    // while there is patience with it
    bool isMissed_ = false;  // it has not appeared, and that was said
};

}  // namespace pinorama
