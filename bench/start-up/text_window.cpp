// The floor of a window that shows a text: looking for a font is the larger part of it.

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
