#include "opener/events/picture_opener.h"

#include <QCoreApplication>
#include <QPointer>

namespace pinorama {

OpenerClient& cuPictureOpener()
{
    static OpenerClient client([] { return startOpenerProgram(openerProgram()); });
    return client;
}

OpenerEvents* OpenerEvents::instance()
{
    static QPointer<OpenerEvents> events;
    if (!events) {
        events = new OpenerEvents(cuPictureOpener());
        events->setParent(QCoreApplication::instance());
    }
    return events;
}

OpenerEvents::OpenerEvents(OpenerClient& opener)
    : notifier_(opener.descriptor(), QSocketNotifier::Read)
{
    connect(&notifier_, &QSocketNotifier::activated, this, [this, &opener] {
        opener.advance();
        Q_EMIT advanced();
    });
}

}  // namespace pinorama
