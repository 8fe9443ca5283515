// The floor of a window with a text: most of the time goes into finding a font.

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QLabel window(QStringLiteral("A line of text"));
    window.setAlignment(Qt::AlignCenter);
    window.resize(480, 420);
    window.show();
    return QApplication::exec();
}
