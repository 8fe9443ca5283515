// A program that connects to the session bus and stays connected, idle, until its standard input is
// closed. Given the address of a second bus, it connects to that one too.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QSocketNotifier>

#include <unistd.h>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    bool isConnected = QDBusConnection::sessionBus().isConnected();
    const QString second = QCoreApplication::arguments().value(1);
    if (!second.isEmpty()) {
        isConnected = isConnected &&
                      QDBusConnection::connectToBus(second, QStringLiteral("second")).isConnected();
    }
    if (!isConnected) return 1;
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &QCoreApplication::quit);
    std::puts("here");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
