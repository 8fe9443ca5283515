#include "previews/picture_opener.h"

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
        events = new OpenerEvents;
        events->setParent(QCoreApplication::instance());
    }
    return events;
}

OpenerEvents::OpenerEvents() : notifier_(cuPictureOpener().descriptor(), QSocketNotifier::Read)
{
    connect(&notifier_, &QSocketNotifier::activated, this, [this] {
        cuPictureOpener().advance();
        Q_EMIT advanced();
    });
}

}  // namespace pinorama
