// Measures the window of pictures nearby: presses the button of the main window, and prints as a
// row of a Markdown table when the first picture was there, when the search ended, and for how long
// the event loop, which draws and hears the user, did not run.
//
// usage: nearby_window_bench PICTURE COUNT RUNS
//
//   PICTURE  the picture that is shown; it has a position.
//   COUNT    how many pictures its folder and the neighbours have, for the table.
//   RUNS     how many searches follow the first one, which knows nothing of the folders.

#include "app/app_controller.h"
#include "app/main_window.h"
#include "app/nearby/nearby_view.h"
#include "app/nearby/nearby_window.h"
#include "tests/support/environment.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace pinorama;

namespace {
constexpr qint64 kPatience = 300'000;  // milliseconds
constexpr int kRest = 500;             // milliseconds

double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) * 1e-6;
}

// Notices for how long the event loop does not run: a timer of it is due every millisecond.
class PauseWatch {
public:
    PauseWatch()
    {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
        sinceTurn_.start();
        timer_.start(1);
    }

    // Milliseconds between two turns, at most, up to now.
    double longest()
    {
        look();
        return longest_;
    }

private:
    void look()
    {
        longest_ = std::max(longest_, milliseconds(sinceTurn_));
        sinceTurn_.restart();
    }

    QTimer timer_;
    QElapsedTimer sinceTurn_;
    double longest_ = 0.0;
};

// Runs the event loop until something holds; false if it never does.
template <typename Condition>
bool runUntil(const Condition& holds)
{
    QElapsedTimer timer;
    timer.start();
    while (!holds()) {
        if (timer.hasExpired(kPatience)) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }
    return true;
}

double longestPauseAtRest()
{
    PauseWatch pauses;
    QElapsedTimer timer;
    timer.start();
    (void)runUntil([&timer] { return timer.hasExpired(kRest); });
    return pauses.longest();
}

class Nobody final : public UrlOpener {
public:
    bool open(const QByteArray&) override { return false; }
    bool isTaken(const QByteArray&) const override { return false; }
};

NearbyWindow* nearbyWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<NearbyWindow*>(window)) return found;
    }
    return nullptr;
}

struct Measured {
    double firstRow = 0.0;  // milliseconds after the button was pressed
    double end = 0.0;
    double pause = 0.0;
    double pauseAtRest = 0.0;
    int rows = 0;
};

bool measure(AppController& controller, Measured* out)
{
    out->pauseAtRest = longestPauseAtRest();
    PauseWatch pauses;
    QElapsedTimer timer;
    timer.start();
    controller.searchInTovButton->click();
    const NearbyWindow* window = nearbyWindow();
    if (window == nullptr) return false;
    const QAbstractItemModel* model = window->findChild<NearbyView*>()->model();
    const auto* stop = window->findChild<QPushButton*>(QStringLiteral("nearbyStopButton"));
    const bool hasEnded = runUntil([&] {
        if (out->firstRow == 0.0 && model->rowCount() > 0) out->firstRow = milliseconds(timer);
        return !stop->isEnabled();
    });
    out->end = milliseconds(timer);
    // What has come in is laid out and its thumbnails are shown.
    const bool isIdle = runUntil([window] { return !window->isBusy(); });
    out->pause = pauses.longest();
    out->rows = model->rowCount();
    return hasEnded && isIdle && out->rows > 0;
}

void printRow(const char* search, const char* count, const Measured& measured)
{
    std::printf("| %s | %s | %d | %.0f ms | %.0f ms | %.0f ms | %.0f ms |\n", search, count,
                measured.rows, measured.firstRow, measured.end, measured.pause,
                measured.pauseAtRest);
    (void)std::fflush(stdout);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: nearby_window_bench PICTURE COUNT RUNS\n", stderr);
        return 2;
    }
    const test::TemporaryFolder home;
    const test::ScopedVariable homeFolder("HOME", home.path().c_str());
    const test::ScopedVariable cache("XDG_CACHE_HOME", home.file("cache").c_str());
    const test::ScopedVariable settings("XDG_CONFIG_HOME", home.file("config").c_str());
    const QApplication application(argc, argv);
    Nobody nobody;
    AppController controller(nullptr, &nobody);
    if (!controller.init()) return 1;
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();
    controller.gUpdateTimer->stop();
    controller.openPath(argv[1]);
    const auto canSearch = [&] { return controller.searchInTovButton->isEnabled(); };
    Measured measured;
    if (!runUntil(canSearch) || !measure(controller, &measured)) {
        std::fputs("The first search has failed.\n", stderr);
        return 1;
    }
    printRow("first", argv[2], measured);
    Measured shortest;
    for (int run = 0; run < std::atoi(argv[3]); run++) {
        measured = {};
        if (!measure(controller, &measured)) {
            std::fputs("A further search has failed.\n", stderr);
            return 1;
        }
        if (run == 0 || measured.end < shortest.end) shortest = measured;
    }
    if (shortest.rows > 0) printRow("next", argv[2], shortest);
    return 0;
}
