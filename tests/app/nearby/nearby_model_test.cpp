// The pictures of a search as a model, without a window.

#include "app/nearby/nearby_model.h"

#include "lib/ui/application_bundle.h"
#include "tests/support/environment.h"
#include "tests/support/mirrored.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QMimeData>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

std::string pathsOf(const NearbyModel& model)
{
    std::string paths;
    for (int row = 0; row < model.rowCount(); row++) paths += model.pathOf(model.index(row)) + " ";
    return paths;
}

std::string textOf(const NearbyModel& model, int row, int role)
{
    return model.data(model.index(row), role).toString().toStdString();
}

QPixmap filled(Qt::GlobalColor colour)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(colour);
    return pixmap;
}

bool isFilled(const NearbyModel& model, int row, Qt::GlobalColor colour)
{
    const auto pixmap = model.data(model.index(row), Qt::DecorationRole).value<QPixmap>();
    return !pixmap.isNull() && pixmap.toImage().pixelColor(4, 4) == QColor(colour);
}
}  // namespace

TEST(NearbyModel, putsTheNearestFirst)
{
    NearbyModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.begin("/here.jpg");
    EXPECT_EQ(model.rowCount(), 0);
    model.add({{"/c", 30, 0}, {"/a", 10, 0}, {"/here.jpg", 0, 0}});
    model.add({{"/z", 10, 0}, {"/b", 20, 0}, {"/0", 0, 0}});
    EXPECT_EQ(pathsOf(model), "/0 /a /z /b /c ");
    EXPECT_EQ(model.foundCount(), 5u);
    model.add({{"/b", 20, 0}});
    EXPECT_EQ(model.foundCount(), 5u) << "it is there already";
    model.begin("/b");
    EXPECT_EQ(pathsOf(model), "");
    EXPECT_EQ(model.foundCount(), 0u);
}

TEST(NearbyModel, hasAFileOnceHoweverManyLinksLeadToIt)
{
    NearbyModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.begin("/here.jpg");
    model.add({{"/b", 20, 0, "1:2"}, {"/x", 20, 0, "1:3"}, {"/unknown", 20, 0, ""}});
    model.add({{"/a", 20, 0, "1:2"}, {"/z", 20, 0, "1:2"}, {"/unknown too", 20, 0, ""}});
    EXPECT_EQ(pathsOf(model), "/b /unknown /unknown too /x ");
    EXPECT_EQ(model.foundCount(), 4u);
}

TEST(NearbyModel, leavesOutLinksToThePictureInTheMiddle)
{
    NearbyModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.begin("/here.jpg");
    model.add({{"/link before", 0, 0, "1:2"}, {"/other", 0, 0, "1:3"}});
    EXPECT_EQ(pathsOf(model), "/link before /other ");
    model.add({{"/here.jpg", 0, 0, "1:2"}, {"/link after", 0, 0, "1:2"}});
    EXPECT_EQ(pathsOf(model), "/other ");
    EXPECT_EQ(model.foundCount(), 1u);
    model.begin("/other");
    model.add({{"/link", 0, 0, "1:2"}});
    EXPECT_EQ(pathsOf(model), "/link ");
}

TEST(NearbyModel, keepsTheNearest)
{
    constexpr int kAll = 3 * static_cast<int>(NearbyModel::kMaxPictures);
    std::vector<NearbyPicture> pictures;
    for (int i = 0; i < kAll; i++) pictures.push_back({"/" + std::to_string(i), i * 1.0, 0});
    std::shuffle(pictures.begin(), pictures.end(), std::mt19937(1));
    NearbyModel model;
    model.begin("/here.jpg");
    model.add(pictures);
    ASSERT_EQ(model.rowCount(), static_cast<int>(NearbyModel::kMaxPictures));
    EXPECT_EQ(model.foundCount(), static_cast<std::uint64_t>(kAll));
    for (int row = 0; row < model.rowCount(); row++) {
        ASSERT_EQ(model.pathOf(model.index(row)), "/" + std::to_string(row));
    }
}

TEST(NearbyModel, hasTheTextsOfARow)
{
    iuRegisterApplicationBundle();
    NearbyModel model;
    model.begin("/here.jpg");
    model.add({{"/a/<b>\nc.jpg", 352, 44}});
    EXPECT_EQ(textOf(model, 0, Qt::DisplayRole), "<b> c.jpg\n350 m NE");
    EXPECT_EQ(textOf(model, 0, Qt::AccessibleTextRole), "<b> c.jpg, 350 m NE");
    EXPECT_EQ(textOf(model, 0, Qt::ToolTipRole), "/a/&lt;b&gt;\nc.jpg");
    EXPECT_FALSE(model.data(model.index(1), Qt::DisplayRole).isValid());
    EXPECT_EQ(model.pathOf(model.index(1)), "");
}

