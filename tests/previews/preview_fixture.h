// Pictures to be previewed, and a thumbnail cache of the test's own beside them.

#pragma once

#include "lib/ui/preview.h"
#include "previews/file_preview.h"
#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/texts.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QImage>
#include <QPixmap>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace test {
constexpr QSizeF kSize(128, 128);

inline QPixmap pictureOf(const std::string& path, QSizeF size = kSize, std::uint8_t asIcon = 0)
{
    return imageWithPreviewOfFileAtPath(text(path).get(), size, asIcon);
}

// The colours of the quarters, as quartersOf.
inline std::vector<std::uint32_t> quartersOf(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    std::vector<std::uint32_t> colors;
    for (const int row : {1, 3}) {
        for (const int column : {1, 3}) {
            colors.push_back(image.pixel(image.width() * column / 4, image.height() * row / 4));
        }
    }
    return colors;
}

inline const std::vector<std::uint32_t> kCorners = {kRed, kGreen, kBlue, kYellow};

// A folder with pictures, and a cache folder of the test's own beside it.
class PreviewTest : public testing::Test {
protected:
    PreviewTest() { pinorama::cuInstallFilePreviews(); }

    std::string cachePath(const std::string& sizeName, const std::string& uri) const
    {
        const QByteArray hash =
            QCryptographicHash::hash(QByteArray::fromStdString(uri), QCryptographicHash::Md5);
        return folder_.file("cache/thumbnails/" + sizeName + "/" + hash.toHex().toStdString() +
                            ".png");
    }

    // Puts a thumbnail of one colour into the cache.
    void cache(const std::string& sizeName, int side, const std::string& uri, std::int64_t mtime,
               QColor color, const std::string& uriText = "?") const
    {
        QImage image(side, side / 2, QImage::Format_RGB32);
        image.fill(color);
        image.setText(QStringLiteral("Thumb::URI"),
                      QString::fromStdString(uriText == "?" ? uri : uriText));
        image.setText(QStringLiteral("Thumb::MTime"), QString::number(mtime));
        const std::string path = cachePath(sizeName, uri);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        ASSERT_TRUE(image.save(QString::fromStdString(path), "PNG"));
    }

    std::string picture(const std::string& name = "a.jpg") const
    {
        return folder_.write(name, jpegOfQuarters(600, 400));
    }

    static std::int64_t mtimeOf(const std::string& path)
    {
        struct stat status = {};
        stat(path.c_str(), &status);
        return status.st_mtim.tv_sec;
    }

    TemporaryFolder folder_;
    ScopedVariable cache_{"XDG_CACHE_HOME", folder_.file("cache").c_str()};
};

}  // namespace test
