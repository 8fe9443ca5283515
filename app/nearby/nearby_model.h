// The pictures of a search, the nearest first, while the search goes on. Keeps the nearest
// kMaxPictures of them, and the thumbnails of those that were seen last, so that a search that
// finds a whole collection takes no more room than a window can show.

#pragma once

#include "app/nearby/nearby_list.h"

#include <QAbstractListModel>
#include <QByteArray>
#include <QCache>
#include <QPixmap>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pinorama {

class NearbyModel : public QAbstractListModel {
    Q_OBJECT

public:
    static constexpr std::size_t kMaxPictures = 2000;
    static constexpr int kMaxThumbnails = 400;

    explicit NearbyModel(QObject* parent = nullptr);

    // Forgets everything. Pictures found from now on lie around the one at `path`, which is left
    // out of them, under all of its names.
    void begin(const std::string& path);

    // Puts pictures into their places. One that is there already, because it lies in two of the
    // folders or a link leads to it, is passed over.
    void add(const std::vector<NearbyPicture>& pictures);

    // How many pictures were found, with those that are not kept.
    std::uint64_t foundCount() const { return foundCount_; }

    int rowCount(const QModelIndex& parent = {}) const override;

    // Qt::DisplayRole is the name and, in a second line, distance and direction;
    // Qt::AccessibleTextRole the same in one line; Qt::ToolTipRole the path; Qt::DecorationRole the
    // thumbnail, or an empty one of the same size.
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // A drag carries the files' addresses.
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

    // The path of a row, in the bytes of the system; empty for no row.
    const std::string& pathOf(const QModelIndex& index) const;

    bool hasThumbnail(int row) const;
    void setThumbnail(const std::string& path, const QPixmap& thumbnail);

    // Stands for thumbnails that are still to come.
    void setEmptyThumbnail(const QPixmap& empty) { empty_ = empty; }

private:
    const NearbyPicture* pictureOf(const QModelIndex& index) const;
    bool has(const NearbyPicture& picture) const;
    void leaveOut(const std::string& file);

    std::string around_;
    std::string aroundFile_;  // empty until the search has found that picture
    std::vector<NearbyPicture> pictures_;
    std::uint64_t foundCount_ = 0;
    QCache<QByteArray, QPixmap> thumbnails_{kMaxThumbnails};
    QPixmap empty_;
};

// "350 m NE", "1.2 km SSW", or that it is the same place; numbers as the user's locale has them.
//
//   metres   not negative.
//   bearing  degrees clockwise from north.
QString nearbyDistanceText(double metres, double bearing);

}  // namespace pinorama
