// A desktop's portal without a user: whoever asks for the name of a file to save gets one of these,
// each in its turn, which is printed.
//
// usage: saving_portal URI...

#include "tests/support/fake_portal.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv)
{
    constexpr int kPause = 50;  // milliseconds, of a user in a hurry
    const QCoreApplication application(argc, argv);
    const QStringList uris = QCoreApplication::arguments().mid(1);
    test::FakePortal portal(QDBusConnection::sessionBus());
    if (uris.isEmpty() || !portal.begin()) return 1;
    int answers = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (answers == portal.calls) return;
        portal.answer(0, {uris[answers % uris.size()]});
        std::puts(qPrintable(uris[answers % uris.size()]));
        std::fflush(stdout);
        answers = portal.calls;
    });
    timer.start(kPause);
    return QCoreApplication::exec();
}
