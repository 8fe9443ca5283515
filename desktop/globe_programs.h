// Shows a view in the globe program of the desktop: Google Earth Pro, else Marble, else the program
// that opens KML files. Everything runs through the event loop; no call blocks.

#pragma once

#include "desktop/url_opener.h"
#include "globe/globe_view.h"

#include <QObject>
#include <QString>
#include <QTimer>

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
    // has neither tilt nor heading. Every other program receives a KML file with a placemark; it is
    // up to `opener` what happens if there is none.
    void show(const GlobeView& view);

    // Whether Google Earth Pro, Marble or a program that opens KML files is installed.
    bool areInstalled() const;

Q_SIGNALS:
    // A globe program does not start, or the file for it cannot be written.
    void failed();

    // True while a globe program is starting, for 10 seconds at most.
    void busyChanged(bool isBusy);

private:
    bool showInGoogleEarth(const GlobeView& view);
    bool showInMarble(const GlobeView& view);
    void moveMarble();
    void startMarble();
    void openDocument(const GlobeView& view);
    void setBusy(bool isBusy);

    UrlOpener& opener_;
    GlobeView view_ = {};  // the latest view, for Marble
    QString marble_;       // path of the executable; empty if it is not installed
    QDBusServiceWatcher* watcher_ = nullptr;
    QTimer startTimeout_;
    bool isBusy_ = false;
};

}  // namespace pinorama
