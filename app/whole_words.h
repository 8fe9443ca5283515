// Words that are shown whole, however narrow the window is, and take no more room than that. Markup
// in them is not interpreted. They can be selected with the mouse and take no focus. Texts of
// others in them may be isolated (isolated()); what is copied is without the characters for that.

#pragma once

#include <QClipboard>
#include <QLabel>

namespace pinorama {

class WholeWords : public QLabel {
    Q_OBJECT

public:
    explicit WholeWords(QWidget* parent = nullptr);

    // Replaces the words.
    void say(const QString& words);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void copySelection(QClipboard::Mode mode) const;
    void fit();
};

}  // namespace pinorama
