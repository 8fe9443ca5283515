// Where the window was and how large, from one start to the next: its size, its place on the
// screen, and whether it is kept above others. On Wayland the desktop alone knows the place.
//
// One line of text in $XDG_STATE_HOME/pinorama/window; docs/formats.md describes it.

#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTimer>

#include <optional>
#include <string>
#include <vector>

namespace pinorama {

class MainWindow;

struct RememberedWindow {
    QSize size;                   // points, without the frame
    std::optional<QPoint> place;  // of the upper left corner of the frame; nothing if unknown
    bool isAbove = false;

    friend bool operator==(const RememberedWindow&, const RememberedWindow&) = default;
};

// "640 500 100 80 0": width, height, x, y and 1 for a window above others, 0 for any other; a
// hyphen for each coordinate of a place that is not known; a line feed at the end.
std::string textOfWindow(const RememberedWindow& window);

// Nothing for a text that textOfWindow does not make, and for a size that no window has.
std::optional<RememberedWindow> windowOfText(const std::string& text);

// The same window on the screens that there are.
//
//   screens  what windows may cover of each, in points; the main screen first. Without any, the
//            window has no place.
//
// A window that lies on the screens stays as it is. Any other is made small enough for the screen
// that has most of it, and moved onto that; one that is on no screen has no place.
RememberedWindow onScreens(RememberedWindow window, const std::vector<QRect>& screens);

// What was remembered, for the screens of now. Nothing if there is none, or if it cannot be read.
// Needs the application object.
std::optional<RememberedWindow> loadWindow();

// Remembers a window, a moment after it has changed, when it is closed, and in the end. A maximized
// or minimized window is remembered as it was before. Failing to write is not reported.
class WindowMemory : public QObject {
    Q_OBJECT

public:
    //   window   has its views; lives longer.
    //   earlier  what was remembered of it so far.
    explicit WindowMemory(MainWindow& window,
                          const std::optional<RememberedWindow>& earlier = std::nullopt);
    ~WindowMemory() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isUsual() const;
    void look();
    void store();

    MainWindow& window_;
    std::optional<RememberedWindow> known_;
    std::string stored_;  // what the file says, as far as this process has written it
    QTimer timer_;
};

}  // namespace pinorama
