#include "app/drawing.h"

#include "tests/support/environment.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

const char* const kHeader =
    "P7\nWIDTH 2\nHEIGHT 1\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";

QImage drawingOf(const std::string& bytes)
{
    const test::TemporaryFolder folder;
    return readDrawing(QString::fromStdString(folder.write("drawing.pam", bytes)));
}

std::string replaced(std::string text, const std::string& part, const std::string& by)
{
    return text.replace(text.find(part), part.size(), by);
}
}  // namespace

TEST(readDrawing, givesThePixels)
{
    const QImage image = drawingOf(std::string(kHeader) + "\x01\x02\x03\x04\xFF\xFE\xFD\x80");
    ASSERT_EQ(image.size(), QSize(2, 1));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(1, 2, 3, 4));
    EXPECT_EQ(image.pixelColor(1, 0), QColor(255, 254, 253, 128));
}

TEST(readDrawing, isNullForEverythingElse)
{
    const std::string header = kHeader;
    const std::string pixels(8, 'x');
    EXPECT_TRUE(readDrawing(QStringLiteral(":/pinorama/none.pam")).isNull());
    struct Row {
        const char* name;
        std::string bytes;
    };
    for (const Row& row :
         {Row{"empty", ""}, Row{"another kind", "P6\n" + header.substr(3) + pixels},
          Row{"no end of the header", replaced(header, "ENDHDR\n", "") + pixels},
          Row{"a pixel too few", header + pixels.substr(4)},
          Row{"a byte too many", header + pixels + "x"},
          Row{"no width", replaced(header, "WIDTH 2\n", "") + pixels},
          Row{"a negative width", replaced(header, "WIDTH 2", "WIDTH -2") + pixels},
          Row{"a width that is no number", replaced(header, "WIDTH 2", "WIDTH two") + pixels},
          Row{"a width beyond measure", replaced(header, "WIDTH 2", "WIDTH 2000000000") + pixels},
          Row{"three channels", replaced(header, "DEPTH 4", "DEPTH 3") + pixels},
          Row{"16 bits", replaced(header, "MAXVAL 255", "MAXVAL 65535") + pixels}}) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(drawingOf(row.bytes).isNull());
    }
}

TEST(drawnIcon, isTheOneThatTheDesktopShows)
{
    const QIcon icon = drawnIcon(QStringLiteral("icon"), {16, 32, 48, 64});
    ASSERT_EQ(icon.availableSizes().size(), 4);
    for (const int size : {16, 32, 48, 64}) {
        SCOPED_TRACE(size);
        const QString file =
            QStringLiteral(PINORAMA_ICONS "/hicolor/%1x%1/apps/org.pinorama.Pinorama.png");
        const QImage expected(file.arg(size));
        ASSERT_FALSE(expected.isNull());
        EXPECT_EQ(readDrawing(QStringLiteral(":/pinorama/icon-%1.pam").arg(size)),
                  expected.convertToFormat(QImage::Format_RGBA8888));
    }
}

TEST(drawnIcon, isThereForTheMarkerOnEveryScreen)
{
    const QIcon marker = drawnIcon(QStringLiteral("marker"), {32, 64, 96});
    for (const int size : {32, 64, 96})
        EXPECT_TRUE(marker.availableSizes().contains(QSize(size, size))) << size;
}
