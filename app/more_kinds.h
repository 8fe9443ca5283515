// The switch "Read More Kinds of Files": a preference of its own, an item in the menu, and a line
// at the foot of the window that offers it when a file is shown that it would read. It is off until
// the user switches it on, and while it is off the window is otherwise as it always is.

#pragma once

#include "lib/objects/string.h"
#include "pictures/picture_properties.h"

#include <QObject>

namespace pinorama {

class MainWindow;

// Loads and stores the preference "readMoreKinds". It has no registered default; off is 0 and none.
bool appLoadReadMoreKinds();
void appStoreReadMoreKinds(bool isOn);

class MoreKinds : public QObject {
    Q_OBJECT

public:
    // The window, which has its views, lives longer.
    explicit MoreKinds(MainWindow& window);

    // Takes over what is stored; called once, when preferences can be read.
    void load();

    bool isOn() const { return isOn_; }

    // True for a path that is read because the switch is on.
    bool reads(TovStringRef path) const;

    // The file at `path` is shown: offers to read its kind, or takes an earlier offer back.
    void offerFor(TovStringRef path);
    bool isOffering() const;

    // Says in tool tips where the values come from that the window shows; null for nothing. While
    // the switch is off there are no such tool tips.
    void showSources(const ValueSources* sources);

Q_SIGNALS:
    // The switch was set to another position than it had: what is shown may have to be read again.
    void switched();

private:
    // In the user's language.
    static QString textOf(ValueSource source);

    void setOn(bool isOn);

    MainWindow& window_;
    bool isOn_ = false;
};

}  // namespace pinorama
