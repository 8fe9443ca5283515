#include "previews/thumbnail_cache.h"

#include "base/percent_escape.h"
#include "base/replacing_file.h"
#include "base/user_folders.h"
#include "previews/png_writer.h"

#include <QCryptographicHash>
#include <QImage>

#include <cstdlib>
#include <filesystem>

namespace pinorama {
namespace {
struct Size {
    const char* name;
    int side;
};

constexpr Size kSizes[] = {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}};

// What stays in the path of a URI besides letters and digits: for GLib, and so for the GNOME
// programs, what RFC 2396 allows there; for Qt, and so for the KDE programs, the semicolon as well.
constexpr std::string_view kPlainForGLib = "-_.!~*'()&=+$,:@/";
constexpr std::string_view kPlainForQt = "-_.!~*'()&=+$,:@/;";

std::string uriOf(const std::string& path, std::string_view plain)
{
    return "file://" + percentEscaped(path, plain);
}

// Empty when there is no home folder; an XDG path that is not absolute counts as unset.
std::string thumbnailFolder()
{
    const char* cache = std::getenv("XDG_CACHE_HOME");
    if (cache != nullptr && *cache == '/') return std::string(cache) + "/thumbnails";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home != '/') return {};
    return std::string(home) + "/.cache/thumbnails";
}

bool isInside(const std::string& path, const std::string& folder)
{
    return path.compare(0, folder.size() + 1, folder + "/") == 0;
}

std::string fileName(const std::string& uri)
{
    return QCryptographicHash::hash(QByteArrayView(uri.data(), static_cast<qsizetype>(uri.size())),
                                    QCryptographicHash::Md5)
               .toHex()
               .toStdString() +
           ".png";
}

QByteArray pngOf(const QImage& image, const ThumbnailLabel& label, std::uint64_t fileSize)
{
    return cuMakePNG(image, {{"Thumb::URI", label.uri},
                             {"Thumb::MTime", std::to_string(label.mtime)},
                             {"Thumb::Size", std::to_string(fileSize)},
                             {"Software", "Pinorama"}});
}

void replaceFile(const std::string& path, const QByteArray& bytes)
{
    ReplacingFile file({.durability = Durability::none, .ownMode = 0600});
    const std::string_view content(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    // A thumbnail that cannot be kept is made again the next time.
    (void)(file.begin(path) && file.write(content) && file.finish());
}
}  // namespace

bool ThumbnailLabel::matches(std::string_view uriText, std::string_view mtimeText) const
{
    return uriText == uri && mtimeText == std::to_string(mtime);
}

bool cuIsInThumbnailCache(const std::string& path, const std::string& realPath)
{
    const std::string cache = thumbnailFolder();
    if (cache.empty()) return false;
    if (isInside(path, cache)) return true;
    std::error_code error;
    const std::filesystem::path realCache = std::filesystem::canonical(cache, error);
    return !error && isInside(realPath, realCache.string());
}

std::vector<ThumbnailPlace> cuThumbnailPlaces(const std::string& path, std::int64_t mtime, int side)
{
    const std::string cache = thumbnailFolder();
    if (cache.empty() || path.empty() || path.front() != '/') return {};

    std::vector<std::string> uris = {uriOf(path, kPlainForGLib)};
    if (const std::string other = uriOf(path, kPlainForQt); other != uris[0]) uris.push_back(other);
    std::vector<ThumbnailPlace> places;
    for (const Size& size : kSizes) {
        if (size.side < side) continue;
        for (const std::string& uri : uris) {
            places.push_back({cache + "/" + size.name + "/" + fileName(uri), {uri, mtime}});
        }
    }
    return places;
}

void cuStoreThumbnail(const std::string& path, std::int64_t mtime, std::uint64_t fileSize, int side,
                      const QImage& image)
{
    const std::string cache = thumbnailFolder();
    if (cache.empty() || path.empty() || path.front() != '/') return;
    if (image.isNull() || image.width() > side || image.height() > side) return;
    for (const Size& size : kSizes) {
        if (size.side != side) continue;
        const ThumbnailLabel label = {uriOf(path, kPlainForGLib), mtime};
        const std::string folder = cache + "/" + size.name;
        const QByteArray png = pngOf(image, label, fileSize);
        if (!png.isEmpty() && makeFolders(folder, 0700))
            replaceFile(folder + "/" + fileName(label.uri), png);
    }
}

}  // namespace pinorama
