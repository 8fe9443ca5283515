// Writes the seeds of the fuzzers of previews, one file per case, into FOLDER/fuzz_other_pictures
// and FOLDER/fuzz_picture_preview. Formats whose plug-in is missing are left out.

#include "tests/support/jpeg_pictures.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

using namespace pinorama;

namespace {
using Path = std::filesystem::path;

void write(const Path& folder, const std::string& name, const std::string& bytes)
{
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void writeOtherPictures(const Path& folder)
{
    QImage image(12, 9, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); y++) {
        for (int x = 0; x < image.width(); x++) {
            image.setPixelColor(x, y, QColor(x * 20, y * 28, 90, x < 6 ? 255 : 128));
        }
    }
    for (const char* format : {"png", "bmp", "ppm", "pgm", "pbm", "xpm", "ico", "webp", "tiff"}) {
        QBuffer buffer;
        QImageWriter writer(&buffer, format);
        if (buffer.open(QIODevice::WriteOnly) && writer.write(image)) {
            write(folder, format, buffer.data().toStdString());
        }
    }
    image.setText(QStringLiteral("Thumb::URI"), QStringLiteral("file:///a.jpg"));
    image.setText(QStringLiteral("Thumb::MTime"), QStringLiteral("1"));
    QBuffer thumbnail;
    if (thumbnail.open(QIODevice::WriteOnly) && image.save(&thumbnail, "png")) {
        write(folder, "thumbnail", thumbnail.data().toStdString());
    }
    using namespace std::string_literals;
    write(folder, "gif", "GIF89a\1\0\1\0\x80\0\0\xff\0\0\0\0\xff,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s);
    write(folder, "tga", "\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\x18\0\1\2\3\4\5\6"s);
    write(folder, "icns", "icns\0\0\0\x30ics#\0\0\0\x28"s + std::string(32, '\x5a'));
}

// A TIFF block, little endian, whose directories grow entry by entry.
class Directory {
public:
    explicit Directory(std::uint32_t start) : start_(start) {}

    void add(std::uint16_t tag, std::uint16_t type, std::uint32_t count, std::uint32_t value)
    {
        put16(&entries_, tag);
        put16(&entries_, type);
        put32(&entries_, count);
        put32(&entries_, value);
        count_++;
    }
    void addText(std::uint16_t tag, const std::string& text)
    {
        const std::uint32_t entryCount = 16;  // room that is kept for entries
        add(tag, 2, static_cast<std::uint32_t>(text.size() + 1),
            start_ + 2 + 12 * entryCount + 4 + static_cast<std::uint32_t>(texts_.size()));
        texts_ += text + '\0';
    }
    // Of 16 entries and their texts.
    std::string bytes() const
    {
        std::string all;
        put16(&all, count_);
        all += entries_;
        put32(&all, 0);
        all.resize(2 + 12 * 16 + 4);
        return all + texts_;
    }

    static void put16(std::string* out, std::uint32_t value)
    {
        *out += static_cast<char>(value);
        *out += static_cast<char>(value >> 8);
    }
    static void put32(std::string* out, std::uint32_t value)
    {
        put16(out, value);
        put16(out, value >> 16);
    }

private:
    std::uint32_t start_;
    std::uint16_t count_ = 0;
    std::string entries_;
    std::string texts_;
};

// A digital negative of 16 x 16 raw pixels with a JPEG preview in its first directory.
std::string digitalNegative()
{
    constexpr std::uint32_t kSubDirectory = 512;
    constexpr std::uint32_t kRaw = 1024;
    constexpr std::uint32_t kPreview = kRaw + 16 * 16 * 2;
    const std::string preview = test::jpegOfQuarters(40, 24);
    Directory first(8);
    first.add(254, 4, 1, 1);  // a preview
    first.add(256, 4, 1, 40);
    first.add(257, 4, 1, 24);
    first.add(258, 3, 1, 8);
    first.add(259, 3, 1, 7);  // JPEG
    first.add(262, 3, 1, 6);  // YCbCr
    first.addText(271, "Maker");
    first.addText(272, "Camera");
    first.add(273, 4, 1, kPreview);
    first.add(277, 3, 1, 3);
    first.add(279, 4, 1, static_cast<std::uint32_t>(preview.size()));
    first.add(330, 4, 1, kSubDirectory);
    first.add(50706, 1, 4, 0x00000401);  // version 1.4
    Directory raw(kSubDirectory);
    raw.add(254, 4, 1, 0);
    raw.add(256, 4, 1, 16);
    raw.add(257, 4, 1, 16);
    raw.add(258, 3, 1, 16);
    raw.add(259, 3, 1, 1);      // not compressed
    raw.add(262, 3, 1, 32803);  // colour filter array
    raw.add(273, 4, 1, kRaw);
    raw.add(277, 3, 1, 1);
    raw.add(278, 4, 1, 16);
    raw.add(279, 4, 1, 16 * 16 * 2);
    raw.add(33421, 3, 2, 0x00020002);
    raw.add(33422, 1, 4, 0x02010100);
    std::string file = std::string("II*\0\x08\0\0\0", 8) + first.bytes();
    file.resize(kSubDirectory);
    file += raw.bytes();
    file.resize(kPreview, '\x40');
    return file + preview;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: other_picture_seeds FOLDER\n", stderr);
        return 2;
    }
    const Path folder = argv[1];
    writeOtherPictures(folder / "fuzz_other_pictures");
    writeOtherPictures(folder / "fuzz_picture_preview");
    write(folder / "fuzz_picture_preview", "dng", digitalNegative());
    write(folder / "fuzz_picture_preview", "jpeg", test::jpegOfQuarters(40, 24));
    return 0;
}
