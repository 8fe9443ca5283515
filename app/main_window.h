// The window as MainWindow.ui describes it, and what only concerns its looks and its drops.

#pragma once

#include "app/window_memory.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

#include <memory>
#include <optional>
#include <string>

namespace pinorama {

// Whether a program can say where its windows are on the screen and that they are above others.
// Wayland leaves both to the desktop.
//
//   platform  what QGuiApplication::platformName says.
bool programsPlaceWindows(const QString& platform);

class MainWindow : public QMainWindow, public Ui::MainWindow {
    Q_OBJECT

public:
    // A window with its views in it, hidden.
    MainWindow();

    // An empty window that is shown already: the desktop gets it onto the screen while `furnish`
    // puts the views in. It is painted from the event loop, and so never without them.
    //
    //   earlier  what it was when it was open last; nothing for the usual size, at a place that the
    //            desktop chooses.
    static std::unique_ptr<MainWindow> showAhead(
        const std::optional<RememberedWindow>& earlier = std::nullopt);

    // Puts the views into a window that was shown ahead. Does nothing to any other.
    void furnish();

    // Makes a window that is not shown yet what it was when it was open last.
    void restore(const RememberedWindow& earlier);

Q_SIGNALS:
    // Files were dropped on the window; `path` is the last of them, absolute and in the
    // bytes of the system.
    void fileDropped(const std::string& path);

protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Empty {};
    MainWindow(Empty /*views*/, const std::optional<RememberedWindow>& earlier);

    void enlargeHeadline();
    void followScreen();
    void keepAbove(bool isAbove);
    void followFields();
    void quieten(QLabel& caption);
    void quietCaptions();
    void showMarker();

    bool isRestored_ = false;
};

}  // namespace pinorama
