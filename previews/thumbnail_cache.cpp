#include "previews/thumbnail_cache.h"

#include "previews/png_writer.h"

#include <QCryptographicHash>
#include <QImage>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
struct Size {
    const char* name;
    int side;
};

constexpr Size kSizes[] = {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}};

// What GLib, and so the GNOME programs, leave as it is in the path of a URI besides letters and
// digits; and what Qt, and so the KDE programs, do.
constexpr std::string_view kPlainForGLib = "-_.!~*'()&=+$,:@/";
constexpr std::string_view kPlainForQt = "-_.!~*'()&=+$,:@/;";

std::string uriOf(const std::string& path, std::string_view plain)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string uri = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isAlphanumeric = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                                    (byte >= 'a' && byte <= 'z');
        if (isAlphanumeric || plain.find(c) != std::string_view::npos) {
            uri += c;
        } else {
            uri += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return uri;
}

// Empty when there is no home folder; an XDG path that is not absolute counts as unset.
std::string cacheFolder()
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

bool isInCache(const std::string& path, const std::string& cache)
{
    if (isInside(path, cache)) return true;
    std::error_code error;
    const std::filesystem::path realPath = std::filesystem::canonical(path, error);
    if (error) return false;
    const std::filesystem::path realCache = std::filesystem::canonical(cache, error);
    return !error && isInside(realPath.string(), realCache.string());
}

std::string fileName(const std::string& uri)
{
    return QCryptographicHash::hash(QByteArrayView(uri.data(), static_cast<qsizetype>(uri.size())),
                                    QCryptographicHash::Md5)
               .toHex()
               .toStdString() +
           ".png";
}

bool makeFolders(const std::string& folder)
{
    std::size_t end = 0;
    while (end != std::string::npos) {
        end = folder.find('/', end + 1);
        if (mkdir(folder.substr(0, end).c_str(), 0700) != 0 && errno != EEXIST) return false;
    }
    return true;
}

QByteArray pngOf(const QImage& image, const ThumbnailLabel& label, std::uint64_t fileSize)
{
    return cuMakePNG(image, {{"Thumb::URI", label.uri},
                             {"Thumb::MTime", std::to_string(label.mtime)},
                             {"Thumb::Size", std::to_string(fileSize)},
                             {"Software", "Pinorama"}});
}

bool writeAll(int descriptor, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count = write(descriptor, bytes.constData() + done,
                                    static_cast<std::size_t>(bytes.size() - done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        done += count;
    }
    return true;
}

void replaceFile(const std::string& path, const QByteArray& bytes)
{
    std::string temporary = path + ".XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);  // readable by the user alone
    if (descriptor < 0) return;
    const bool isWritten = writeAll(descriptor, bytes);
    // Some file systems tell only now that there was no room.
    const bool isComplete = close(descriptor) == 0 && isWritten;
    if (!isComplete || rename(temporary.c_str(), path.c_str()) != 0) unlink(temporary.c_str());
}
}  // namespace

bool ThumbnailLabel::matches(std::string_view uriText, std::string_view mtimeText) const
{
    return uriText == uri && mtimeText == std::to_string(mtime);
}

std::vector<ThumbnailPlace> cuThumbnailPlaces(const std::string& path, std::int64_t mtime, int side)
{
    const std::string cache = cacheFolder();
    if (cache.empty() || path.empty() || path.front() != '/' || isInCache(path, cache)) return {};

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
    const std::string cache = cacheFolder();
    if (cache.empty() || path.empty() || path.front() != '/' || isInCache(path, cache)) return;
    if (image.isNull() || image.width() > side || image.height() > side) return;
    for (const Size& size : kSizes) {
        if (size.side != side) continue;
        const ThumbnailLabel label = {uriOf(path, kPlainForGLib), mtime};
        const std::string folder = cache + "/" + size.name;
        const QByteArray png = pngOf(image, label, fileSize);
        if (!png.isEmpty() && makeFolders(folder))
            replaceFile(folder + "/" + fileName(label.uri), png);
    }
}

}  // namespace pinorama
