#include "cli/kmz_document.h"

#include "base/ascii.h"

#include <cerrno>
#include <cstring>

namespace pinorama {
namespace {
constexpr char kKml = 'k';
constexpr char kThumbnail = 't';
constexpr std::size_t kLengthSize = sizeof(std::uint64_t);

void appendPiece(char kind, std::string_view content, std::string* out)
{
    const std::uint64_t length = content.size();
    char bytes[kLengthSize];
    std::memcpy(bytes, &length, kLengthSize);  // the reader is the same program
    *out += kind;
    out->append(bytes, kLengthSize).append(content);
}

// FNV-1a, from another start for each half. Two of a billion paths have the same name with a
// probability of one to a quintillion.
std::uint64_t hashOf(std::string_view bytes, std::uint64_t hash)
{
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    }
    return hash;
}
}  // namespace

std::string thumbnailName(std::string_view path)
{
    std::string name = "thumbnails/";
    for (const std::uint64_t start : {0xcbf29ce484222325ULL, 0x84222325cbf29ce4ULL}) {
        const std::uint64_t hash = hashOf(path, start);
        for (int shift = 60; shift >= 0; shift -= 4) name += kLowerHexDigits[hash >> shift & 0x0f];
    }
    return name + ".jpg";
}

void appendKmlPiece(std::string_view kml, std::string* out)
{
    if (!kml.empty()) appendPiece(kKml, kml, out);
}

void appendThumbnailPiece(std::string_view name, std::string_view jpeg, std::string* out)
{
    appendPiece(kThumbnail, std::string(name).append(1, '\0').append(jpeg), out);
}

bool KmzDocument::write(std::string_view pieces)
{
    while (!pieces.empty()) {
        std::uint64_t length = 0;
        const char kind = pieces.front();
        const bool hasLength = pieces.size() > kLengthSize;
        if (hasLength) std::memcpy(&length, pieces.data() + 1, kLengthSize);
        if (!hasLength || length > pieces.size() - 1 - kLengthSize) {
            errno = EINVAL;
            return false;
        }
        pieces.remove_prefix(1 + kLengthSize);
        const std::string_view content = pieces.substr(0, length);
        pieces.remove_prefix(length);
        if (kind == kKml) {
            crc_ = crc32Of(content, crc_);
            if (!kml_.append(content)) return false;
        } else {
            const std::size_t end = content.find('\0');
            if (!zip_.add(content.substr(0, end), content.substr(end + 1))) return false;
        }
    }
    return true;
}

bool KmzDocument::finish()
{
    return zip_.add("doc.kml", kml_, crc_) && zip_.finish();
}

}  // namespace pinorama
