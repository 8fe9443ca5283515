#include "nearby/place_area.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

namespace {
constexpr char kSquare[] = "[[[0,0],[10,0],[10,10],[0,10],[0,0]],[[4,4],[6,4],[6,6],[4,6],[4,4]]]";
constexpr char kTriangle[] = "[[[-20,-20],[-10,-20],[-15,-10],[-20,-20]]]";

std::string object(const std::string& type, const std::string& key, const std::string& value)
{
    return R"({"type":")" + type + R"(",")" + key + "\":" + value + '}';
}

std::string errorOf(const std::string& text)
{
    std::string error;
    EXPECT_FALSE(PlaceArea::read(text, &error)) << text;
    return error;
}
}  // namespace

TEST(PlaceArea, containsWhatIsInAPolygonAndInNoHole)
{
    const std::string polygon = object("Polygon", "coordinates", kSquare);
    const std::string feature = object("Feature", "geometry", polygon);
    const std::string both = std::string("[") + kSquare + ',' + kTriangle + ']';
    const std::string all[] = {
        object("MultiPolygon", "coordinates", both),
        object("FeatureCollection", "features",
               '[' + feature + ',' +
                   object("Feature", "geometry", object("Polygon", "coordinates", kTriangle)) +
                   ',' + object("Feature", "geometry", "null") + ',' +
                   object("Feature", "geometry", object("Point", "coordinates", "[50,50]")) + ']'),
    };
    for (const std::string& text : all) {
        std::string error;
        const auto area = PlaceArea::read(text, &error);
        ASSERT_TRUE(area) << error;
        EXPECT_TRUE(area->contains({1, 1}));
        EXPECT_TRUE(area->contains({9, 2}));
        EXPECT_FALSE(area->contains({5, 5})) << "in the hole";
        EXPECT_FALSE(area->contains({-1, 1}));
        EXPECT_FALSE(area->contains({1, 11}));
        EXPECT_TRUE(area->contains({-18, -15}));
        EXPECT_FALSE(area->contains({-11, -19})) << "in the box but beside the triangle";
    }
}

TEST(PlaceArea, takesLongitudeFirst)
{
    std::string error;
    const auto area = PlaceArea::read(
        object("Polygon", "coordinates", "[[[11,48],[12,48],[12,49],[11,49],[11,48]]]"), &error);
    ASSERT_TRUE(area);
    EXPECT_TRUE(area->contains({48.5, 11.5}));
    EXPECT_FALSE(area->contains({11.5, 48.5}));
}

TEST(PlaceArea, refusesWhatIsNoArea)
{
    EXPECT_EQ(errorOf(""), "is not JSON");
    EXPECT_EQ(errorOf("{"), "is not JSON");
    for (const char* text :
         {"{}", "[]", "1", "null", R"({"type":1})", R"({"type":"Polygon"})",
          R"({"type":"Polygon","coordinates":[]})", R"({"type":"Polygon","coordinates":[[[0,0]]]})",
          R"({"type":"Polygon","coordinates":[[[0,0],[1,"x"],[1,1],[0,0]]]})",
          R"({"type":"Polygon","coordinates":[[[0,0],[1],[1,1],[0,0]]]})",
          R"({"type":"MultiPolygon","coordinates":{}})", R"({"type":"FeatureCollection"})"}) {
        EXPECT_EQ(errorOf(text), "is not well-formed GeoJSON") << text;
    }
    EXPECT_EQ(errorOf(R"({"type":"Point","coordinates":[1,2]})"), "contains no polygon");
    EXPECT_EQ(errorOf(R"({"type":"FeatureCollection","features":[]})"), "contains no polygon");
    std::string deep = R"({"type":"GeometryCollection","geometries":[)";
    std::string text;
    for (int i = 0; i < 100; i++) text += deep;
    for (int i = 0; i < 100; i++) text += "]}";
    EXPECT_EQ(errorOf(text), "is not well-formed GeoJSON");
}
