// A read-only line whose text is elided in the middle while it is too long for its place, so that
// both the beginning and the ending of a file name stay readable. With the focus in it the whole
// text is there to walk through, select and copy. Only a text that is too long to be laid out is
// cut for showing (shownText); who copies all that is shown gets the whole text as it was set. A
// text stands at the edge where the window's lines begin, and keeps its own direction of reading.

#pragma once

#include <QLineEdit>

namespace pinorama {

class ElidedField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    explicit ElidedField(QWidget* parent = nullptr);

    // The whole text as it was set, however much of it is shown.
    QString text() const { return text_; }
    void setText(const QString& text);

    // Shows words of the window itself, in which the texts of others are isolated (isolated());
    // text(), and what is copied, is without the characters for that.
    void setSentence(const QString& words);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void alignText();
    void cancelMarginsOfStyle();
    QString copiedText() const;
    void copySelection() const;
    QString shownToolTip() const;
    QRect textRect() const;

    QString text_;
    QString shown_;  // what stands in the line
    bool isSentence_ = false;
};

}  // namespace pinorama
