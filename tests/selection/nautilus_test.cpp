#include "selection/managers/nautilus.h"

#include "base/file_uri.h"
#include "tests/selection/direct_items.h"
#include "tests/support/environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

using namespace pinorama;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
QString uri(const std::string& path)
{
    return QString::fromStdString(fileURIOfPath(path));
}

std::vector<std::string> foldersOf(const char* title, const std::vector<QString>& uris)
{
    return test::directly(
        [&](KnownItems& items) { return foldersOfWindow(items, QString::fromUtf8(title), uris); });
}
}  // namespace

TEST(foldersOfWindow, chooseByTheTitleAmongTheTabsOfAllWindows)
{
    const test::TemporaryFolder home;
    for (const char* name : {"card", "card/100CANON", "cards/100CANON"})
        std::filesystem::create_directories(home.file(name));
    const QString top = uri(home.path());
    const QString card = uri(home.file("card"));
    const QString first = uri(home.file("card/100CANON"));
    const QString second = uri(home.file("cards/100CANON"));
    const QString search = QStringLiteral("x-nautilus-search://1/");

    EXPECT_THAT(foldersOf("Home", {top}), ElementsAre(home.path())) << "the only window";
    EXPECT_THAT(foldersOf("card", {top, card}), ElementsAre(home.file("card")));
    EXPECT_THAT(foldersOf("100CANON", {first, top, second}),
                ElementsAre(home.file("card/100CANON"), home.file("cards/100CANON")));
    EXPECT_THAT(foldersOf("Home", {top, top}), ElementsAre(home.path()));
    EXPECT_THAT(foldersOf("Search for \u201ccard\u201d", {search, card}), IsEmpty());
    EXPECT_THAT(foldersOf("Search for \u201cx\u201d", {search}), IsEmpty());
    EXPECT_THAT(foldersOf("Trash", {QStringLiteral("trash:///"), top}), IsEmpty());
    EXPECT_THAT(foldersOf("card", {}), IsEmpty());
}
