// A few words at the foot of the window, until they are dismissed. They take no focus and are read
// out by a screen reader; while there is nothing to say nothing of them is there, and the window is
// as it always is.

#pragma once

#include <QFrame>
#include <QString>

class QHBoxLayout;
class QPushButton;

namespace pinorama {

class WholeWords;

class Notice : public QFrame {
    Q_OBJECT

public:
    // `name` is the object name; its parts are called `<name>Words` and `<name>DismissButton`.
    explicit Notice(const QString& name, QWidget* parent = nullptr);

    // Replaces what is said. Markup in it is not interpreted.
    void say(const QString& words);

Q_SIGNALS:
    // The user has read it.
    void dismissed();

protected:
    void showEvent(QShowEvent* event) override;

    // Puts a button in front of the others; it is the notice's own then.
    void addButton(QPushButton* button);
    QPushButton* dismissButton() const { return dismissButton_; }

private:
    void announce();

    WholeWords* words_;
    QHBoxLayout* buttons_;
    QPushButton* dismissButton_;
};

}  // namespace pinorama
