#include "desktop/globe_texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(makeLookAtDocument, holdsAllFiveNumbers)
{
    EXPECT_EQ(makeLookAtDocument({-33.9, 18.4, 271.25, 30.0, 2000.0}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document><LookAt>"
              "<longitude>18.400000</longitude><latitude>-33.900000</latitude>"
              "<altitude>0</altitude><heading>271.250000</heading><tilt>30.000000</tilt>"
              "<range>2000.000000</range><altitudeMode>relativeToGround</altitudeMode>"
              "</LookAt></Document></kml>\n");
}

TEST(makeLookAtDocument, clampsTheTiltToTheRangeOfKml)
{
    EXPECT_NE(makeLookAtDocument({0, 0, 0, -5.0, 1}).find("<tilt>0.000000</tilt>"),
              std::string::npos);
    EXPECT_NE(makeLookAtDocument({0, 0, 0, 120.0, 1}).find("<tilt>90.000000</tilt>"),
              std::string::npos);
}

TEST(makePlacemarkDocument, hasThePlaceAsAPlacemarkToo)
{
    const std::string document = makePlacemarkDocument({-33.9, 18.4, 271.25, 30.0, 2000.0});
    const std::string placemark =
        "<Placemark><name>-33.900000, 18.400000</name><Point>"
        "<coordinates>18.400000,-33.900000</coordinates></Point></Placemark>";
    std::string withoutIt = document;
    ASSERT_NE(document.find("</LookAt>" + placemark), std::string::npos) << document;
    withoutIt.erase(document.find(placemark),
                    document.rfind("</Document>") - document.find(placemark));
    EXPECT_EQ(withoutIt, makeLookAtDocument({-33.9, 18.4, 271.25, 30.0, 2000.0}));
}

TEST(makePlacemarkDocument, hasAnExtentThatNobodyDraws)
{
    const struct {
        const char* name;
        GlobeView view;
        const char* ring;
    } rows[] = {
        {"as far as the camera is away",
         {-33.9, 18.4, 0, 0, 1113.2},
         "18.387952,-33.910000 18.412048,-33.910000 18.412048,-33.890000 18.387952,-33.890000 "
         "18.387952,-33.910000"},
        {"100 m at least",
         {0, 0, 0, 0, 1},
         "-0.000898,-0.000898 0.000898,-0.000898 0.000898,0.000898 -0.000898,0.000898 "
         "-0.000898,-0.000898"},
        {"not beyond a pole, nor the date line",
         {90, 180, 0, 0, 1113.2},
         "179.000000,89.990000 180.000000,89.990000 180.000000,90.000000 179.000000,90.000000 "
         "179.000000,89.990000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string document = makePlacemarkDocument(row.view);
        EXPECT_NE(document.find("<Polygon><innerBoundaryIs><LinearRing><coordinates>" +
                                std::string(row.ring) + "</coordinates>"),
                  std::string::npos)
            << document;
        EXPECT_EQ(document.find("outerBoundaryIs"), std::string::npos);
    }
}

TEST(makeFlyToQuery, isOneLineThatBeginsWithTheKeyword)
{
    const std::string query = makeFlyToQuery({1.5, 2.5, 3.5, 4.5, 5.5});
    EXPECT_EQ(query,
              "flytoview=<LookAt><longitude>2.500000</longitude><latitude>1.500000</latitude>"
              "<altitude>0</altitude><heading>3.500000</heading><tilt>4.500000</tilt>"
              "<range>5.500000</range><altitudeMode>relativeToGround</altitudeMode></LookAt>\n");
}

TEST(queryFileOfDriverSettings, findsTheSettingAnywhereInTheFile)
{
    const struct {
        const char* name;
        const char* settings;
        const char* expected;
    } rows[] = {
        {"empty", "", ""},
        {"no such setting", "SETTINGS {\n ViewSync/send = false\n}\n", ""},
        {"plain", "ViewSync/queryFile = /tmp/query.txt\n", "/tmp/query.txt"},
        {"inside a block, with a carriage return", "SETTINGS {\r\n\tViewSync/queryFile=/q\r\n}",
         "/q"},
        {"quoted, with a blank", "ViewSync/queryFile = \"/tmp/my query\"", "/tmp/my query"},
        {"commented out", "; ViewSync/queryFile = /tmp/no\n", ""},
        {"a longer name", "ViewSync/queryFileName = /tmp/no\n", ""},
        {"empty value", "ViewSync/queryFile =\n", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(queryFileOfDriverSettings(row.settings), row.expected);
    }
}

TEST(marbleZoom, fallsWithTheLogarithmOfTheDistance)
{
    EXPECT_EQ(marbleZoom(1000.0), 2879);
    EXPECT_EQ(marbleZoom(49000.0), 2101);
    EXPECT_EQ(marbleZoom(2000.0), 2741);
    EXPECT_EQ(marbleZoom(0.0), marbleZoom(1.0)) << "the distance is at least a metre";
}
