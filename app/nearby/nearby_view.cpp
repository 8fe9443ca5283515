#include "app/nearby/nearby_view.h"

#include "app/nearby/nearby_thumbnails.h"

#include <QEvent>
#include <QPainter>

namespace pinorama {
namespace {
constexpr int kMargin = 8;  // points, around a thumbnail and around the words
constexpr int kLines = 2;   // of text below a thumbnail
}  // namespace

NearbyView::NearbyView(QWidget* parent) : QListView(parent)
{
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    setIconSize({NearbyThumbnails::kSide, NearbyThumbnails::kSide});
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::DragOnly);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    fitCells();
}

void NearbyView::setWords(const QString& words)
{
    words_ = words;
    viewport()->update();
}

std::vector<int> NearbyView::rowsInSight() const
{
    const auto rectOf = [this](int row) { return visualRect(model()->index(row, 0)); };
    const int count = model() == nullptr ? 0 : model()->rowCount();
    // Rows further down are further down in the view.
    int first = 0;
    for (int length = count; length > 0;) {
        const int half = length / 2;
        if (rectOf(first + half).bottom() < 0) {
            first += half + 1;
            length -= half + 1;
        } else {
            length = half;
        }
    }
    std::vector<int> rows;
    for (int row = first; row < count && rectOf(row).top() < viewport()->height(); row++) {
        rows.push_back(row);
    }
    return rows;
}

void NearbyView::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    if (words_.isEmpty() || (model() != nullptr && model()->rowCount() > 0)) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                     Qt::AlignCenter | Qt::TextWordWrap, words_);
}

void NearbyView::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    Q_EMIT sightChanged();
}

void NearbyView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    Q_EMIT sightChanged();
}

void NearbyView::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitCells();
}

void NearbyView::fitCells()
{
    setGridSize({NearbyThumbnails::kSide + 2 * kMargin,
                 NearbyThumbnails::kSide + kLines * fontMetrics().lineSpacing() + 2 * kMargin});
}

}  // namespace pinorama
