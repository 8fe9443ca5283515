#include "selection/frame_walk.h"

#include <gtest/gtest.h>

#include <QString>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
Accessible object(const char* name)
{
    return name == nullptr ? Accessible{} : Accessible{":1.1", QString("/") + QLatin1String(name)};
}

struct Candidate {
    const char* name;
    ViewAccess access = ViewAccess::table;
    int width = 400;
    int height = 400;
    int depth = 5;
    const char* tab = nullptr;
    const char* location = nullptr;
};

// The names of those that are chosen.
std::vector<std::string> chosen(const std::vector<Candidate>& candidates)
{
    std::vector<View> views;
    for (const Candidate& each : candidates) {
        views.push_back({.object = object(each.name),
                         .access = each.access,
                         .size = {each.width, each.height},
                         .depth = each.depth,
                         .tab = object(each.tab),
                         .location = object(each.location)});
    }
    std::vector<std::string> names;
    for (const View& view : chooseViews(views)) names.push_back(view.object.path.toStdString());
    return names;
}
using Names = std::vector<std::string>;
constexpr ViewAccess kOpaque = ViewAccess::opaque;
}  // namespace

TEST(chooseViews, findsTheLargestListAndTheOneBesideIt)
{
    EXPECT_EQ(chosen({}), Names{});
    EXPECT_EQ(chosen({{.name = "bar", .width = 150}, {.name = "list"}}), Names{"/list"});
    EXPECT_EQ(chosen({{.name = "left"}, {.name = "right", .width = 300}}),
              (Names{"/left", "/right"}));
    EXPECT_EQ(chosen({{.name = "bar", .depth = 4}, {.name = "list", .width = 500}}),
              Names{"/list"});
}

TEST(chooseViews, prefersAPaneWithoutItemsToEveryList)
{
    EXPECT_EQ(chosen({{.name = "bar", .width = 900}, {.name = "pane", .access = kOpaque}}),
              Names{"/pane"});
    EXPECT_EQ(chosen({{.name = "pane", .access = kOpaque}, {.name = "list", .depth = 6}}),
              Names{"/list"});
}

TEST(chooseViews, findsTheLargestOfEachTabThatHasALocationEntry)
{
    const std::vector<Candidate> panels = {
        {.name = "bar", .width = 900, .tab = "left", .location = "left entry"},
        {.name = "icons", .access = kOpaque, .tab = "left", .location = "left entry"},
        {.name = "list", .width = 90, .tab = "right", .location = "right entry"},
        {.name = "small", .width = 80, .tab = "right", .location = "right entry"},
        {.name = "between", .width = 900}};
    EXPECT_EQ(chosen(panels), (Names{"/icons", "/list"}));
}

// It may be the one in use.
TEST(chooseViews, findsOneAlsoInATabThatShowsNoEntryBesideOneThatDoes)
{
    EXPECT_EQ(chosen({{.name = "list", .width = 90, .tab = "left"},
                      {.name = "icons", .access = kOpaque, .tab = "right", .location = "entry"}}),
              (Names{"/list", "/icons"}));
    EXPECT_EQ(chosen({{.name = "list", .width = 90, .tab = "left"},
                      {.name = "icons", .access = kOpaque, .tab = "right"}}),
              Names{"/icons"});
}
