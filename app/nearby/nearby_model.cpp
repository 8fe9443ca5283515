#include "app/nearby/nearby_model.h"

#include "app/shown_text.h"
#include "base/file_uri.h"
#include "base/item_path.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/file_name.h"
#include "places/words/place_words.h"

#include <QLocale>
#include <QMimeData>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace pinorama {
namespace {
constexpr double kSamePlace = 1.0;  // metres; positions are not more exact than that

QByteArray keyOf(const std::string& path)
{
    return QByteArray::fromRawData(path.data(), static_cast<qsizetype>(path.size()));
}

QString nameText(const std::string& path)
{
    const StringHolder text(createPathText(path));
    const StringHolder name(gpsCopyFileName(text.get()));
    QString shown = shownText(cuDisplayText(name.get()));
    // A line break in a name would take the line of the distance.
    for (QChar& unit : shown) {
        if (unit.isSpace()) unit = QLatin1Char(' ');
    }
    return isolated(shown);
}

QString pathText(const std::string& path)
{
    const StringHolder text(createPathText(path));
    return isolatedPath(shownText(cuDisplayText(text.get()))).toHtmlEscaped();
}
}  // namespace

NearbyModel::NearbyModel(QObject* parent) : QAbstractListModel(parent) {}

void NearbyModel::begin(const std::string& path)
{
    beginResetModel();
    around_ = path;
    aroundFile_.clear();
    pictures_.clear();
    foundCount_ = 0;
    thumbnails_.clear();
    endResetModel();
}

void NearbyModel::add(const std::vector<NearbyPicture>& pictures)
{
    const auto isNearer = [](const NearbyPicture& a, const NearbyPicture& b) {
        return std::tie(a.metres, a.path) < std::tie(b.metres, b.path);
    };
    for (const NearbyPicture& picture : pictures) {
        if (picture.path == around_) {
            leaveOut(picture.file);
            continue;
        }
        if (has(picture)) continue;
        const auto place = std::lower_bound(pictures_.begin(), pictures_.end(), picture, isNearer);
        foundCount_++;
        const auto row = static_cast<int>(place - pictures_.begin());
        if (pictures_.size() == kMaxPictures) {
            if (place == pictures_.end()) continue;
            const int last = static_cast<int>(kMaxPictures) - 1;
            beginRemoveRows({}, last, last);
            pictures_.pop_back();
            endRemoveRows();
        }
        beginInsertRows({}, row, row);
        pictures_.insert(pictures_.begin() + row, picture);
        endInsertRows();
    }
}

// Whether the picture or another name of its file is there, or is what the others lie around.
bool NearbyModel::has(const NearbyPicture& picture) const
{
    const auto isSame = [&picture](const std::string& file) {
        return !file.empty() && file == picture.file;
    };
    if (isSame(aroundFile_)) return true;
    // One file is always at one distance.
    const auto metres = &NearbyPicture::metres;
    const auto first = std::ranges::lower_bound(pictures_, picture.metres, {}, metres);
    const auto end = std::ranges::upper_bound(pictures_, picture.metres, {}, metres);
    return std::any_of(first, end, [&](const NearbyPicture& other) {
        return other.path == picture.path || isSame(other.file);
    });
}

// Takes out the picture that the others lie around, which a link may have led to.
void NearbyModel::leaveOut(const std::string& file)
{
    aroundFile_ = file;
    if (file.empty()) return;
    const auto other = std::ranges::find(pictures_, file, &NearbyPicture::file);
    if (other == pictures_.end()) return;
    const auto row = static_cast<int>(other - pictures_.begin());
    beginRemoveRows({}, row, row);
    pictures_.erase(other);
    endRemoveRows();
    foundCount_--;
}

int NearbyModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(pictures_.size());
}

QVariant NearbyModel::data(const QModelIndex& index, int role) const
{
    if (pictureOf(index) == nullptr) return {};
    const NearbyPicture& picture = *pictureOf(index);
    const auto distance = [&picture] {
        return nearbyDistanceText(picture.metres, picture.bearing);
    };
    switch (role) {
    case Qt::DisplayRole: return QString(nameText(picture.path) + QLatin1Char('\n') + distance());
    case Qt::AccessibleTextRole:
        return QString(nameText(picture.path) + QStringLiteral(", ") + distance());
    case Qt::ToolTipRole: return pathText(picture.path);
    case Qt::DecorationRole: {
        const QPixmap* thumbnail = thumbnails_.object(keyOf(picture.path));
        return thumbnail != nullptr ? *thumbnail : empty_;
    }
    default: return {};
    }
}

Qt::ItemFlags NearbyModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

QStringList NearbyModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

QMimeData* NearbyModel::mimeData(const QModelIndexList& indexes) const
{
    QByteArray list;
    for (const QModelIndex& index : indexes) {
        if (!index.isValid()) continue;
        // The raw bytes of the path: a name may be no UTF-8.
        list += QByteArray::fromStdString(fileURIOfPath(pathOf(index))) + "\r\n";
    }
    if (list.isEmpty()) return nullptr;
    auto* carried = new QMimeData;
    carried->setData(QStringLiteral("text/uri-list"), list);
    return carried;
}

const std::string& NearbyModel::pathOf(const QModelIndex& index) const
{
    static const std::string none;
    const NearbyPicture* picture = pictureOf(index);
    return picture == nullptr ? none : picture->path;
}

const NearbyPicture* NearbyModel::pictureOf(const QModelIndex& index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < pictures_.size() ? &pictures_[row] : nullptr;
}

bool NearbyModel::hasThumbnail(int row) const
{
    const std::string& path = pathOf(index(row));
    return !path.empty() && thumbnails_.contains(keyOf(path));
}

void NearbyModel::setThumbnail(const std::string& path, const QPixmap& thumbnail)
{
    const auto found =
        std::find_if(pictures_.begin(), pictures_.end(),
                     [&path](const NearbyPicture& picture) { return picture.path == path; });
    if (found == pictures_.end()) return;
    thumbnails_.insert(QByteArray::fromStdString(path), new QPixmap(thumbnail));
    const QModelIndex changed = index(static_cast<int>(found - pictures_.begin()));
    Q_EMIT dataChanged(changed, changed, {Qt::DecorationRole});
}

QString nearbyDistanceText(double metres, double bearing)
{
    //: Below a picture, in the place of a distance: it was taken where the other one was
    if (metres < kSamePlace) return NearbyModel::tr("same place");
    const StringHolder compass(createCompassText(bearing));
    const QString direction = cuDisplayText(compass.get());
    const double step = metres < 100.0 ? 1.0 : 10.0;
    const double rounded = std::round(metres / step) * step;
    if (rounded < 1000.0) {
        //: Below a picture: %1 is a distance, %2 a point of the compass: 350 m NE
        return NearbyModel::tr("%1 m %2").arg(QLocale().toString(static_cast<qint64>(rounded)),
                                              direction);
    }
    //: Below a picture: %1 is a distance, %2 a point of the compass: 1.2 km NE
    return NearbyModel::tr("%1 km %2").arg(QLocale().toString(rounded / 1000.0, 'f', 1), direction);
}

}  // namespace pinorama
