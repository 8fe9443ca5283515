#include "previews/picture_reader.h"

#include "location/picture_source.h"
#include "opener/events/picture_opener.h"
#include "previews/file_preview.h"
#include "previews/late_properties.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSocketNotifier>

namespace pinorama {

ReaderClient& cuPictureReader()
{
    static bool hasMoreDecoders = false;
    static ReaderClient client([] {
        hasMoreDecoders = readsMoreKinds();
        return startPictureReader(hasMoreDecoders);
    });
    const bool isRunning = client.socket() >= 0;
    if (isRunning && readsMoreKinds() && !hasMoreDecoders) client.stop();
    return client;
}

void cuReadPicturesElsewhere()
{
    cuPictureReader().start();
    cuPictureOpener().start();
    cuInstallFilePreviews();
    installPropertySource([](int descriptor, std::uint64_t /*size*/) {
        cuPictureReader().setReadsMore(readsMoreKinds());
        return LateProperties::instance()->read(descriptor);
    });
}

ReaderEvents* ReaderEvents::instance()
{
    static QPointer<ReaderEvents> events;
    if (!events) {
        events = new ReaderEvents(cuPictureReader());
        events->setParent(QCoreApplication::instance());
    }
    return events;
}

ReaderEvents::ReaderEvents(ReaderClient& reader) : reader_(reader)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &ReaderEvents::advance);
    reader_.setChangeHandler([this] { rearm(); });
    rearm();
}

ReaderEvents::~ReaderEvents()
{
    reader_.setChangeHandler({});
}

void ReaderEvents::rearm()
{
    const int socket = reader_.socket();
    if (notifier_ && notifier_->socket() != socket) {
        // It may be the one that is calling.
        notifier_->setEnabled(false);
        notifier_.release()->deleteLater();
    }
    if (!notifier_ && socket >= 0) {
        notifier_ = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
        connect(notifier_.get(), &QSocketNotifier::activated, this, &ReaderEvents::advance);
    }
    // A result that came while a caller waited for another one is reported from the event loop.
    const bool hasResult = reader_.hasPreview() || reader_.hasProperties();
    const int left = hasResult ? 0 : reader_.millisecondsLeft();
    if (left < 0) {
        timer_.stop();
    } else {
        timer_.start(left);
    }
}

void ReaderEvents::advance()
{
    reader_.advance();
    Q_EMIT advanced();
}

}  // namespace pinorama
