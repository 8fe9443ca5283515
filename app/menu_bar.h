// A menu bar that is there sooner than the toolkit's own. That one looks up a picture for the
// button behind which menus hide in a narrow window, and all picture plug-ins are loaded to find
// one that reads it. The button of this one shows an arrow that the desktop's style draws.

#pragma once

#include <QMenuBar>

namespace pinorama {

class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    explicit MenuBar(QWidget* parent = nullptr);

private:
    struct Cradle;
    MenuBar(QWidget* parent, Cradle&& cradle);
};

}  // namespace pinorama
