// Arranges the views of the window for its size: the pictures stand beside the texts in a wide
// window and above them in a narrow one, the map beside the preview or, where that would be a
// strip, below it; the buttons in one row or in two. The map and the preview take what room there
// is; the texts keep the measure of a line that is easy to read.
//
// The preview has its smallest size in a window of the usual size, whatever the font, and grows
// point by point with what the window is larger. Beside the texts it is never higher than two
// fifths of the window, above them never larger than the map, and it is never more than 512 points.

#pragma once

#include <QObject>
#include <QSize>

#include <array>

class QWidget;

namespace pinorama {

class MainWindow;

class ViewArrangement : public QObject {
    Q_OBJECT

public:
    static constexpr int kMaxPreview = 512;  // points, each way

    // Arranges the views whenever their content view changes its size. The window, which has its
    // views, lives longer.
    explicit ViewArrangement(MainWindow& window);

    // Arranges them for a content view of a width, in points.
    void fit(int width);

    // The usual size of the window, in points; the preview does not grow before it is known.
    void setUsualSize(QSize usual);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int kButtons = 4;

    int picturesWidth() const;
    int leastWidth() const;
    int buttonsWidth(int columns) const;
    int captionsWidth() const;
    void arrangeButtons(int columns);
    bool isWide() const;
    void arrangePictures(int room, bool isWide);
    void stackPictures();
    void letPicturesBeLow(bool areStacked);
    void giveThePreviewRoom();

    MainWindow& window_;
    std::array<QWidget*, kButtons> buttons_;
    int columns_ = 0;  // of the buttons
    QSize usual_;      // invalid until it is known
};

}  // namespace pinorama
