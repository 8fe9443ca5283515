// Arranges the views of the window for its width: the pictures stand beside the texts in a wide
// window and above them in a narrow one, the buttons in one row or in two. The map takes what room
// there is; the texts keep the measure of a line that is easy to read.

#pragma once

#include <QObject>

#include <array>

class QWidget;

namespace pinorama {

class MainWindow;

class ViewArrangement : public QObject {
    Q_OBJECT

public:
    // Arranges the views whenever their content view changes its width. The window, which has its
    // views, lives longer.
    explicit ViewArrangement(MainWindow& window);

    // Arranges them for a content view of a width, in points.
    void fit(int width);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int kButtons = 4;

    int picturesWidth() const;
    int leastWidth() const;
    int buttonsWidth(int columns) const;
    int captionsWidth() const;
    void arrangeButtons(int columns);
    void arrangePictures(int room, bool isWide);

    MainWindow& window_;
    std::array<QWidget*, kButtons> buttons_;
    int columns_ = 0;  // of the buttons
};

}  // namespace pinorama
