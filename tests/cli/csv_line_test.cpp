#include "cli/csv_line.h"

#include "cli/json_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>

using namespace pinorama;

namespace {
std::string rowOf(const FileReport& report)
{
    std::string row;
    appendCsvLine(report, &row);
    return row;
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
    return report;
}
}  // namespace

TEST(appendCsvLine, quotesFieldsThatNeedIt)
{
    EXPECT_EQ(rowOf(munich()),
              "\"/a,b/\"\"c\"\".jpg\",\"\"\"c\"\".jpg\",true,0,48.1,11.5,N,,-12,1000,271.26,,"
              "M\u00fcnchen,,,\"two\nlines\r\n; 'and' a\ttab\",18446744073709551615,"
              "\"1,024.0 TB\",m,c,\"N 48\u00b0 6' 0.0\"\"\",,\r\n");
}

TEST(appendCsvLine, letsNoTextControlATerminal)
{
    FileReport report{};
    report.path = "/\x1b[31m\u009b2J\u202egpj.exe";
    report.name = "a\rb\r\nc\td\x7f";
    EXPECT_EQ(rowOf(report),
              "/\ufffd[31m\ufffd2J\ufffdgpj.exe,\"a\nb\r\nc\td\ufffd\","
              "false,,,,,,,,,,,,,,,,,,,,\r\n");
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
        EXPECT_EQ(rowOf(report), row.cell + std::string(",,false,,,,,,,,,,,,,,,,,,,,\r\n"));
    }
}

TEST(appendCsvLine, leavesMissingFieldsEmpty)
{
    FileReport report{};
    report.path = "notes.txt";
    report.name = "notes.txt";
    EXPECT_EQ(rowOf(report), "notes.txt,notes.txt,false,,,,,,,,,,,,,,,,,,,,\r\n");
}

TEST(appendCsvHeader, hasTheKeysOfTheObjects)
{
    std::string line;
    appendJsonLine(munich(), &line);
    std::string expected;
    const auto object = nlohmann::ordered_json::parse(line);
    for (const auto& [key, value] : object.items()) {
        expected += (expected.empty() ? "" : ",") + key;
    }
    std::string header;
    appendCsvHeader(&header);
    EXPECT_EQ(header, expected + "\r\n");
}
