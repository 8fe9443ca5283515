#include "app/main_window.h"

#include "app/baselines.h"
#include "app/caption_colour.h"
#include "app/drawing.h"
#include "app/view_arrangement.h"
#include "base/file_uri.h"

#include <QDragEnterEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QLayout>
#include <QMenu>
#include <QMimeData>
#include <QWindow>

#include <algorithm>
#include <string>
#include <vector>

namespace pinorama {
namespace {
constexpr int kMarkerSize = 32;  // points

constexpr QSize kUsualSize(700, 520);

// How much larger the place in words is than the other texts.
constexpr double kHeadline = 1.25;

// Big enough for everything, as far as one can know without looking for a font.
QSize likelySize()
{
    constexpr double kUsualFont = 10;  // points
    return kUsualSize * std::max(QGuiApplication::font().pointSizeF() / kUsualFont, 1.0);
}

// Qt's own style counts the '&' of an item when it looks whether the text fits, and not when it
// makes the menu as wide as its items: a menu whose longest item has a mnemonic in parentheses
// would be cut.
void giveMnemonicsRoom(QMenu* menu)
{
    menu->setMinimumWidth(menu->sizeHint().width() +
                          menu->fontMetrics().horizontalAdvance(QLatin1Char('&')));
}

// The last file of a drop; empty when it holds none.
std::string fileOf(const QMimeData& data)
{
    const QByteArray list = data.data(QStringLiteral("text/uri-list"));
    const std::vector<std::string> paths =
        pathsOfURIList({list.constData(), static_cast<std::size_t>(list.size())});
    return paths.empty() ? std::string() : paths.back();
}
}  // namespace

bool programsPlaceWindows(const QString& platform)
{
    return !platform.startsWith(QLatin1String("wayland"));
}

MainWindow::MainWindow()
{
    furnish();
}

MainWindow::MainWindow(Empty /*views*/, const std::optional<RememberedWindow>& earlier)
{
    setWindowTitle(QStringLiteral("Pinorama"));
    resize(likelySize());
    if (earlier) restore(*earlier);
    show();
    // Not for the reply: a question to the display takes along what was sent before it.
    (void)QGuiApplication::queryKeyboardModifiers();
}

std::unique_ptr<MainWindow> MainWindow::showAhead(const std::optional<RememberedWindow>& earlier)
{
    return std::unique_ptr<MainWindow>(new MainWindow(Empty(), earlier));
}

void MainWindow::restore(const RememberedWindow& earlier)
{
    isRestored_ = true;
    resize(earlier.size);
    if (earlier.place && programsPlaceWindows(QGuiApplication::platformName()))
        move(*earlier.place);
    keepAbove(earlier.isAbove);
}

void MainWindow::furnish()
{
    if (centralWidget() != nullptr) return;
    setupUi(this);
    webServicesMenu->makeFirstItemTheTitle();

    geoTagField->setMinimumSize(kMarkerSize, kMarkerSize);
    geoTagField->setVisible(false);
    placeMap->setMarker(geoTagField);
    showMarker();
    quietCaptions();
    enlargeHeadline();
    followFields();
    keepAboveAction->setChecked(windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    connect(keepAboveAction, &QAction::toggled, this, &MainWindow::keepAbove);
    // Where a program cannot have that, the desktop has it in the window's own menu.
    keepAboveAction->setVisible(programsPlaceWindows(QGuiApplication::platformName()));
    for (QMenu* menu : {pictureMenu, helpMenu})
        connect(
            menu, &QMenu::aboutToShow, menu, [menu] { giveMnemonicsRoom(menu); },
            Qt::SingleShotConnection);
    if (isVisible()) {
        // What comes into a window that is shown is not shown by itself, and a layout counts only
        // what is.
        contentView->show();
        mainMenu->show();
    }
    auto* arrangement = new ViewArrangement(*this);  // the window's child
    // A larger font needs a larger window.
    const QSize usual = isVisible() ? size() : kUsualSize;
    arrangement->fit(usual.width());
    arrangement->setUsualSize((isVisible() ? likelySize() : kUsualSize).expandedTo(sizeHint()));
    if (!isRestored_) resize(usual.expandedTo(sizeHint()));
    setFocus();  // not the first field: its whole text would be shown instead of both its ends

    // A screen reader says the caption with the text; the colon is for the eye.
    for (const auto& captions = findChildren<QLabel*>(); QLabel * caption : captions) {
        if (QWidget* field = caption->buddy())
            field->setAccessibleName(caption->text().remove(QLatin1Char(':')));
    }
    if (!isVisible()) return;
    layout()->activate();
    followScreen();
}

// QWidget::setWindowFlag would hide the window and make another in its place on the screen.
void MainWindow::keepAbove(bool isAbove)
{
    overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, isAbove));
    if (windowHandle() != nullptr) windowHandle()->setFlag(Qt::WindowStaysOnTopHint, isAbove);
    if (centralWidget() != nullptr) keepAboveAction->setChecked(isAbove);
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        quietCaptions();
    if (event->type() == QEvent::FontChange && centralWidget() != nullptr) enlargeHeadline();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == fileIconField) return;  // it is shown already
    if (!fileOf(*event->mimeData()).empty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const std::string path = fileOf(*event->mimeData());
    if (path.empty()) return;
    event->acceptProposedAction();
    Q_EMIT fileDropped(path);
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (centralWidget() != nullptr) followScreen();
}

void MainWindow::followScreen()
{
    showMarker();
    // Another screen may have another density.
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::showMarker,
            Qt::UniqueConnection);
}

void MainWindow::quietCaptions()
{
    for (const auto& captions = findChildren<QLabel*>(); QLabel * caption : captions) {
        if (caption->buddy() != nullptr) quieten(*caption);
    }
}

void MainWindow::quieten(QLabel& caption)
{
    const auto* field = qobject_cast<const WrappedField*>(caption.buddy());
    const bool isEmpty = field != nullptr && field->text().isEmpty();
    QPalette quiet = palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        quiet.setColor(
            group, QPalette::WindowText,
            captionColour(palette(), group, isEmpty ? Captioned::nothing : Captioned::text));
    }
    caption.setPalette(quiet);
}

// The answer to "where?" is the first thing one reads.
void MainWindow::enlargeHeadline()
{
    QFont large = font();
    if (large.pixelSize() > 0) {
        large.setPixelSize(qRound(large.pixelSize() * kHeadline));
    } else {
        large.setPointSizeF(large.pointSizeF() * kHeadline);
    }
    placeField->setFont(large);
}

// The captions stand on the lines of their fields, and fade beside empty ones.
void MainWindow::followFields()
{
    for (const auto& captions = findChildren<QLabel*>(); QLabel * caption : captions) {
        auto* field = qobject_cast<WrappedField*>(caption->buddy());
        if (field == nullptr) continue;
        connect(field, &WrappedField::textChanged, caption, [this, caption, field] {
            alignBaselines(*caption, *field);
            quieten(*caption);
        });
        alignBaselines(*caption, *field);
    }
}

void MainWindow::showMarker()
{
    const QIcon marker =
        drawnIcon(QStringLiteral("marker"), {kMarkerSize, 2 * kMarkerSize, 3 * kMarkerSize});
    geoTagField->setPixmap(marker.pixmap(QSize(kMarkerSize, kMarkerSize), devicePixelRatioF()));
}

}  // namespace pinorama
