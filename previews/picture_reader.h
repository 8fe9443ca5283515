// The process that reads pictures for this one, and its place in the event loop. This process never
// parses a picture itself.
//
//     setReadsMoreKinds(isOn);    // the reader loads what that takes as it starts
//     cuReadPicturesElsewhere();  // once, while the program starts
//     connect(ReaderEvents::instance(), &ReaderEvents::advanced, this, &Loader::takeResult);

#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

#include "reader/reader_client.h"

class QSocketNotifier;

namespace pinorama {

// The reader of this process; started by the first request, or by cuReadPicturesElsewhere. One that
// was started before more kinds of files were to be read (readsMoreKinds) is stopped here, and the
// next request starts one with their decoders. The other way round it stays.
ReaderClient& cuPictureReader();

// Starts the reader and an opener, without waiting for them, and has the properties and previews of
// pictures read by it from now on. What a slow disk keeps longer than half a second counts as no
// picture at first and comes later, through LateProperties. Called once while a program with a
// window starts.
void cuReadPicturesElsewhere();

// Receives a reader's replies while the event loop runs.
class ReaderEvents : public QObject {
    Q_OBJECT

public:
    // The events of cuPictureReader(). They belong to the application object and are made on first
    // use.
    static ReaderEvents* instance();

    // Those of another reader, which lives longer.
    explicit ReaderEvents(ReaderClient& reader);
    ~ReaderEvents() override;

Q_SIGNALS:
    // A preview or properties may have come, or the reader may have become free for others. Each
    // receiver looks for its own ticket.
    void advanced();

private:
    void rearm();
    void advance();

    ReaderClient& reader_;
    QTimer timer_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace pinorama
