#include "selection/known_items.h"

#include "tests/selection/direct_items.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QString>

using namespace pinorama;

TEST(KnownItems, wantsWhatItDoesNotKnow)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "x");
    KnownItems items;
    EXPECT_TRUE(items.isComplete());
    EXPECT_FALSE(items.nextRequest());
    EXPECT_EQ(items.item(path), nullptr);
    EXPECT_FALSE(items.isComplete());
    const auto request = items.nextRequest();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->paths, std::vector<std::string>{path});
    items.takeFacts(*request, {factsOfItem(path)});
    EXPECT_TRUE(items.isComplete());
    ASSERT_NE(items.item(path), nullptr);
    EXPECT_TRUE(items.item(path)->isThere);
    EXPECT_TRUE(items.isCertain());
}

TEST(KnownItems, asksForAsMuchAsARequestTakes)
{
    KnownItems items;
    const std::size_t count = 2 * kMaxOpenPaths;
    for (std::size_t i = 0; i < count; i++)
        (void)items.item("/" + std::string(1000, 'a') + std::to_string(i));
    std::size_t asked = 0;
    int requests = 0;
    while (const auto request = items.nextRequest()) {
        EXPECT_TRUE(openRequestIn(messageOf(*request)));
        asked += request->paths.size();
        requests++;
        items.takeFacts(*request, std::vector<ItemFacts>(request->paths.size()));
    }
    EXPECT_EQ(asked, count);
    EXPECT_GT(requests, 4);
}

TEST(KnownItems, knowsThatNoItemHasAnImpossiblePath)
{
    KnownItems items;
    for (const std::string& path :
         {std::string(), std::string("/a\0b", 4), "/" + std::string(kMaxOpenPath, 'a')}) {
        ASSERT_NE(items.item(path), nullptr);
        EXPECT_FALSE(items.item(path)->isThere);
        ASSERT_NE(items.count(path), nullptr);
        ASSERT_NE(items.nameShownAs(path, QStringLiteral("a")), nullptr);
    }
    ASSERT_NE(items.nameShownAs("/", QString(2000, u'a')), nullptr) << "no name is that long";
    EXPECT_TRUE(items.isComplete());
}

TEST(KnownItems, takesNamesInParts)
{
    KnownItems items;
    const QString shown = QStringLiteral("\u00fc.jpg");
    EXPECT_EQ(items.nameShownAs("/folder", shown), nullptr);
    const auto request = items.nextRequest();
    ASSERT_TRUE(request);
    EXPECT_EQ(request->shown, "\u00fc.jpg");
    items.takeNames(*request, {"a", "u\u0308.jpg"});
    EXPECT_EQ(items.nameShownAs("/folder", shown), nullptr) << "there may be another one";
    items.takeNames(*request, {"b"});
    items.endNames(*request);
    ASSERT_NE(items.nameShownAs("/folder", shown), nullptr);
    EXPECT_EQ(*items.nameShownAs("/folder", shown), "u\u0308.jpg");
}

TEST(KnownItems, isNotCertainOfWhatNobodySays)
{
    const struct {
        const char* name;
        std::function<void(KnownItems&)> want;
    } rows[] = {
        {"item", [](KnownItems& items) { (void)items.item("/a"); }},
        {"names", [](KnownItems& items) { (void)items.nameShownAs("/", QStringLiteral("a")); }},
        {"count", [](KnownItems& items) { (void)items.count("/"); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        KnownItems items;
        row.want(items);
        const auto request = items.nextRequest();
        ASSERT_TRUE(request);
        items.takeNames(*request, {"a"});
        items.takeNone(*request);
        row.want(items);
        EXPECT_TRUE(items.isComplete());
        EXPECT_FALSE(items.isCertain());
    }
    KnownItems items;
    EXPECT_EQ(items.nameShownAs("/", QStringLiteral("a")), nullptr);
    const auto request = items.nextRequest();
    items.takeNames(*request, {"a"});
    items.takeNone(*request);
    EXPECT_FALSE(items.nameShownAs("/", QStringLiteral("a"))->has_value());
}
