// Sends a view to the globe program of the desktop: Google Earth Pro, else Marble, else whatever
// opens KML files. Everything happens through the event loop; no call waits.

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
    // `opener`, borrowed, opens the KML file when neither program is there.
    explicit GlobePrograms(UrlOpener& opener, QObject* parent = nullptr);
    ~GlobePrograms() override;

    // Shows `view`, whose numbers are finite and on the globe. Google Earth Pro gets all five
    // numbers, through its query file when its settings name one, else through a KML file that it
    // opens. A running Marble is moved over the session bus and brought to the front, or one is
    // started; it has no tilt and no direction. Failures are silent: the user asks again.
    void show(const GlobeView& view);

Q_SIGNALS:
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
    GlobeView view_ = {};  // the view that Marble is to show
    QString marble_;       // path of the executable, empty when there is none
    QDBusServiceWatcher* watcher_ = nullptr;
    QTimer startLimit_;
    bool isBusy_ = false;
};

}  // namespace pinorama
