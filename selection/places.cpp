#include "selection/places.h"

#include "base/file_uri.h"
#include "base/user_folders.h"

#include <QFile>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <utility>

namespace pinorama {
namespace {

constexpr qint64 kLongestFile = 1 << 20;  // bytes

QByteArray contentOf(const std::string& path)
{
    QFile file(QFile::decodeName(path.c_str()));
    return file.open(QIODevice::ReadOnly) ? file.read(kLongestFile) : QByteArray();
}

QString lastPart(const std::string& path)
{
    return QString::fromStdString(path.substr(path.rfind('/') + 1));
}

void addPath(std::vector<Place>& places, const std::string& path)
{
    if (path.size() > 1) places.push_back({lastPart(path), path});
}

// Lines of an address and, after a blank, a name.
void addBookmarks(std::vector<Place>& places, const std::string& path)
{
    for (const QByteArray& line : contentOf(path).split('\n')) {
        const qsizetype blank = line.indexOf(' ');
        const QByteArray address = blank < 0 ? line : line.left(blank);
        const auto target = pathOfFileURI(address.toStdString());
        if (!target) continue;
        if (blank >= 0) places.push_back({QString::fromUtf8(line.mid(blank + 1)), *target});
        addPath(places, *target);
    }
}

// <bookmark href="file:///..."><title>...</title>
void addXbelBookmarks(std::vector<Place>& places, const std::string& path)
{
    QXmlStreamReader xml(contentOf(path));
    std::optional<std::string> target;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("bookmark")) {
            target =
                pathOfFileURI(xml.attributes().value(QLatin1String("href")).toUtf8().toStdString());
            if (target) addPath(places, *target);
        } else if (xml.name() == QLatin1String("title") && target) {
            places.push_back({xml.readElementText(), *target});
        }
    }
}
}  // namespace

std::vector<Place> places()
{
    std::vector<Place> places;
    addPath(places, homeFolder());
    for (const auto location : {QStandardPaths::DesktopLocation, QStandardPaths::PicturesLocation,
                                QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation,
                                QStandardPaths::MoviesLocation, QStandardPaths::MusicLocation}) {
        const QString path = QStandardPaths::writableLocation(location);
        addPath(places, path.toStdString());
        places.push_back({QStandardPaths::displayName(location), path.toStdString()});
    }
    addBookmarks(places, configFolder() + "/gtk-3.0/bookmarks");
    addBookmarks(places, homeFolder() + "/.gtk-bookmarks");
    addXbelBookmarks(places, dataFolder() + "/user-places.xbel");
    return places;
}

std::function<bool(const std::string&)> foldersWatchedBy(pid_t process)
{
    using Item = std::pair<std::uint64_t, std::uint64_t>;  // device as the kernel counts it, inode
    auto watched = std::make_shared<std::set<Item>>();

    const std::string folder = "/proc/" + std::to_string(process);
    std::error_code failure;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "/fd", failure)) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone) != "anon_inode:inotify") continue;
        std::ifstream lines(folder + "/fdinfo/" + entry.path().filename().string());
        // inotify wd:3 ino:9e7e sdev:800013 mask:800afce ignored_mask:0 ...
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            Item item = {};
            for (std::string word; words >> word;) {
                std::istringstream digits(word.substr(word.find(':') + 1));
                if (word.starts_with("ino:")) digits >> std::hex >> item.second;
                if (word.starts_with("sdev:")) digits >> std::hex >> item.first;
            }
            if (line.starts_with("inotify")) watched->insert(item);
        }
    }
    return [watched](const std::string& path) {
        struct stat found = {};
        if (stat(path.c_str(), &found) != 0) return false;
        const std::uint64_t device = std::uint64_t{major(found.st_dev)} << 20 | minor(found.st_dev);
        return watched->contains({device, found.st_ino});
    };
}

}  // namespace pinorama
