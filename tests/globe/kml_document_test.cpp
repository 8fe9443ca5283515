#include "globe/kml_document.h"

#include "tests/globe/places.h"
#include "tests/support/failing_memory.h"
#include "tests/support/golden.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace pinorama;

namespace {
using test::place;

std::string coordinatesOf(const fileInfoRecord& info)
{
    const std::string document = test::takeUTF8(gpsMakeKMLDocument(&info, nullptr)).value_or("");
    const std::size_t start = document.find("<coordinates>") + 13;
    return document.substr(start, document.find("</coordinates>") - start);
}
}  // namespace

TEST(gpsMakeKMLDocument, isTheGoldenDocument)
{
    const fileInfoRecord info = place(48.858371, 'N', 2.294481, 'E');
    const test::Text name = test::text("Tour Eiffel.JPG");
    test::expectGolden(GOLDEN_FOLDER "/tour_eiffel.kml",
                       test::takeUTF8(gpsMakeKMLDocument(&info, name.get())).value_or(""));
}

TEST(gpsMakeKMLDocument, withoutANameIsTheGoldenDocument)
{
    const fileInfoRecord info = place(33.9, 'S', 18.4, 'W');
    test::expectGolden(GOLDEN_FOLDER "/no_name.kml",
                       test::takeUTF8(gpsMakeKMLDocument(&info, nullptr)).value_or(""));
}

TEST(gpsMakeKMLDocument, roundsToSinglePrecisionBeforeTheSign)
{
    const struct {
        const char* name;
        double latti;
        char refLatti;
        double longi;
        char refLongi;
        const char* expected;
    } rows[] = {
        {"the last digit shows the rounding", 48.858371, 'N', 2.294481, 'E',
         "2.294481,48.858372,0"},
        {"south and west", 33.9, 'S', 18.4, 'W', "-18.400000,-33.900002,0"},
        {"zero", 0.0, 'N', 0.0, 'E', "0.000000,0.000000,0"},
        {"zero in the south", 0.0, 'S', 1.0, 'E', "1.000000,-0.000000,0"},
        {"no hemisphere known", 10.0, 0, 20.0, 0, "20.000000,10.000000,0"},
        {"lower-case letters are no hemisphere", 10.0, 's', 20.0, 'w', "20.000000,10.000000,0"},
        {"the letters of the other axis", 10.0, 'W', 20.0, 'S', "20.000000,10.000000,0"},
        {"date line", 0.5, 'N', 180.0, 'W', "-180.000000,0.500000,0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(coordinatesOf(place(row.latti, row.refLatti, row.longi, row.refLongi)),
                  row.expected);
    }
}

TEST(gpsMakeKMLDocument, takesTheNameAsItStandsThreeTimes)
{
    const fileInfoRecord info = place(1.0, 'N', 1.0, 'E');
    const test::Text name = test::text("a&b<c>\xc3\xa9\xf0\x9f\x93\xb7.jpg");
    const std::string document = test::takeUTF8(gpsMakeKMLDocument(&info, name.get())).value_or("");
    int found = 0;
    for (std::size_t at = document.find("a&b<c>\xc3\xa9\xf0\x9f\x93\xb7.jpg");
         at != std::string::npos; at = document.find("a&b<c>", at + 1)) {
        found++;
    }
    EXPECT_EQ(found, 3);
}

TEST(gpsMakeKMLDocument, anEmptyNameIsAName)
{
    const fileInfoRecord info = place(1.0, 'N', 1.0, 'E');
    const test::Text name = test::text("");
    const std::string document = test::takeUTF8(gpsMakeKMLDocument(&info, name.get())).value_or("");
    EXPECT_NE(document.find("<Document><name></name><StyleMap"), std::string::npos);
    EXPECT_EQ(document.find("Pinorama Export.kml"), std::string::npos);
}

TEST(gpsMakeKMLDocument, isOneLine)
{
    const fileInfoRecord info = place(1.0, 'N', 1.0, 'E');
    const std::string document = test::takeUTF8(gpsMakeKMLDocument(&info, nullptr)).value_or("\n");
    EXPECT_EQ(document.find_first_of("\r\n"), std::string::npos);
    EXPECT_TRUE(document.ends_with("</kml>"));
}

TEST(gpsMakeKMLDocument, isNullWithoutARecord)
{
    EXPECT_EQ(gpsMakeKMLDocument(nullptr, nullptr), nullptr);
}

TEST(gpsInsertKmlHeader, andFooterAppendToWhatIsThere)
{
    test::Text document = test::mutableText("before");
    gpsInsertKmlHeader(document.slot(), nullptr);
    gpsInsertKmlFooter(document.slot());
    const std::string text = test::utf8(document.get()).value_or("");
    EXPECT_TRUE(
        text.starts_with("before<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                         "<kml xmlns=\"http://earth.google.com/kml/2.1\"><Document>"
                         "<name>Pinorama Export.kml</name>"));
    EXPECT_TRUE(text.ends_with("</Style></Document></kml>"));
}

TEST(gpsInsertKmlPlacemark, isThePieceOfTheSingleDocument)
{
    const fileInfoRecord info = place(48.858371, 'N', 2.294481, 'E');
    const test::Text name = test::text("Tour Eiffel.JPG");
    TovStringRef document = TovStringCreateMutable();
    gpsInsertKmlHeader(&document, name.get());
    gpsInsertKmlPlacemark(&document, info, name.get());
    gpsInsertKmlFooter(&document);
    EXPECT_EQ(test::takeUTF8(document), test::takeUTF8(gpsMakeKMLDocument(&info, name.get())));
}

TEST(gpsMakeKMLDocument, isNullWhenMemoryRunsOut)
{
    const test::Text name = test::text(std::string(5000, 'x'));
    fileInfoRecord info{};
    gpsPrepareInfoRecord(&info);
    info.longi = info.latti = 3e38;
    EXPECT_GT(test::failEachRequest([&] { return gpsMakeKMLDocument(&info, name.get()); }), 1u);
}
