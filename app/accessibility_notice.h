// A few words at the foot of the window that say why the selection in a file manager cannot be
// followed, and offer to change that. They come once per run at most and only when they are
// needed; until then nothing of them is there, and the window is as it always is.

#pragma once

#include <QFrame>
#include <QString>

class AppController;
class QLabel;
class QPushButton;

namespace platform {
class AccessibilityAdvice;
}

class AccessibilityNotice : public QFrame {
    Q_OBJECT

public:
    // `fileManager` is the name of the one that is silent while accessibility is off.
    explicit AccessibilityNotice(const QString& fileManager, QWidget* parent = nullptr);

    // Says what became of the wish to switch accessibility on.
    void showSwitched(bool isOn);

Q_SIGNALS:
    // The user wants accessibility to be switched on.
    void switchWanted();

    // The user has read it.
    void dismissed();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void say(const QString& words);
    void announce();

    QString fileManager_;
    QLabel* words_;
    QPushButton* switchButton_;
    QPushButton* dismissButton_;
};

namespace app {

// Puts the notice into the window when it is needed, as long as the check box is on. Both arguments
// must live until the event loop has ended.
void offerAccessibility(platform::AccessibilityAdvice& advice, AppController& controller);

}  // namespace app
