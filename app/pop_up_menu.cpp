#include "app/pop_up_menu.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QListView>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace pinorama {

PopUpMenu::PopUpMenu(QWidget* parent) : QComboBox(parent)
{
    connect(this, &QComboBox::activated, this, [this](int index) {
        setCurrentIndex(0);
        if (index > 0) Q_EMIT chosen(index);
    });
}

void PopUpMenu::makeFirstItemTheTitle()
{
    if (auto* items = qobject_cast<QStandardItemModel*>(model()); items && items->item(0))
        items->item(0)->setFlags(Qt::NoItemFlags);
    setCurrentIndex(0);
}

void PopUpMenu::setOffered(int index, bool isOffered)
{
    if (auto* list = qobject_cast<QListView*>(view())) list->setRowHidden(index, !isOffered);
    // Keys find hidden items, too, but not disabled ones.
    auto* items = qobject_cast<QStandardItemModel*>(model());
    if (items && items->item(index)) items->item(index)->setEnabled(isOffered);
}

bool PopUpMenu::isOffered(int index) const
{
    const auto* list = qobject_cast<const QListView*>(view());
    return list == nullptr || !list->isRowHidden(index);
}

QSize PopUpMenu::sizeHint() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize title = fontMetrics().size(Qt::TextSingleLine, itemText(0));
    const QSize needed = style()->sizeFromContents(QStyle::CT_ComboBox, &option, title, this);
    return QComboBox::sizeHint().expandedTo(needed);
}

QSize PopUpMenu::minimumSizeHint() const
{
    return sizeHint();
}

void PopUpMenu::showPopup()
{
    Q_EMIT aboutToShow();
    const int items = view()->sizeHintForColumn(0);
    const int frame = 2 * view()->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(items + frame);
    view()->installEventFilter(this);  // once, however often it is called
    QComboBox::showPopup();
}

// The list's own Home and End keys go to the title and to the last item even if it is hidden.
bool PopUpMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != view() || event->type() != QEvent::KeyPress)
        return QComboBox::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Home && key != Qt::Key_End) return QComboBox::eventFilter(watched, event);
    const int step = key == Qt::Key_Home ? 1 : -1;
    int index = key == Qt::Key_Home ? 1 : count() - 1;
    while (index > 0 && index < count() && !isOffered(index)) index += step;
    if (index > 0 && index < count())
        view()->setCurrentIndex(model()->index(index, modelColumn(), rootModelIndex()));
    return true;
}

// The arrow keys, letters and the wheel walk through a closed combo box and choose each item on the
// way. An item here opens a web page, so those keys only open the list, and the wheel does nothing.
void PopUpMenu::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4: showPopup(); return;
    default: event->ignore(); return;
    }
}

void PopUpMenu::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

}  // namespace pinorama
