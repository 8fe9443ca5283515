// Where pictures near another one are looked for.

#include "app/nearby/nearby_folders.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;

TEST(foldersAround, areTheFolderItsNeighboursAndThePictures)
{
    using Folders = std::vector<std::string>;
    const std::string home = "/home/anna";
    const std::string pictures = "/home/anna/Pictures";
    const struct {
        const char* name;
        std::string picture;
        Folders expected;
    } rows[] = {
        {"among the pictures", "/home/anna/Pictures/2026/May/a.jpg", {pictures}},
        {"in the folder of the pictures", "/home/anna/Pictures/a.jpg", {pictures}},
        {"two below the home folder",
         "/home/anna/Trips/Rome/a.jpg",
         {"/home/anna/Trips", pictures}},
        {"one below the home folder",
         "/home/anna/Downloads/a.jpg",
         {"/home/anna/Downloads", pictures}},
        {"in the home folder", "/home/anna/a.jpg", {"/home/anna"}},
        {"of another user", "/home/bert/Trips/a.jpg", {"/home/bert", pictures}},
        {"beside the home folders", "/home/a.jpg", {"/home"}},
        {"on a card", "/media/anna/CARD/DCIM/100/a.jpg", {"/media/anna/CARD/DCIM", pictures}},
        {"in the first folder of a card",
         "/media/anna/CARD/DCIM/a.jpg",
         {"/media/anna/CARD", pictures}},
        {"right on a card", "/run/media/anna/CARD/a.jpg", {"/run/media/anna/CARD", pictures}},
        {"right on a disk", "/media/disk/a.jpg", {"/media/disk", pictures}},
        {"in the folder for temporary files", "/tmp/x/a.jpg", {"/tmp/x", pictures}},
        {"in the root folder", "/a.jpg", {pictures}},
        {"a name that only begins like the pictures",
         "/home/anna/Pictures2/b/a.jpg",
         {"/home/anna/Pictures2", pictures}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(foldersAround(row.picture, home, pictures), row.expected);
    }
}

TEST(foldersAround, takeNoHomeFolderForThePictures)
{
    using Folders = std::vector<std::string>;
    for (const char* none : {"", "/", "/home", "/home/anna", "/home/anna/", "relative"}) {
        SCOPED_TRACE(none);
        EXPECT_EQ(foldersAround("/data/trips/a/b.jpg", "/home/anna", none), Folders{"/data/trips"});
    }
    EXPECT_EQ(foldersAround("/data/trips/a/b.jpg", "", "/pictures"),
              (Folders{"/data/trips", "/pictures"}));
    EXPECT_EQ(foldersAround("/b.jpg", "/home/anna", ""), Folders{});
}
