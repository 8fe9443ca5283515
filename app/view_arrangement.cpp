#include "app/view_arrangement.h"

#include "app/main_window.h"

#include <QEvent>

#include <algorithm>

namespace pinorama {
namespace {
constexpr int kPicturesWidth = 176;   // points, the least of their column beside the texts
constexpr int kPicturesLetters = 22;  // characters, the same where letters are large
constexpr int kMeasure = 60;          // characters in a line of the texts
constexpr int kTwoRows = 2;           // columns of buttons in two rows
constexpr int kStacked = 264;    // points, the least height of preview and map, one below the other
constexpr double kStrip = 0.85;  // of the width of both: in a higher row the map would be a strip
}  // namespace

ViewArrangement::ViewArrangement(MainWindow& window)
    : QObject(&window),
      window_(window),
      buttons_{window.webServicesMenu, window.showInGEButton, window.searchInTovButton,
               window.exportKMLButton}
{
    window.contentView->installEventFilter(this);
}

bool ViewArrangement::eventFilter(QObject* watched, QEvent* event)
{
    // A layout has laid out its widget before this comes, and does so again before it is painted.
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
        fit(window_.contentView->width());
        window_.windowLayout->activate();
        stackPictures();
        window_.windowLayout->activate();
        giveThePreviewRoom();
        window_.windowLayout->activate();
    }
    return QObject::eventFilter(watched, event);
}

void ViewArrangement::fit(int width)
{
    const QMargins margins = window_.windowLayout->contentsMargins();
    const int room = width - margins.left() - margins.right();
    const int spacing = window_.columnsLayout->spacing();
    const int texts = window_.factsLayout->sizeHint().width();
    arrangePictures(room, room >= picturesWidth() + spacing + texts);
    arrangeButtons(room >= buttonsWidth(kButtons) ? kButtons : kTwoRows);
    // The layout would only let the window become as narrow as it is arranged at the moment.
    window_.contentView->setMinimumWidth(leastWidth());
}

// Beside large letters the window is high, and the map would be a strip.
int ViewArrangement::picturesWidth() const
{
    return std::max(kPicturesWidth, kPicturesLetters * window_.fontMetrics().averageCharWidth());
}

void ViewArrangement::setUsualSize(QSize usual)
{
    usual_ = usual;
    giveThePreviewRoom();
}

int ViewArrangement::leastWidth() const
{
    const int pictures = window_.fileIconField->minimumWidth() + window_.picturesLayout->spacing() +
                         window_.placeMap->minimumSizeHint().width();
    const QMargins margins = window_.windowLayout->contentsMargins();
    return std::max({pictures, window_.factsLayout->minimumSize().width(), buttonsWidth(kTwoRows),
                     window_.syncCheckbox->minimumSizeHint().width()}) +
           margins.left() + margins.right();
}

// With the space to the texts. Before the window has been laid out the layout does not know it.
int ViewArrangement::captionsWidth() const
{
    int widest = 0;
    for (int row = 0; row < window_.factsLayout->rowCount(); ++row) {
        const QLayoutItem* caption = window_.factsLayout->itemAtPosition(row, 0);
        if (caption != nullptr) widest = std::max(widest, caption->sizeHint().width());
    }
    return widest + window_.factsLayout->horizontalSpacing();
}

// All columns are as wide as the widest button.
int ViewArrangement::buttonsWidth(int columns) const
{
    int widest = 0;
    for (const QWidget* button : buttons_) widest = std::max(widest, button->sizeHint().width());
    return columns * widest + (columns - 1) * window_.actionsLayout->horizontalSpacing();
}

void ViewArrangement::arrangeButtons(int columns)
{
    if (columns == columns_) return;
    columns_ = columns;
    for (QWidget* button : buttons_) window_.actionsLayout->removeWidget(button);
    for (int i = 0; i < kButtons; ++i) {
        window_.actionsLayout->addWidget(buttons_[std::size_t(i)], i / columns, i % columns);
        window_.actionsLayout->setColumnStretch(i, i < columns ? 1 : 0);
    }
}

void ViewArrangement::arrangePictures(int room, bool isWide)
{
    QBoxLayout& columns = *window_.columnsLayout;
    QBoxLayout& pictures = *window_.picturesLayout;
    const bool wasWide = this->isWide();
    columns.setDirection(isWide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    columns.setStretch(0, isWide ? 0 : 1);
    columns.setStretch(1, isWide ? 1 : 0);
    if (!isWide) {
        // How high they are shows when they have been laid out.
        if (wasWide) pictures.setDirection(QBoxLayout::LeftToRight);
        window_.placeMap->setMinimumWidth(0);
        window_.placeMap->setMaximumWidth(QWIDGETSIZE_MAX);
        return;
    }
    pictures.setDirection(QBoxLayout::TopToBottom);
    letPicturesBeLow(false);
    const int beside = room - columns.spacing();
    const int texts = captionsWidth() + kMeasure * window_.fontMetrics().averageCharWidth();
    window_.placeMap->setFixedWidth(std::clamp(beside - texts, picturesWidth(),
                                               beside - window_.factsLayout->sizeHint().width()));
}

bool ViewArrangement::isWide() const
{
    return window_.columnsLayout->direction() == QBoxLayout::LeftToRight;
}

// Above the texts the map stands beside the preview, or below it where it would be a strip. The
// height that the two have is the same in both ways.
void ViewArrangement::stackPictures()
{
    if (isWide()) return;
    QBoxLayout& pictures = *window_.picturesLayout;
    const QSize room = pictures.geometry().size();
    const bool isHigh = room.height() >= kStacked && room.height() > kStrip * room.width();
    pictures.setDirection(isHigh ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    letPicturesBeLow(isHigh);
}

// Together as low as one of them: the window may become as low as with the two side by side, where
// they stand before that.
void ViewArrangement::letPicturesBeLow(bool areStacked)
{
    const int gap = window_.picturesLayout->spacing();
    window_.placeMap->setMinimumHeight(areStacked ? 1 : 0);
    window_.fileIconField->setMinimumHeight(PictureField::kSmallest - (areStacked ? gap + 1 : 0));
}

void ViewArrangement::giveThePreviewRoom()
{
    PictureField& field = *window_.fileIconField;
    const QBoxLayout& pictures = *window_.picturesLayout;
    constexpr int kSmallest = PictureField::kSmallest;
    constexpr QSize kLeast(kSmallest, kSmallest);
    if (!usual_.isValid()) return;
    const QSize more = (window_.size() - usual_).expandedTo({0, 0});
    const int grown = std::min(kSmallest + more.width() + more.height(), kMaxPreview);
    const bool isAboveTheMap = pictures.direction() == QBoxLayout::TopToBottom;
    const QRect row = pictures.geometry();
    QSize room;
    if (isWide()) {
        const int width = std::min(grown, window_.placeMap->maximumWidth());
        room = {width, std::min(width, window_.contentView->height() * 2 / 5)};
    } else if (isAboveTheMap) {
        const int width = std::min(grown, row.width());
        room = {width, std::min(width, (row.height() - pictures.spacing()) / 2)};
    } else {
        // The row is as high as the texts below let it be, and may not ask for more.
        const int width = std::min({grown, (row.width() - pictures.spacing()) / 2, row.height()});
        room = {width, width};
    }
    room = room.expandedTo(kLeast);
    field.setRoom(room, isAboveTheMap ? room : QSize(room.width(), kSmallest));
}

}  // namespace pinorama
