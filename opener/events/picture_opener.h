// The processes that look at the user's files for this one, and their place in the event loop. The
// thread of the window itself asks nothing of a disk that may not answer.
//
//     cuPictureOpener().request(path);
//     if (cuPictureOpener().wait(500ms) != OpenStage::done) ...
//     connect(OpenerEvents::instance(), &OpenerEvents::advanced, this, &Reading::takeOpened);

#pragma once

#include <QObject>
#include <QSocketNotifier>

#include "opener/opener_client.h"

namespace pinorama {

// The openers of this process; started by the first request, or by cuReadPicturesElsewhere.
OpenerClient& cuPictureOpener();

// Takes in what openers send while the event loop runs.
class OpenerEvents : public QObject {
    Q_OBJECT

public:
    // The events of cuPictureOpener(). They belong to the application object and are made on first
    // use.
    static OpenerEvents* instance();

    // Those of other openers, which live longer.
    explicit OpenerEvents(OpenerClient& opener);

Q_SIGNALS:
    // The stage of what is wanted may have changed.
    void advanced();

private:
    QSocketNotifier notifier_;
};

}  // namespace pinorama
