// The small window that shows which pictures were taken near the one in the main window: as
// thumbnails with distance and direction, nearest first, from the first one that the search finds.
// It opens in place of the cataloguing program where there is none.
//
//     NearbyWindow window(opener);
//     connect(&window, &NearbyWindow::chosen, &controller, &AppController::showPath);
//     window.search("/home/anna/Pictures/a.jpg", {48.8584, 2.2945});

#pragma once

#include "app/nearby/nearby_model.h"
#include "app/nearby/nearby_search.h"
#include "app/nearby/nearby_thumbnails.h"
#include "app/nearby/open_with.h"
#include "desktop/url_opener.h"

#include <QString>
#include <QTimer>
#include <QWidget>

#include <string>
#include <vector>

class QLabel;
class QPushButton;

namespace pinorama {

class NearbyView;

class NearbyWindow : public QWidget {
    Q_OBJECT

public:
    // A window of its own, hidden.
    //
    //   opener  opens a picture in the program for it; lives longer.
    explicit NearbyWindow(UrlOpener& opener, QWidget* parent = nullptr);
    ~NearbyWindow() override;

    // Searches around a picture and comes to the front. An earlier search ends.
    //
    //   picture  its path, absolute, in the bytes of the system.
    void search(const std::string& picture, NearbyPlace place);

    // Whether the search or a thumbnail in sight is still to come.
    bool isBusy() const;

Q_SIGNALS:
    // The user clicked on a picture, to look at it in the main window.
    void chosen(const std::string& path);
    // The user opened a picture, which also brings the main window to the front.
    void opened(const std::string& path);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class State { running, stopped, complete, cutShort, missing };

    void connectViews();
    void addActions();
    void stop();
    void setState(State state);
    QString words() const;
    void watchSight();
    void loadThumbnails();
    void addAction(const QString& text, const char* name, void (NearbyWindow::*work)());
    void openCurrent();
    void openCurrentWith();

    UrlOpener& opener_;
    NearbyModel model_;
    NearbySearch search_;
    NearbyThumbnails thumbnails_;
    OpenWith openWith_;
    QLabel* heading_;
    NearbyView* view_;
    QLabel* status_;
    QPushButton* stopButton_;
    QTimer sight_;  // runs out when what is in sight has settled
    State state_ = State::complete;
    std::vector<std::string> folders_;
};

}  // namespace pinorama
