#include "selection/shown_name.h"

#include <gtest/gtest.h>

#include <QString>

#include <string>
#include <vector>

using namespace pinorama;

TEST(ShownNameFinder, findsTheEntryThatIsShownLikeThis)
{
    const struct {
        const char* name;
        std::vector<std::string> entries;
        const char* shown;
        const char* expected;  // null for nothing
    } rows[] = {
        {"the same bytes", {"a.jpg", "b.jpg"}, "b.jpg", "b.jpg"},
        {"no such entry", {"a.jpg"}, "b.jpg", nullptr},
        {"empty folder", {}, "a.jpg", nullptr},
        {"a per cent sign is not an escape", {"a%20b.jpg", "a b.jpg"}, "a%20b.jpg", "a%20b.jpg"},
        {"decomposed, shown composed", {"u\u0308.jpg"}, "\u00fc.jpg", "u\u0308.jpg"},
        {"composed, shown decomposed", {"\u00fc.jpg"}, "u\u0308.jpg", "\u00fc.jpg"},
        {"both exist", {"u\u0308.jpg", "\u00fc.jpg"}, "\u00fc.jpg", "\u00fc.jpg"},
        {"not UTF-8", {"inv\xe4lid.jpg"}, "inv\ufffdlid.jpg", "inv\xe4lid.jpg"},
        {"not UTF-8, with a remark",
         {"inv\xe4lid.jpg"},
         "inv\ufffdlid.jpg (ung\u00fcltige Kodierung)",
         "inv\xe4lid.jpg"},
        {"two bytes shown as one", {"i\xe4\xf6.jpg"}, "i\ufffd.jpg", "i\xe4\xf6.jpg"},
        {"two that are shown alike", {"a\xe4.jpg", "a\xf6.jpg"}, "a\ufffd.jpg", nullptr},
        {"a remark after a valid name", {"a.jpg"}, "a.jpg (copy)", nullptr},
        {"line feed shown as blank", {"line\nfeed.jpg"}, "line feed.jpg", "line\nfeed.jpg"},
        {"line feed shown as arrow", {"line\nfeed.jpg"}, "line\u21b5feed.jpg", "line\nfeed.jpg"},
        {"line feed left out", {"line\nfeed.jpg"}, "linefeed.jpg", "line\nfeed.jpg"},
        {"an exact name wins over a line feed",
         {"line\nfeed.jpg", "line feed.jpg"},
         "line feed.jpg",
         "line feed.jpg"},
        {"hidden extension", {"a.jpg", "b.jpg"}, "a", "a.jpg"},
        {"hidden extension of two", {"a.jpg", "a.nef"}, "a", nullptr},
        {"an exact name wins over a hidden extension", {"a.jpg", "a"}, "a", "a"},
        {"only the last extension is hidden", {"a.tar.gz"}, "a", nullptr},
        {"a dot at the start hides nothing", {".jpg"}, "", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ShownNameFinder finder(QString::fromUtf8(row.shown));
        for (const std::string& entry : row.entries) finder.take(entry);
        const std::optional<std::string> found = finder.name();
        if (row.expected == nullptr) {
            EXPECT_FALSE(found.has_value());
        } else {
            EXPECT_EQ(found.value_or("nothing"), row.expected);
        }
    }
}

TEST(ShownNameFinder, knowsTheTextWithComposedLetters)
{
    EXPECT_EQ(ShownNameFinder(QStringLiteral("u\u0308.jpg")).composedBytes(), "\u00fc.jpg");
    EXPECT_EQ(ShownNameFinder({}).composedBytes(), "");
}
