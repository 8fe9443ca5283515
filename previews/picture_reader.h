// The process that reads pictures for this one, and its place in the event loop. This process never
// looks into a picture itself.

#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

#include "reader/reader_client.h"

class QSocketNotifier;

namespace pinorama {

// The reader of this process; started by the first request, or by cuReadPicturesElsewhere.
ReaderClient& cuPictureReader();

// Starts the reader, without waiting for it, and has the properties and previews of pictures read
// by it from now on. What a slow disk keeps longer than half a second counts as no picture at first
// and comes later, through LateProperties. Called once while a program with a window starts.
void cuReadPicturesElsewhere();

// Lets the reader's replies in while the event loop runs.
class ReaderEvents : public QObject {
    Q_OBJECT

public:
    // The one of the running application object, made when it is asked for first.
    static ReaderEvents* instance();
    ~ReaderEvents() override;

Q_SIGNALS:
    // The reader may have got further: a preview or properties have come, or are possible again.
    void advanced();

private:
    ReaderEvents();
    void rearm();
    void advance();

    QTimer timer_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace pinorama
