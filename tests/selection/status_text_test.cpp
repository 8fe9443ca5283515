#include "selection/status_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QString>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
std::vector<std::string> asBytes(const std::vector<QString>& texts)
{
    std::vector<std::string> result;
    for (const QString& text : texts) result.push_back(text.toStdString());
    return result;
}
}  // namespace

TEST(quotedNames, readsTheQuotationMarksOfManyLanguages)
{
    const struct {
        const char* name;
        const char* text;
        const char* expected;
    } rows[] = {
        {"straight, Thunar", "\"a.jpg\"  |  2.0 kB  |  JPEG image", "a.jpg"},
        {"straight, PCManFM", "\"a.jpg\" (0 bytes) JPEG image", "a.jpg"},
        {"curly", "\u201ca.jpg\u201d selected (2 kB)", "a.jpg"},
        {"German", "\u201ea.jpg\u201c  |  2,0 kB  |  JPEG-Bild", "a.jpg"},
        {"German with an English end", "\u201ea.jpg\u201d", "a.jpg"},
        {"German, pointed inwards", "\u00bba.jpg\u00ab ausgew\u00e4hlt", "a.jpg"},
        {"Swiss, pointed outwards", "\u00aba.jpg\u00bb ausgew\u00e4hlt", "a.jpg"},
        {"French, with blanks", "\u00ab\u00a0a.jpg\u00a0\u00bb s\u00e9lectionn\u00e9", "a.jpg"},
        {"Swedish", "\u201da.jpg\u201d markerad", "a.jpg"},
        {"single", "\u2018a.jpg\u2019 selected", "a.jpg"},
        {"Japanese", "\u300ca.jpg\u300d", "a.jpg"},
        {"blank, per cent, umlaut", "\"a b%20\u00fc.jpg\" (1 kB)", "a b%20\u00fc.jpg"},
        {"line feed", "\"line\nfeed.jpg\" (1 kB)", "line\nfeed.jpg"},
        {"shortest", "\"a\"", "a"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_THAT(asBytes(quotedNames(QString::fromUtf8(row.text))),
                    testing::Contains(row.expected));
    }
}

TEST(quotedNames, isEmptyForACount)
{
    for (const char* text : {"", "\"", "\"\"", "3 items", "2 files: 4 kB", "10 Objekte",
                             "a \"quoted\" word", "2 item(s) selected", "\"no end"}) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(quotedNames(QString::fromUtf8(text)).empty());
    }
}

TEST(quotedNames, triesTheLongestNameFirstBecauseNamesMayContainQuotationMarks)
{
    const auto names = asBytes(quotedNames(QStringLiteral("\"12\" Zoll.jpg\" (2 kB) \"x\"")));
    EXPECT_EQ(names, (std::vector<std::string>{"12\" Zoll.jpg\" (2 kB) \"x",
                                               "12\" Zoll.jpg\" (2 kB) ", "12\" Zoll.jpg", "12"}));
}

TEST(quotedNames, ignoresATextOfMoreThan4096Units)
{
    const QString mark = QStringLiteral("\"");
    EXPECT_EQ(quotedNames(mark + QString(4094, u'a') + mark).size(), 1U);
    EXPECT_TRUE(quotedNames(mark + QString(4095, u'a') + mark).empty());
}
