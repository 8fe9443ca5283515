// Words that are shown whole, however narrow the window is, and take no more room than that. Markup
// in them is not interpreted. They can be selected with the mouse and take no focus.

#pragma once

#include <QLabel>

namespace pinorama {

class WholeWords : public QLabel {
    Q_OBJECT

public:
    explicit WholeWords(QWidget* parent = nullptr);

    // Replaces the words.
    void say(const QString& words);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();
};

}  // namespace pinorama
