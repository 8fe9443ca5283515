#include "pictures/sidecar_file.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

using namespace pinorama;

namespace {
// The content of the sidecar that is found; "none" without one.
std::string contentFor(const std::string& path)
{
    const PictureFile sidecar = openSidecar(path);
    if (!sidecar.isOpen()) return "none";
    std::string content(sidecar.size(), '\0');
    const ssize_t count = pread(sidecar.descriptor(), content.data(), content.size(), 0);
    return content.substr(0, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
}
}  // namespace

TEST(sidecarPaths, beginWithTheLongerNames)
{
    const std::vector<std::string> paths = sidecarPaths("/a.b/IMG.CR2");
    ASSERT_EQ(paths.size(), 16u);
    EXPECT_EQ(paths[0], "/a.b/IMG.CR2.xmp");
    EXPECT_EQ(paths[1], "/a.b/IMG.CR2.XMP");
    EXPECT_EQ(paths[8], "/a.b/IMG.xmp");
    EXPECT_EQ(sidecarPaths("/a.b/IMG").size(), 8u) << "the dot is in the folder's name";
}

TEST(openSidecar, findsBothNamesInAnyCase)
{
    const struct {
        const char* sidecar;
        const char* picture;
        bool isFound;
    } rows[] = {
        {"IMG.xmp", "IMG.CR2", true},   {"IMG.CR2.xmp", "IMG.CR2", true},
        {"IMG.XMP", "IMG.CR2", true},   {"IMG.CR2.XMP", "IMG.CR2", true},
        {"IMG.Xmp", "IMG.CR2", true},   {"IMG.xMP", "IMG.CR2", true},
        {"a.b.xmp", "a.b.jpg", true},   {"IMG2.xmp", "IMG.CR2", false},
        {"IMG.xmp2", "IMG.CR2", false}, {".xmp", ".jpg", false},
        {"noext.xmp", "noext", true},   {".jpg.xmp", ".jpg", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sidecar);
        const test::TemporaryFolder folder;
        folder.write(row.sidecar, "content");
        EXPECT_EQ(contentFor(folder.file(row.picture)), row.isFound ? "content" : "none");
    }
}

TEST(openSidecar, theLongerNameCounts)
{
    const test::TemporaryFolder folder;
    folder.write("IMG.xmp", "of both");
    EXPECT_EQ(contentFor(folder.file("IMG.CR2")), "of both");
    EXPECT_EQ(contentFor(folder.file("IMG.JPG")), "of both");
    folder.write("IMG.CR2.xmp", "of the raw picture");
    EXPECT_EQ(contentFor(folder.file("IMG.CR2")), "of the raw picture");
    EXPECT_EQ(contentFor(folder.file("IMG.JPG")), "of both");
}

TEST(openSidecar, opensRegularFilesOnly)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("IMG.xmp"));
    EXPECT_EQ(contentFor(folder.file("IMG.CR2")), "none");
    EXPECT_EQ(contentFor(""), "none");
    EXPECT_EQ(contentFor("/"), "none");
}
