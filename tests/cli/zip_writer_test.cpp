// ZIP archives, read back by the archiver.

#include "cli/zip_writer.h"

#include "cli/kmz_document.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {
constexpr char kArchiver[] = "/usr/bin/bsdtar";

class zipWriter : public testing::Test {
protected:
    // What the archiver prints about the archive.
    std::string archiver(const std::string& options, const std::string& item = {}) const
    {
        const std::string path = folder_.write("a.zip", archive_);
        std::vector<std::string> command = {kArchiver, options, path};
        if (!item.empty()) command.push_back(item);
        const test::ProgramResult result = test::runProgram({.command = command});
        EXPECT_EQ(result.status, 0) << result.err;
        return result.out;
    }

    const test::TemporaryFolder folder_;
    std::string archive_;
    ZipWriter zip_{[this](std::string_view bytes) {
        archive_ += bytes;
        return true;
    }};
};
}  // namespace

TEST(crc32Of, isThatOfTheStandard)
{
    EXPECT_EQ(crc32Of(""), 0u);
    EXPECT_EQ(crc32Of("123456789"), 0xcbf43926u);
    EXPECT_EQ(crc32Of("6789", crc32Of("12345")), 0xcbf43926u);
    EXPECT_EQ(crc32Of(std::string(3, '\xff')), 0xffffff00u);
}

TEST_F(zipWriter, storesItems)
{
    const std::string all = [] {
        std::string bytes;
        for (int byte = 0; byte < 256; byte++) bytes += static_cast<char>(byte);
        return bytes;
    }();
    EXPECT_TRUE(zip_.add("a.bin", all));
    EXPECT_TRUE(zip_.add("folder/empty", ""));
    SpoolFile spooled;
    EXPECT_TRUE(spooled.append("12345"));
    EXPECT_TRUE(spooled.append("6789"));
    EXPECT_TRUE(zip_.add("b", spooled, 0xcbf43926u));
    EXPECT_TRUE(zip_.finish());
    EXPECT_EQ(archiver("-tf"), "a.bin\nfolder/empty\nb\n");
    EXPECT_EQ(archiver("-xOf", "a.bin"), all);
    EXPECT_EQ(archiver("-xOf", "folder/empty"), "");
    EXPECT_EQ(archiver("-xOf", "b"), "123456789");
}

TEST_F(zipWriter, storesMoreItemsThanTheOldFormCounts)
{
    constexpr int kCount = 70'000;
    for (int i = 0; i < kCount; i++) ASSERT_TRUE(zip_.add(std::to_string(i), "x"));
    EXPECT_TRUE(zip_.finish());
    const std::string names = archiver("-tf");
    EXPECT_EQ(std::count(names.begin(), names.end(), '\n'), kCount);
    EXPECT_EQ(archiver("-xOf", "69999"), "x");
}

TEST_F(zipWriter, saysThatItCannotWrite)
{
    std::size_t room = 0;
    for (const std::size_t size : {0u, 10u, 40u, 80u, 100u}) {
        room = size;
        ZipWriter zip([&room](std::string_view bytes) {
            errno = ENOSPC;
            if (bytes.size() > room) return false;
            room -= bytes.size();
            return true;
        });
        EXPECT_FALSE(zip.add("a.jpg", "0123456789") && zip.finish()) << size;
        EXPECT_EQ(errno, ENOSPC);
    }
}

TEST(SpoolFile, givesBackWhatItGot)
{
    SpoolFile file;
    std::string expected;
    for (int i = 0; expected.size() < 5'000'000; i++) {
        const std::string piece = std::string(static_cast<std::size_t>(i % 70'000), 'a') + 'b';
        EXPECT_TRUE(file.append(piece));
        expected += piece;
        i += 997;
    }
    EXPECT_EQ(file.size(), expected.size());
    std::string found;
    EXPECT_TRUE(file.copyTo([&found](std::string_view bytes) {
        found += bytes;
        return true;
    }));
    EXPECT_TRUE(found == expected);
    EXPECT_FALSE(file.copyTo([](std::string_view) { return false; }));
}

TEST(SpoolFile, saysThatThereIsNoRoom)
{
    const test::ScopedVariable nowhere("TMPDIR", "/proc/nonexistent");
    SpoolFile file;
    EXPECT_FALSE(file.append(std::string(2'000'000, 'a')));
    EXPECT_EQ(errno, ENOENT);
}

TEST(thumbnailName, isAnotherForEveryPath)
{
    EXPECT_EQ(thumbnailName("/a.jpg"), thumbnailName("/a.jpg"));
    EXPECT_NE(thumbnailName("/a.jpg"), thumbnailName("/b.jpg"));
    EXPECT_NE(thumbnailName("/\xff"), thumbnailName("/\xfe"));
    EXPECT_TRUE(thumbnailName("/../a.jpg").starts_with("thumbnails/"));
    EXPECT_EQ(thumbnailName("").size(), std::string("thumbnails/.jpg").size() + 32);
}

TEST(KmzDocument, putsTheKmlLast)
{
    std::string archive;
    KmzDocument kmz([&archive](std::string_view bytes) {
        archive += bytes;
        return true;
    });
    std::string first, second;
    appendKmlPiece("<kml>", &first);
    appendKmlPiece("", &first);
    appendThumbnailPiece("thumbnails/1.jpg", std::string("\0jpeg", 5), &first);
    appendKmlPiece("</kml>", &second);
    EXPECT_TRUE(kmz.write(first));
    EXPECT_TRUE(kmz.write(second));
    EXPECT_TRUE(kmz.write(""));
    EXPECT_TRUE(kmz.finish());
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kmz", archive);
    EXPECT_EQ(test::runProgram({.command = {kArchiver, "-tf", path}}).out,
              "thumbnails/1.jpg\ndoc.kml\n");
    EXPECT_EQ(test::runProgram({.command = {kArchiver, "-xOf", path, "doc.kml"}}).out,
              "<kml></kml>");
}

TEST(KmzDocument, takesWholePiecesOnly)
{
    std::string piece;
    appendKmlPiece("<kml>", &piece);
    for (std::size_t size = 1; size < piece.size(); size++) {
        KmzDocument kmz([](std::string_view) { return true; });
        errno = 0;
        EXPECT_FALSE(kmz.write(std::string_view(piece).substr(0, size))) << size;
        EXPECT_EQ(errno, EINVAL);
    }
}
