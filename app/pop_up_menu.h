// A pop-up whose items are commands: its first item is the title that it always shows, choosing one
// of the others runs it once.

#pragma once

#include <QComboBox>

namespace pinorama {

class PopUpMenu : public QComboBox {
    Q_OBJECT

public:
    explicit PopUpMenu(QWidget* parent = nullptr);

    // Makes the first item a title: shown, never chosen.
    void makeFirstItemTheTitle();

    // Leaves an item out of the list, or shows it again; it keeps its index.
    void setOffered(int index, bool isOffered);
    bool isOffered(int index) const;

    // Wide enough for the title, which need not be the longest item.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Opens the list, wide enough for its longest item.
    void showPopup() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // The list is about to open: the time to leave items out.
    void aboutToShow();

    // The user chose the item at `index`, counted from 0 over all items with the title.
    void chosen(int index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace pinorama
