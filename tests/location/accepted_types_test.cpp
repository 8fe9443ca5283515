#include "location/accepted_types.h"

#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

using namespace pinorama;

using test::text;

TEST(gpsIsAcceptedPath, acceptsTwentyExtensionsInEitherCase)
{
    int accepted = 0;
    for (const char* extension :
         {"jpg", "jpeg", "nef", "fff", "nrw", "raf", "orf", "dng", "mrw", "crw",
          "cr2", "kdc",  "dcr", "ptx", "pef", "arw", "srf", "sr2", "mos", "raw"}) {
        SCOPED_TRACE(extension);
        std::string upper = extension;
        for (char& c : upper) c = static_cast<char>(std::toupper(c));
        std::string title = extension;
        title[0] = upper[0];
        for (const std::string& spelling : {std::string(extension), upper, title}) {
            EXPECT_TRUE(gpsIsAcceptedPath(text("/pictures/photo." + spelling).get()));
        }
        accepted++;
    }
    EXPECT_EQ(accepted, 20);
}

TEST(gpsIsAcceptedPath, looksAtTheLastExtensionOfTheLastComponent)
{
    const struct {
        const char* path;
        bool expected;
    } rows[] = {
        {"photo.JPG", true},
        {"photo.JPEG", true},
        {"x.Nef", true},
        {"x.DNG", true},
        {"/a/photo.jpg", true},
        {"archive.zip.jpg", true},
        {"archive.jpg.zip", false},
        {"/x/dir.jpg/", true},  // a folder, as the selection of a file manager names it
        {"/x/dir.jpg//", true},
        {"/a.jpg/readme", false},
        {"/a.jpg/readme/", false},
        {"a..jpg", true},
        {".a.jpg", true},
        {".jpg", false},  // a name that begins with its only dot has no extension
        {"/x/.jpg", false},
        {"/x/.jpg/", false},
        {"photo", false},
        {"photo.", false},
        {"photo.jpg.", false},
        {"photo.jpg ", false},
        {"photo. jpg", false},
        {"photo.jp", false},
        {"photo.jpgx", false},
        {"photo.jpe", false},
        {"jpg", false},
        {"", false},
        {"/", false},
        {"//", false},
        {".", false},
        {"..", false},
        {"photo.tif", false},
        {"photo.tiff", false},
        {"photo.png", false},
        {"photo.heic", false},
        {"photo.rw2", false},
        {"photo.cr3", false},
        {"photo.x3f", false},
        {"photo.srw", false},
        {"photo.j\u00fcg", false},
        {"\u65e5\u672c.jpg", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(gpsIsAcceptedPath(text(row.path).get()), row.expected);
    }
}

TEST(gpsIsAcceptedPath, refusesNull)
{
    EXPECT_FALSE(gpsIsAcceptedPath(nullptr));
}

TEST(isPathOfMoreKinds, acceptsWhatElseCanBeRead)
{
    for (const char* extension : {"heic", "heif", "hif",  "avif", "cr3", "jxl", "mov",  "mp4",
                                  "rw2",  "srw",  "3fr",  "iiq",  "erf", "gpr", "x3f",  "tif",
                                  "tiff", "png",  "webp", "gif",  "psd", "jpe", "jfif", "mpo"}) {
        SCOPED_TRACE(extension);
        std::string upper = extension;
        for (char& c : upper) c = static_cast<char>(std::toupper(c));
        for (const std::string& spelling : {std::string(extension), upper}) {
            const auto path = text("/pictures/photo." + spelling);
            EXPECT_TRUE(isPathOfMoreKinds(path.get()));
            EXPECT_FALSE(gpsIsAcceptedPath(path.get()));
            EXPECT_EQ(isPathOfVideo(path.get()), upper == "MOV" || upper == "MP4");
        }
    }
    for (const char* name :
         {"a.jpg", "a.nef", "a.txt", "a.xmp", "heic", ".heic", "a.heic.txt", ""}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(isPathOfMoreKinds(text(name).get()));
        EXPECT_FALSE(isPathOfVideo(text(name).get()));
    }
    EXPECT_FALSE(isPathOfMoreKinds(nullptr));
}

TEST(acceptedExtensions, areThoseThatAreAccepted)
{
    const auto few = acceptedExtensions(false);
    EXPECT_EQ(few.size(), 20u);
    for (const std::string& extension : few) {
        EXPECT_TRUE(gpsIsAcceptedPath(test::text("a." + extension).get())) << extension;
        EXPECT_TRUE(std::ranges::all_of(extension, [](char c) { return c < 'A' || c > 'Z'; }));
    }
    const auto all = acceptedExtensions(true);
    ASSERT_EQ(all.size(), 44u);
    EXPECT_TRUE(std::equal(few.begin(), few.end(), all.begin()));
    for (std::size_t i = few.size(); i < all.size(); i++) {
        EXPECT_TRUE(isPathOfMoreKinds(test::text("a." + all[i]).get())) << all[i];
    }
}
