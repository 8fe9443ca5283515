#include "app/menu_bar.h"

#include <QCommonStyle>
#include <QToolButton>

namespace pinorama {
namespace {
// Spares the menu bar the picture of its overflow button, for which the toolkit would load all its
// picture plug-ins. It is used only while the menu bar is created, since the look of the window
// must not depend on it.
class StyleWithoutPictures : public QCommonStyle {
public:
    QIcon standardIcon(StandardPixmap /*picture*/, const QStyleOption* /*option*/,
                       const QWidget* /*widget*/) const override
    {
        return {};
    }
};
}  // namespace

// Where a menu bar is made. A widget's style is its own, but with a style sheet it is that of the
// widgets in it as well.
struct MenuBar::Cradle {
    Cradle()
    {
        parent.setStyle(&style);
        parent.setStyleSheet(QStringLiteral("* {}"));
    }
    StyleWithoutPictures style;
    QWidget parent;
};

MenuBar::MenuBar(QWidget* parent) : MenuBar(parent, Cradle()) {}

MenuBar::MenuBar(QWidget* parent, Cradle&& cradle) : QMenuBar(&cradle.parent)
{
    setParent(parent);  // and with it the desktop's style
    if (auto* button = findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button")))
        button->setArrowType(isRightToLeft() ? Qt::LeftArrow : Qt::RightArrow);
}

}  // namespace pinorama
