// The place of the preview, or of a few words on why there is none. While no file is shown it shows
// an outline, so that the window says where a picture can be dropped. The preview can be dragged
// out: what is dragged is the file.
//
// The preview is 128 points large. Where the window has room for more, a larger one takes its place
// on the screen when it has come; until then the small one is enlarged. pixmap() is always the
// small one. Sizes are points.

#pragma once

#include <QLabel>
#include <QPixmap>

#include <memory>
#include <string>

class QMimeData;

namespace pinorama {

class PictureField : public QLabel {
    Q_OBJECT

public:
    static constexpr int kSmallest = 128;  // the least room, each way

    explicit PictureField(QWidget* parent = nullptr);

    // The file that is dragged, an absolute path in the bytes of the system; empty for none.
    void setFile(const std::string& path) { file_ = path; }

    // What a drag carries: the file's address. Null for none. It is not looked at again: a disk may
    // not answer, and whoever gets the address finds out.
    std::unique_ptr<QMimeData> dragData() const;

    // Shows neither a preview nor words, and knows no file.
    void showNothing();

    // Shows a preview, or the icon of a file: at its own size.
    void showPreview(const QPixmap& preview);

    // Shows a larger preview of the same file, as large as there is room and never larger than it
    // is. Where there is no more room than the small one takes, that is shown, or this one in its
    // size if the small one is for another density than that of the screen.
    void showLarger(const QPixmap& larger);

    // Whether a larger one is to come. Meanwhile what is there fills the room, so that nothing
    // jumps when it comes.
    void setAwaitsLarger(bool isAwaited);

    // The largest size that a preview may be shown in.
    QSize room() const { return room_.boundedTo(size()).expandedTo({kSmallest, kSmallest}); }

    // Gives it room.
    //
    //   room  not smaller than kSmallest each way.
    //   hint  what the field asks of its layout, which may give it more or less.
    void setRoom(QSize room, QSize hint);

    // The size in which the preview is shown now; empty without one.
    QSize shownSize() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    // The room may have changed, or the density of the screen has, or the field is shown after it
    // was hidden.
    void roomChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    const QPixmap& scaledTo(QSize size);
    void paintOutline();

    std::string file_;
    QPoint pressedAt_;
    QSize room_{kSmallest, kSmallest};
    QSize hint_ = room_;
    QPixmap larger_;  // null until it has come
    bool awaitsLarger_ = false;
    qreal painted_ = 0;     // the density that was painted for last; 0 for none
    QPixmap scaled_;        // what was painted last, of the pixmap with this key
    qint64 scaledKey_ = 0;  // 0 for none
};

}  // namespace pinorama
