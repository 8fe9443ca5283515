// The thumbnails of pictures that are in sight, one after the other: from the desktop's cache, else
// out of the picture. They are looked for by an opener and a reader of their own, so that the
// picture in the main window never waits for them, and neither of the two is there before the first
// thumbnail is wanted.
//
//     connect(&thumbnails, &NearbyThumbnails::loaded, &model, &NearbyModel::setThumbnail);
//     thumbnails.want(pathsInSight, ratio);

#pragma once

#include "opener/events/picture_opener.h"
#include "opener/opener_client.h"
#include "previews/picture_reader.h"
#include "previews/preview_plan.h"
#include "reader/reader_client.h"

#include <QObject>
#include <QPixmap>
#include <QTimer>

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace pinorama {

class NearbyThumbnails : public QObject {
    Q_OBJECT

public:
    static constexpr int kSide = 128;  // points

    explicit NearbyThumbnails(QObject* parent = nullptr);

    // Wants these thumbnails, in this order, and no others any more. The one that is being read
    // goes on if it is among them. `loaded` comes from the event loop.
    //
    //   paths  absolute, in the bytes of the system.
    //   ratio  device pixels per point.
    void want(const std::vector<std::string>& paths, qreal ratio);

    // Wants nothing, and ends the processes.
    void stop();

    // An empty thumbnail.
    static QPixmap emptyOne(qreal ratio);

Q_SIGNALS:
    // A thumbnail, kSide points each way with the picture in the middle; the icon of the file's
    // kind if it has no preview or does not come in time.
    void loaded(const std::string& path, const QPixmap& thumbnail);

private:
    void beginNext();
    void takeOpened();
    void startStep();
    void takeReply();
    void giveUp();
    void finish(const std::optional<QImage>& preview);

    OpenerClient opener_;
    OpenerEvents openerEvents_;
    ReaderClient reader_;
    ReaderEvents readerEvents_;
    QTimer next_;     // runs out when the next one may begin
    QTimer silence_;  // runs out when a disk has not answered for long
    std::deque<std::string> wanted_;
    qreal ratio_ = 1.0;

    // The one that is being read; an empty path for none.
    std::string path_;
    std::uint32_t type_ = 0;           // of what is there
    std::optional<PreviewPlan> plan_;  // nothing until it is open
    std::uint32_t ticket_ = 0;         // of the current step; 0 for none
};

}  // namespace pinorama
