#include "app/main_window.h"

#include "app/caption_colour.h"
#include "platform/files/file_uri.h"

#include <QDragEnterEvent>
#include <QEvent>
#include <QIcon>
#include <QMimeData>
#include <QPixmap>
#include <QWindow>

#include <string>
#include <vector>

namespace {
constexpr int kMarkerSize = 32;  // points

// The last file of a drop; empty when it holds none.
QByteArray fileOf(const QMimeData& data)
{
    const QByteArray list = data.data(QStringLiteral("text/uri-list"));
    const std::vector<std::string> paths =
        platform::pathsOfURIList({list.constData(), static_cast<std::size_t>(list.size())});
    return paths.empty() ? QByteArray() : QByteArray::fromStdString(paths.back());
}
}  // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent)
{
    setupUi(this);
    webServicesMenu->makeFirstItemTheTitle();

    // The marker keeps its place while it is hidden, so that nothing moves when it comes.
    QSizePolicy policy = geoTagField->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    geoTagField->setSizePolicy(policy);
    geoTagField->setMinimumSize(kMarkerSize, kMarkerSize);
    geoTagField->setVisible(false);
    showMarker();
    quietCaptions();
    resize(size().expandedTo(sizeHint()));  // a larger font needs a larger window
    setFocus();  // not the first field: its whole text would be shown instead of both its ends

    // A screen reader says the caption with the text; the colon is for the eye.
    for (const auto& captions = findChildren<QLabel*>(); QLabel * caption : captions) {
        if (QWidget* field = caption->buddy())
            field->setAccessibleName(caption->text().remove(QLatin1Char(':')));
    }
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        quietCaptions();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == fileIconField) return;  // it is shown already
    if (!fileOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QByteArray path = fileOf(*event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    Q_EMIT fileDropped(path);
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    showMarker();
    // Another screen may have another density.
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::showMarker,
            Qt::UniqueConnection);
}

void MainWindow::quietCaptions()
{
    QPalette quiet = palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        quiet.setColor(group, QPalette::WindowText,
                       app::captionColour(palette().color(group, QPalette::Window),
                                          palette().color(group, QPalette::WindowText)));
    }
    for (const auto& captions = findChildren<QLabel*>(); QLabel * caption : captions) {
        if (caption->buddy() != nullptr) caption->setPalette(quiet);
    }
}

void MainWindow::showMarker()
{
    QIcon marker;
    for (const int size : {kMarkerSize, 2 * kMarkerSize, 3 * kMarkerSize}) {
        // Without the name of the format the toolkit would load all its picture plug-ins and ask.
        marker.addPixmap(QPixmap(QStringLiteral(":/pinorama/marker-%1.png").arg(size), "PNG"));
    }
    geoTagField->setPixmap(marker.pixmap(QSize(kMarkerSize, kMarkerSize), devicePixelRatioF()));
}
