#include "selection/named_folders.h"

#include "base/file_uri.h"
#include "base/user_folders.h"

#include <QFile>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <optional>

namespace pinorama {
namespace {

constexpr qint64 kMaxFileSize = 1 << 20;  // bytes

QByteArray contentOf(const std::string& path)
{
    QFile file(QFile::decodeName(path.c_str()));
    return file.open(QIODevice::ReadOnly) ? file.read(kMaxFileSize) : QByteArray();
}

QString lastPart(const std::string& path)
{
    return QString::fromStdString(path.substr(path.rfind('/') + 1));
}

void addPath(std::vector<NamedFolder>& folders, const std::string& path)
{
    if (path.size() > 1) folders.push_back({lastPart(path), path});
}

// Each line is a URI and, after a blank, possibly a name.
void addBookmarks(std::vector<NamedFolder>& folders, const std::string& path)
{
    for (const QByteArray& line : contentOf(path).split('\n')) {
        const qsizetype blank = line.indexOf(' ');
        const QByteArray uri = blank < 0 ? line : line.left(blank);
        const auto target = pathOfFileURI(uri.toStdString());
        if (!target) continue;
        if (blank >= 0) folders.push_back({QString::fromUtf8(line.mid(blank + 1)), *target});
        addPath(folders, *target);
    }
}

// Each entry is <bookmark href="file:///..."><title>...</title>...</bookmark>.
void addXbelBookmarks(std::vector<NamedFolder>& folders, const std::string& path)
{
    QXmlStreamReader xml(contentOf(path));
    std::optional<std::string> target;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("bookmark")) {
            target =
                pathOfFileURI(xml.attributes().value(QLatin1String("href")).toUtf8().toStdString());
            if (target) addPath(folders, *target);
        } else if (xml.name() == QLatin1String("title") && target) {
            folders.push_back({xml.readElementText(), *target});
        }
    }
}
}  // namespace

std::vector<NamedFolder> namedFolders()
{
    std::vector<NamedFolder> folders;
    addPath(folders, homeFolder());
    for (const auto location : {QStandardPaths::DesktopLocation, QStandardPaths::PicturesLocation,
                                QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation,
                                QStandardPaths::MoviesLocation, QStandardPaths::MusicLocation}) {
        const QString path = QStandardPaths::writableLocation(location);
        addPath(folders, path.toStdString());
        folders.push_back({QStandardPaths::displayName(location), path.toStdString()});
    }
    addBookmarks(folders, configFolder() + "/gtk-3.0/bookmarks");
    addBookmarks(folders, homeFolder() + "/.gtk-bookmarks");
    addXbelBookmarks(folders, dataFolder() + "/user-places.xbel");
    return folders;
}

}  // namespace pinorama
