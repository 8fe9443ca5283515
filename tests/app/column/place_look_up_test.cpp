// The places of pictures, with programs of the test's own in the place of the one that reads them.

#include "app/column/place_look_up.h"

#include "tests/app/column/column_program.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;
using namespace std::chrono_literals;

namespace {
const QString kPlace = QStringLiteral("Near Anywhere, Italy");

class PlaceLookUpTest : public testing::Test {
protected:
    void follow(PlaceLookUp& lookUp)
    {
        QObject::connect(&lookUp, &PlaceLookUp::finished, &lookUp, [this](const QStringList& all) {
            endings++;
            places = all;
        });
    }

    // The places of `paths` by a program that does this.
    QStringList placesBy(const std::string& lines, const std::vector<std::string>& paths)
    {
        const test::SearchProgram program(lines);
        PlaceLookUp lookUp(20s);
        follow(lookUp);
        endings = 0;
        lookUp.begin(paths);
        EXPECT_FALSE(lookUp.isIdle());
        EXPECT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); }));
        EXPECT_EQ(endings, 1);
        return places;
    }

    test::ColumnResources resources;
    QStringList places;
    int endings = 0;
};
}  // namespace

TEST_F(PlaceLookUpTest, tellsTheProgramWhatToRead)
{
    const test::SearchProgram program(
        "printf '<%s>' \"$@\" > \"$FOLDER/arguments\"\n"
        "cat > \"$FOLDER/input\"");
    PlaceLookUp lookUp;
    lookUp.begin({"/a b", "/\xff"});
    ASSERT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); }));
    EXPECT_EQ(test::readFile(program.folder().file("arguments")),
              "<--quiet><--format=list><--files-from=-><--null>");
    EXPECT_EQ(test::readFile(program.folder().file("input")), std::string("/a b\0/\xff\0", 8));
}

TEST_F(PlaceLookUpTest, givesThePlacesInTheOrderOfThePaths)
{
    EXPECT_EQ(placesBy(test::located("/c") + test::located("/b", "\\0") + test::located("/a"),
                       {"/a", "/b", "/c", "/d", "/a"}),
              QStringList({kPlace, {}, kPlace, {}, kPlace}));
}

TEST_F(PlaceLookUpTest, givesTheCoordinateWhereThereAreNoWords)
{
    const auto all = placesBy(test::located("/a", "-54.5\\0-68.25"), {"/a"});
    EXPECT_TRUE(all.first().contains(QStringLiteral("54"))) << all.first().toStdString();
    EXPECT_TRUE(all.first().startsWith(QLatin1Char('S'))) << all.first().toStdString();
}

TEST_F(PlaceLookUpTest, givesWhatIsKnownIfTheProgramFails)
{
    const std::string first = test::located("/a");
    const struct {
        const char* name;
        std::string lines;
    } rows[] = {
        {"wrong usage", first + "exit 2"},
        {"a signal", first + "kill -KILL $$"},
        {"half a picture", first + "printf '/b\\00010'"},
        {"no end of a field", first + "yes | tr -d '\\n'"},
        {"no end of pictures", first + "yes /x | tr '\\n' '\\0'"},
        {"no number", first + test::located("/b", "ten\\00010")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(placesBy(row.lines, {"/a", "/b"}), QStringList({kPlace, {}}));
    }
}

TEST_F(PlaceLookUpTest, givesNothingWithoutTheProgram)
{
    const test::ScopedVariable set("PINORAMA_SEARCH", "/nowhere/pinorama-search");
    PlaceLookUp lookUp;
    follow(lookUp);
    lookUp.begin({"/a"});
    ASSERT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); }));
    EXPECT_EQ(endings, 1);
    EXPECT_EQ(places, QStringList({QString()}));
}

TEST_F(PlaceLookUpTest, endsAProgramThatTakesTooLong)
{
    const test::SearchProgram program("trap '' TERM\n" + test::located("/a") +
                                      "while :; do sleep 0.1; done");
    PlaceLookUp lookUp(500ms);
    follow(lookUp);
    lookUp.begin({"/a", "/b"});
    const qint64 process = lookUp.processID();
    ASSERT_GT(process, 0);
    ASSERT_TRUE(test::waitUntil([&] { return endings == 1; }));
    EXPECT_FALSE(lookUp.isIdle()) << "it was waited for";
    EXPECT_EQ(places.size(), 2);
    EXPECT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); })) << "it is killed at last";
    EXPECT_TRUE(test::isGone(process));
    EXPECT_EQ(endings, 1);
}

TEST_F(PlaceLookUpTest, takesTheProgramAlong)
{
    const test::SearchProgram program("exec sleep 1000");
    auto lookUp = std::make_unique<PlaceLookUp>();
    follow(*lookUp);
    lookUp->begin({"/a"});
    const qint64 process = lookUp->processID();
    ASSERT_GT(process, 0);
    lookUp.reset();
    EXPECT_TRUE(test::waitUntil([&] { return test::isGone(process); }));
    EXPECT_EQ(endings, 0);
}

TEST_F(PlaceLookUpTest, mayBeginAnewWhenItIsIdle)
{
    const test::SearchProgram program(test::located("/a"));
    PlaceLookUp lookUp(20s);
    follow(lookUp);
    QObject::connect(&lookUp, &PlaceLookUp::idle, &lookUp, [&] {
        if (endings < 3) lookUp.begin({"/a"});
    });
    lookUp.begin({"/a"});
    EXPECT_TRUE(test::waitUntil([&] { return endings == 3; }));
    EXPECT_EQ(places, QStringList({kPlace}));
}

TEST_F(PlaceLookUpTest, readsRealPicturesWithTheRealProgram)
{
    const test::TemporaryFolder folder;
    const test::PictureFields place = {.lat = 10, .latRef = "N", .lon = 10, .lonRef = "E"};
    const std::string first = folder.write("n\xff.jpg", test::pictureWithGps(place));
    const std::string none = folder.write("none.jpg", test::pictureWithGps({}));
    const std::string text = folder.write("text.txt", test::pictureWithGps(place));
    PlaceLookUp lookUp(60s);
    follow(lookUp);
    lookUp.begin({none, folder.file("missing.jpg"), first, text, folder.path()});
    ASSERT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); }));
    EXPECT_EQ(places, QStringList({{}, {}, kPlace, {}, {}}));
}
