#include "cli/csv_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <sstream>
#include <string>

using namespace pinorama;

namespace {
std::string rowOf(const FileReport& report, bool isRaw = false)
{
    std::string row;
    appendCsvLine(report, {.isRaw = isRaw}, &row);
    return row;
}

std::string headerOf(bool isRaw)
{
    std::string header;
    appendCsvHeader({.isRaw = isRaw}, &header);
    return header;
}

FileReport munich()
{
    FileReport report{};
    report.path = "/a,b/\"c\".jpg";
    report.name = "\"c\".jpg";
    report.isAccepted = true;
    report.place = PlaceReport{.result = 0,
                               .latitude = 48.1,
                               .longitude = 11.5,
                               .latitudeLetter = "N",
                               .longitudeLetter = "",
                               .altitude = -12.0,
                               .distance = 1000.0,
                               .azimuth = 271.26,
                               .tilt = std::numeric_limits<double>::quiet_NaN(),
                               .city = "M\u00fcnchen",
                               .state = std::nullopt,
                               .country = "",
                               .description = "two\nlines\r\n; 'and' a\ttab"};
    report.size = 18446744073709551615u;
    report.sizeText = "1,024.0 TB";
    report.modified = "m";
    report.created = "c";
    report.coordinate = "N 48\u00b0 6' 0.0\"";
    report.position = Position{48.1, -11.5};
    report.altitude = -12.0;
    report.heading = 271.26;
    report.taken = "2026-05-03T14:03:22+02:00";
    report.modifiedTime = "2026-05-04T00:00:00Z";
    return report;
}
}  // namespace

TEST(appendCsvLine, beginsWithWhereAndWhen)
{
    EXPECT_EQ(rowOf(munich()),
              "\"/a,b/\"\"c\"\".jpg\",48.1,-11.5,-12,271.26,2026-05-03T14:03:22+02:00,"
              "\"\"\"c\"\".jpg\",M\u00fcnchen,,,\"two\nlines\r\n; 'and' a\ttab\","
              "18446744073709551615,2026-05-04T00:00:00Z,\r\n");
    EXPECT_EQ(headerOf(false),
              "path,latitude,longitude,altitude,direction,taken,name,city,state,"
              "country,description,size,modified,created\r\n");
}

TEST(appendCsvLine, appendsTheRecordAsItIs)
{
    const std::string row = rowOf(munich());
    EXPECT_EQ(rowOf(munich(), true), row.substr(0, row.size() - 2) +
                                         ",true,0,48.1,11.5,N,,1000,271.26,,\"1,024.0 TB\",m,c,"
                                         "\"N 48\u00b0 6' 0.0\"\"\",,\r\n");
    const std::string header = headerOf(false);
    EXPECT_EQ(headerOf(true),
              header.substr(0, header.size() - 2) +
                  ",accepted,result,latti,longi,refLatti,refLongi,distance,azimuth,tilt,sizeText,"
                  "modifiedText,createdText,coordinate,altitudeText,directionText\r\n");
}

TEST(appendCsvLine, letsNoTextControlATerminal)
{
    FileReport report{};
    report.path = "/\x1b[31m\u009b2J\u202egpj.exe";
    report.name = "a\rb\r\nc\td\x7f";
    EXPECT_EQ(rowOf(report),
              "/\ufffd[31m\ufffd2J\ufffdgpj.exe,,,,,,\"a\nb\r\nc\td\ufffd\",,,,,,,\r\n");
}

TEST(appendCsvLine, letsNoTextBeAFormula)
{
    const struct {
        const char* text;
        const char* cell;
    } rows[] = {
        {"=1+1", "'=1+1"},
        {"+1+1", "'+1+1"},
        {"-2+3", "'-2+3"},
        {"-1 cmd", "'-1 cmd"},
        {"@SUM(A1)", "'@SUM(A1)"},
        {"=\"a\"", "\"'=\"\"a\"\"\""},
        {"\t=1", "'\t=1"},
        {"\r=1", "\"'\n=1\""},
        {"\uff1d1", "'\uff1d1"},
        {"-", "'-"},
        {"a=1", "a=1"},
        {"-4 m", "-4 m"},
        {"-271.3", "-271.3"},
        {"+5", "+5"},
    };
    for (const auto& row : rows) {
        FileReport report{};
        report.path = row.text;
        EXPECT_EQ(rowOf(report), row.cell + std::string(",,,,,,,,,,,,,\r\n"));
    }
}

TEST(appendCsvLine, leavesMissingFieldsEmpty)
{
    FileReport report{};
    report.path = "notes.txt";
    report.name = "notes.txt";
    EXPECT_EQ(rowOf(report), "notes.txt,,,,,,notes.txt,,,,,,,\r\n");
    EXPECT_EQ(rowOf(report, true), "notes.txt,,,,,,notes.txt,,,,,,,,false,,,,,,,,,,,,,,\r\n");
}

TEST(appendCsvHeader, namesNoColumnTwice)
{
    std::set<std::string> names;
    std::istringstream header(headerOf(true));
    std::size_t count = 0;
    for (std::string name; std::getline(header, name, ','); count++) names.insert(name);
    EXPECT_EQ(names.size(), count);
}
