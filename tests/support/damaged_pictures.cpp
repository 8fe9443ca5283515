#include "tests/support/damaged_pictures.h"

#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"

#include <algorithm>

using namespace pinorama;

namespace {
// A generator whose numbers are the same with every standard library.
class Numbers {
public:
    explicit Numbers(std::uint32_t seed) : state_(seed * 2654435761u + 1) {}

    std::uint32_t next()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }

    // 0 to `end` - 1.
    std::size_t below(std::size_t end) { return end == 0 ? 0 : next() % end; }

private:
    std::uint32_t state_;
};

constexpr unsigned char kExtremes[] = {0x00, 0x01, 0x7f, 0x80, 0xfe, 0xff};

void damageOnce(std::string* bytes, Numbers* numbers)
{
    if (bytes->empty()) return;
    // Most of what is parsed stands at the beginning.
    const std::size_t reach =
        numbers->below(4) == 0 ? bytes->size() : std::min<std::size_t>(bytes->size(), 1024);
    const std::size_t place = numbers->below(reach);
    const std::size_t length = std::min(bytes->size() - place, 1 + numbers->below(64));
    switch (numbers->below(7)) {
    case 0:
    case 1: (*bytes)[place] = static_cast<char>((*bytes)[place] ^ (1 << numbers->below(8))); break;
    case 2:
        for (std::size_t i = 0; i < std::min<std::size_t>(length, 4); i++) {
            (*bytes)[place + i] =
                static_cast<char>(kExtremes[numbers->below(std::size(kExtremes))]);
        }
        break;
    case 3: bytes->insert(place, bytes->substr(numbers->below(bytes->size()), length)); break;
    case 4: bytes->erase(place, length); break;
    case 5:
        for (std::size_t i = 0; i < length; i++) {
            (*bytes)[place + i] = static_cast<char>(numbers->next());
        }
        break;
    default: bytes->resize(numbers->below(bytes->size()));
    }
}
}  // namespace

std::vector<test::NamedPicture> test::soundPictures()
{
    const PictureFields fields = everyField(ByteOrder::big);
    const std::string tiff = tiffWithGps(fields);
    const std::string thumbnail = jpegOfQuarters(160, 120);
    std::vector<NamedPicture> pictures;
    pictures.push_back({"place.jpg", pictureWithGps(fields)});
    pictures.push_back({"quarters.jpeg", jpegOfQuarters(320, 240, {.exif = tiff})});
    pictures.push_back(
        {"thumbnail.jpg", jpegOfQuarters(320, 240, {.exif = exifWithThumbnail(6, thumbnail)})});
    pictures.push_back({"progressive.jpg",
                        jpegOfQuarters(320, 240, {.kind = JpegKind::progressive, .exif = tiff})});
    pictures.push_back({"inks.jpg", jpegOfQuarters(200, 100, {.kind = JpegKind::cmykOfAdobe})});
    pictures.push_back({"raw.nef", tiff});
    pictures.push_back({"preview.dng", exifWithThumbnail(8, thumbnail)});
    pictures.push_back({"raw.raf", rafPicture(pictureWithGps(fields))});
    pictures.push_back({"raw.mrw", mrwPicture(tiff)});
    pictures.push_back({"raw.crw", crwPicture()});
    return pictures;
}

std::string test::damaged(std::string bytes, std::uint32_t seed)
{
    Numbers numbers(seed);
    for (std::size_t times = 1 + numbers.below(12); times > 0; times--) {
        damageOnce(&bytes, &numbers);
    }
    return bytes;
}
