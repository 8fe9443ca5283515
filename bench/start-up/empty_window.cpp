// The floor of a program with a window: an empty window of the same toolkit.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Empty"));
    window.resize(480, 420);
    window.show();
    return QApplication::exec();
}