TEST(NearbyModel, isolatesNamesAndPathsInAMirroredWindow)
{
    iuRegisterApplicationBundle();
    const test::Mirrored mirrored;
    NearbyModel model;
    model.begin("/here.jpg");
    model.add({{"/a/c.jpg", 352, 44}});
    EXPECT_EQ(textOf(model, 0, Qt::DisplayRole), "\u2068c.jpg\u2069\n350 m NE");
    EXPECT_EQ(textOf(model, 0, Qt::AccessibleTextRole), "\u2068c.jpg\u2069, 350 m NE");
    EXPECT_EQ(textOf(model, 0, Qt::ToolTipRole), "\u2066/\u2068a\u2069/\u2068c.jpg\u2069\u2069");
    EXPECT_EQ(model.pathOf(model.index(0)), "/a/c.jpg");
}

TEST(NearbyModel, dragsTheFiles)
{
    NearbyModel model;
    model.begin("/here.jpg");
    model.add({{"/a b.jpg", 1, 0}, {"/\xff.jpg", 2, 0}, {"/c.jpg", 3, 0}});
    const std::unique_ptr<QMimeData> carried(model.mimeData({model.index(0), model.index(1)}));
    ASSERT_NE(carried, nullptr);
    EXPECT_EQ(carried->data(QStringLiteral("text/uri-list")).toStdString(),
              "file:///a%20b.jpg\r\nfile:///%FF.jpg\r\n");
    EXPECT_EQ(model.mimeData({}), nullptr);
    EXPECT_TRUE(model.flags(model.index(0)) & Qt::ItemIsDragEnabled);
    EXPECT_EQ(model.supportedDragActions(), Qt::CopyAction);
}

TEST(NearbyModel, keepsThumbnailsWithTheirPictures)
{
    NearbyModel model;
    model.setEmptyThumbnail(filled(Qt::white));
    model.begin("/here.jpg");
    model.add({{"/b", 2, 0}});
    EXPECT_TRUE(isFilled(model, 0, Qt::white));
    EXPECT_FALSE(model.hasThumbnail(0));
    model.setThumbnail("/b", filled(Qt::red));
    model.setThumbnail("/gone", filled(Qt::blue));
    model.add({{"/a", 1, 0}});
    EXPECT_TRUE(isFilled(model, 0, Qt::white));
    EXPECT_TRUE(isFilled(model, 1, Qt::red));
    EXPECT_TRUE(model.hasThumbnail(1));
    EXPECT_FALSE(model.hasThumbnail(2));
    model.begin("/here.jpg");
    model.add({{"/b", 2, 0}});
    EXPECT_FALSE(model.hasThumbnail(0)) << "the file may have changed since";
}

TEST(NearbyModel, forgetsTheThumbnailsThatWereSeenFirst)
{
    NearbyModel model;
    model.begin("/here.jpg");
    std::vector<NearbyPicture> pictures;
    for (int i = 0; i <= NearbyModel::kMaxThumbnails; i++) {
        pictures.push_back({"/" + std::to_string(i), i * 1.0, 0});
    }
    model.add(pictures);
    for (const NearbyPicture& picture : pictures) {
        model.setThumbnail(picture.path, filled(Qt::red));
    }
    EXPECT_FALSE(model.hasThumbnail(0));
    EXPECT_TRUE(model.hasThumbnail(1));
    EXPECT_TRUE(model.hasThumbnail(NearbyModel::kMaxThumbnails));
}

TEST(nearbyDistanceText, isAsExactAsAPosition)
{
    iuRegisterApplicationBundle();
    const struct {
        double metres, bearing;
        const char* expected;
    } rows[] = {
        {0, 0, "same place"},      {0.99, 90, "same place"}, {1, 90, "1 m E"},
        {12.6, 180, "13 m S"},     {99.4, 359, "99 m N"},    {104, 225, "100 m SW"},
        {994, 202.5, "990 m SSW"}, {996, 0, "1.0 km N"},     {1949, 315, "1.9 km NW"},
        {2000, 67, "2.0 km ENE"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(nearbyDistanceText(row.metres, row.bearing).toStdString(), row.expected);
    }
}
