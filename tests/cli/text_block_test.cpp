#include "cli/text_block.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

TEST(appendTextBlock, writesOneLinePerField)
{
    FileReport report{};
    report.path = "/a/b.jpg";
    report.name = "b.jpg";
    report.sizeText = "1.5 MB";
    report.modified = "today";
    report.created = "yesterday";
    report.place = PlaceReport{};
    report.place->city = "Rome";
    report.place->description = "two\nlines";
    std::string block;
    appendTextBlock(report, &block);
    EXPECT_EQ(block,
              "Path:         /a/b.jpg\n"
              "Name:         b.jpg\n"
              "Size:         1.5 MB\n"
              "Modified:     today\n"
              "Created:      yesterday\n"
              "Coordinate:\n"
              "Altitude:\n"
              "Direction:\n"
              "City:         Rome\n"
              "State:\n"
              "Country:\n"
              "Caption:      two lines\n");
}

TEST(appendTextBlock, writesThePlaceInWordsIfItHasAny)
{
    FileReport report{};
    report.namedPlace = NamedPlace{};
    report.namedPlace->words = "Near Rome, Italy";
    std::string block;
    appendTextBlock(report, &block);
    EXPECT_NE(block.find("Direction:\nPlace:        Near Rome, Italy\nCity:\n"), std::string::npos)
        << block;
}

TEST(appendTextBlock, writesWhenThePictureWasTakenAndItsPlaceInSignedDegrees)
{
    FileReport report{};
    report.taken = "2026-07-14T14:05:00-03:00";
    report.coordinate = "S 54";
    report.position = Position{-54.8018889, -0.0000001};
    std::string block;
    appendTextBlock(report, &block);
    EXPECT_NE(block.find("Created:\n"
                         "Taken:        2026-07-14 14:05:00-03:00\n"
                         "Coordinate:   S 54\n"
                         "Decimal:      -54.801889, 0.000000\n"
                         "Altitude:\n"),
              std::string::npos)
        << block;
}
