#include "lib/ui/file_icon.h"

#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/texts.h"
#include "tests/support/toolkit.h"

#include <QIcon>

#include <filesystem>

#include <sys/stat.h>

using namespace pinorama;

namespace {
TEST(cuIconOfItem, isNeverEmpty)
{
    QIcon::setThemeName(QStringLiteral("no such theme"));
    for (const char* path : {"/nowhere/a.jpg", "/nowhere/a", "/", "/dev/null", ""}) {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QPixmap icon = cuIconOfItem(path, QSizeF(64, 48), ratio);
            EXPECT_EQ(icon.size(),
                      QSize(static_cast<int>(64 * ratio), static_cast<int>(48 * ratio)));
            EXPECT_EQ(icon.devicePixelRatio(), ratio);
            const QImage image = icon.toImage();
            EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 255) << path;
        }
    }
}

TEST(cuIconOfItem, comesFromTheThemeForTheTypeOfTheName)
{
    // A theme of two icons, one for a type and one for its general kind.
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.file("test/16"));
    folder.write("test/index.theme",
                 "[Icon Theme]\nName=test\nDirectories=16\n[16]\nSize=16\nType=Fixed\n");
    QImage icon(16, 16, QImage::Format_ARGB32);
    icon.fill(Qt::red);
    ASSERT_TRUE(icon.save(QString::fromStdString(folder.file("test/16/text-html.png"))));
    icon.fill(Qt::green);
    ASSERT_TRUE(icon.save(QString::fromStdString(folder.file("test/16/image-x-generic.png"))));
    icon.fill(Qt::blue);
    ASSERT_TRUE(icon.save(QString::fromStdString(folder.file("test/16/inode-directory.png"))));
    QIcon::setThemeSearchPaths({QString::fromStdString(folder.path())});
    QIcon::setThemeName(QStringLiteral("test"));

    const struct {
        const char* path;
        std::uint32_t color;
    } rows[] = {{"/nowhere/a.html", 0xffff0000},
                {"/nowhere/a.jpg", 0xff00ff00},
                {"/nowhere/a.NEF", 0xff00ff00},
                {"/", 0xff0000ff}};
    for (const auto& row : rows) {
        // Larger than anything in the theme, and filled all the same.
        const QImage image = cuIconOfItem(row.path, QSizeF(64, 64), 2).toImage();
        EXPECT_EQ(image.size(), QSize(128, 128));
        EXPECT_TRUE(test::isNear(image.pixel(64, 64), row.color)) << row.path;
        EXPECT_TRUE(test::isNear(image.pixel(10, 120), row.color)) << row.path;
    }
    // The type that is given counts, whatever is at the path.
    EXPECT_EQ(cuIconOfType("/nowhere/a.html", S_IFDIR, QSizeF(64, 64), 2).toImage(),
              cuIconOfItem("/", QSizeF(64, 64), 2).toImage());
    EXPECT_EQ(cuIconOfType("/", 0, QSizeF(64, 64), 2).toImage(),
              cuIconOfItem("/nowhere/a", QSizeF(64, 64), 2).toImage());
    QIcon::setThemeName(QStringLiteral("no such theme"));
}
}  // namespace
