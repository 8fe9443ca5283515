#include "app/window_memory.h"

#include "app/main_window.h"
#include "base/replacing_file.h"
#include "base/user_folders.h"
#include "base/whole_file.h"

#include <QEvent>
#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cstdio>

namespace pinorama {
namespace {
constexpr int kSmallestSide = 64;          // points; smaller ones are no window's
constexpr int kLargestSide = 16384;        // what X11 allows is twice that
constexpr int kTitleBar = 40;              // points, at most; its height is known too late
constexpr std::size_t kLargestFile = 100;  // bytes
constexpr int kMoment = 1000;              // milliseconds

// Empty if there is no home folder.
std::string folderOfMemory()
{
    const std::string state = stateFolder();
    return state.empty() ? state : state + "/pinorama";
}

bool isSide(int length)
{
    return length >= kSmallestSide && length <= kLargestSide;
}

int area(const QRect& rectangle)
{
    return rectangle.width() * rectangle.height();
}

// The place nearest to `place` at which a stretch of `length` lies between `low` and `high`.
int movedBetween(int low, int high, int place, int length)
{
    return std::max(low, std::min(place, high - length));
}
}  // namespace

std::string textOfWindow(const RememberedWindow& window)
{
    const auto& place = window.place;
    return std::to_string(window.size.width()) + ' ' + std::to_string(window.size.height()) + ' ' +
           (place ? std::to_string(place->x()) + ' ' + std::to_string(place->y()) : "- -") +
           (window.isAbove ? " 1\n" : " 0\n");
}

std::optional<RememberedWindow> windowOfText(const std::string& text)
{
    int width = 0, height = 0, x = 0, y = 0, isAbove = 0;
    const bool hasPlace =
        std::sscanf(text.c_str(), "%6d %6d %6d %6d %1d", &width, &height, &x, &y, &isAbove) == 5;
    if (!hasPlace && std::sscanf(text.c_str(), "%6d %6d - - %1d", &width, &height, &isAbove) != 3)
        return std::nullopt;
    const RememberedWindow window{
        {width, height}, hasPlace ? std::optional(QPoint(x, y)) : std::nullopt, isAbove == 1};
    // What else the text may have had shows here.
    if (!isSide(width) || !isSide(height) || textOfWindow(window) != text) return std::nullopt;
    return window;
}

RememberedWindow onScreens(RememberedWindow window, const std::vector<QRect>& screens)
{
    const QRect whole(window.place.value_or(QPoint()), window.size);
    QRegion outside(whole);
    QRect best;
    int most = 0;
    for (const QRect& screen : screens) {
        outside -= screen;
        const int part = area(screen.intersected(whole));
        if (part > most) best = screen;
        most = std::max(most, part);
    }
    if (window.place && outside.isEmpty()) return window;
    if (most == 0) window.place.reset();
    if (!window.place) best = screens.empty() ? QRect() : screens.front();
    if (best.isEmpty()) return window;
    if (window.size.width() > best.width()) window.size.setWidth(best.width());
    if (window.size.height() > best.height() - kTitleBar)
        window.size.setHeight(best.height() - kTitleBar);
    if (!window.place) return window;
    window.place = QPoint(
        movedBetween(best.left(), best.right() + 1, whole.x(), window.size.width()),
        movedBetween(best.top(), best.bottom() + 1, whole.y(), window.size.height() + kTitleBar));
    return window;
}

std::optional<RememberedWindow> loadWindow()
{
    const std::string folder = folderOfMemory();
    if (folder.empty()) return std::nullopt;
    const auto text = readWholeFile(folder + "/window", kLargestFile);
    const auto window = text ? windowOfText(*text) : std::nullopt;
    if (!window) return std::nullopt;
    std::vector<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back(screen->availableGeometry());
    return onScreens(*window, screens);
}

WindowMemory::WindowMemory(MainWindow& window, const std::optional<RememberedWindow>& earlier)
    : window_(window), known_(earlier)
{
    timer_.setSingleShot(true);
    timer_.setInterval(kMoment);
    const auto storeLater = [this] { timer_.start(); };
    connect(&timer_, &QTimer::timeout, this, &WindowMemory::store);
    connect(window.keepAboveAction, &QAction::toggled, this, storeLater);
    window.installEventFilter(this);
}

WindowMemory::~WindowMemory()
{
    if (timer_.isActive()) store();
}

bool WindowMemory::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize: timer_.start(); break;
    case QEvent::Close:
        store();
        // A window that the desktop has placed would be placed anew when it opens again.
        if (isUsual() && programsPlaceWindows(QGuiApplication::platformName()))
            window_.windowHandle()->setFramePosition(window_.pos());
        break;
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

bool WindowMemory::isUsual() const
{
    constexpr Qt::WindowStates kSpecial =
        Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
    return window_.isVisible() && (window_.windowState() & kSpecial) == 0;
}

// Only after a moment: a window learns that it is maximized after it has the new size, and where
// its frame is after it has a new place.
void WindowMemory::look()
{
    if (isUsual()) {
        if (!known_) known_.emplace();
        known_->size = window_.size();
        if (programsPlaceWindows(QGuiApplication::platformName())) known_->place = window_.pos();
    }
    if (known_) known_->isAbove = window_.keepAboveAction->isChecked();
}

void WindowMemory::store()
{
    timer_.stop();
    look();
    if (!known_) return;
    const std::string text = textOfWindow(*known_);
    const std::string folder = folderOfMemory();
    if (text == stored_ || folder.empty() || !makeFolders(folder, 0700)) return;
    ReplacingFile file({.durability = Durability::none, .ownMode = 0600});
    if (file.begin(folder + "/window") && file.write(text) && file.finish()) stored_ = text;
}

}  // namespace pinorama
