// A few words at the foot of the window that say why the selection in a file manager cannot be
// followed, and offer to change that. They come once per run at most and only when they are
// needed; until then nothing of them is there, and the window is as it always is.

#pragma once

#include "app/notice.h"

namespace pinorama {

class AppController;
class AccessibilityAdvice;

class AccessibilityNotice : public Notice {
    Q_OBJECT

public:
    // `fileManager` is the name of the one that is silent while accessibility is off.
    explicit AccessibilityNotice(const QString& fileManager, QWidget* parent = nullptr);

    // Says what became of the wish to switch accessibility on.
    void showSwitched(bool isOn);

Q_SIGNALS:
    // The user wants accessibility to be switched on.
    void switchWanted();

private:
    QString fileManager_;
    QPushButton* switchButton_;
};

// Puts the notice into the window when it is needed, as long as the check box is on. Both arguments
// must live until the event loop has ended.
void offerAccessibility(AccessibilityAdvice& advice, AppController& controller);

}  // namespace pinorama
