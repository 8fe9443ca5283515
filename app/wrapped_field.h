// A read-only text that wraps, in the middle of a word if need be, and is as high as its text. A
// text of many lines scrolls, and one that is too long to be laid out is cut for showing
// (shownText). It can be selected and copied with the mouse and with the keyboard, and is a text
// with a caption (its buddy) to a screen reader. Who copies all that is shown gets the whole text
// as it was set. A text stands at the edge where the window's lines begin, and keeps its own
// direction of reading. Actions that are added to it stand first in its context menu.

#pragma once

#include <QPlainTextEdit>

namespace pinorama {

class WrappedField : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    // The height in lines beyond which the text scrolls.
    Q_PROPERTY(int maximumLines READ maximumLines WRITE setMaximumLines)
    // True for a field that takes the spare height of its window.
    Q_PROPERTY(bool growing READ isGrowing WRITE setGrowing)
    // True for a field that is only as wide as its text, so that something can stand beside it.
    Q_PROPERTY(bool hugging READ isHugging WRITE setHugging)

public:
    explicit WrappedField(QWidget* parent = nullptr);

    // The whole text as it was set, however much of it is shown.
    QString text() const { return text_; }
    void setText(const QString& text);

    // Shows words of the window itself, in which the texts of others are isolated (isolated());
    // text(), and what is copied, is without the characters for that.
    void setSentence(const QString& words);

    int maximumLines() const { return maximumLines_; }
    void setMaximumLines(int lines);

    bool isGrowing() const { return isGrowing_; }
    void setGrowing(bool growing);

    bool isHugging() const { return isHugging_; }
    void setHugging(bool hugging);

    // Points between the upper edge and the first line; 0 at first.
    void setTopMargin(int points);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void alignText();
    void replaceText(const QString& text, const QString& shown);
    int wantedWidth() const;
    int linesNeeded() const;
    void adaptHeight();

    QString text_;
    int topMargin_ = 0;
    int lines_ = 1;  // as many as linesNeeded() found last
    int maximumLines_ = 4;
    bool isGrowing_ = false;
    bool isHugging_ = false;
    bool isLaidOut_ = false;
};

}  // namespace pinorama
