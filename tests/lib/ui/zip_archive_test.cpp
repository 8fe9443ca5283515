// Archives that cocoaUtils makes, and what becomes of the original.

#include "lib/ui/cocoa_utils.h"

#include "base/child_process.h"
#include "lib/files/path_text.h"
#include "tests/support/environment.h"
#include "tests/support/other_process.h"
#include "tests/support/small_disk.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// The paths that come out of an archive, sorted.
std::vector<std::string> namesIn(const std::string& archive, const test::TemporaryFolder& folder)
{
    fs::create_directory(folder.file("unpacked"));
    EXPECT_EQ(
        runAndWait({"bsdtar", "-xf", archive, "-C", folder.file("unpacked")}, {"LC_ALL=C.UTF-8"}),
        0);
    std::vector<std::string> names;
    for (const auto& item : fs::recursive_directory_iterator(folder.file("unpacked")))
        names.push_back(fs::relative(item.path(), folder.file("unpacked")).string());
    std::sort(names.begin(), names.end());
    fs::remove_all(folder.file("unpacked"));
    return names;
}

std::int32_t compress(const std::string& source, const std::string& target, bool deleteOriginal)
{
    const test::Text sourceText(createPathText(source));
    const test::Text targetText(createPathText(target));
    return cocoaUtils::compressToZIPFile(sourceText.get(), targetText.get(),
                                         deleteOriginal ? 1 : 0);
}

// A program that runs instead of the archiver for as long as this lives.
class OtherArchiver {
public:
    explicit OtherArchiver(const std::string& script)
    {
        const std::string program = folder_.write("bsdtar", "#!/bin/sh\n" + script);
        chmod(program.c_str(), 0755);
    }
    std::string file(std::string_view name) const { return folder_.file(name); }

private:
    test::TemporaryFolder folder_;
    std::string path_ = folder_.path() + ":/usr/bin:/bin";
    test::ScopedVariable variable_{"PATH", path_.c_str()};
};
}  // namespace

TEST(compressToZIPFile, packsAFileUnderItsNameWhateverThatIs)
{
    const char* const names[] = {
        "a b.jpg",
        "Gr\u00f6\u00dfe 1.jpg",
        "-Cbar",
        "-C",
        "-",
        "--",
        "--help",
        "-T",
        "@pics.zip",
        "@-",
        "@",
        "a\nb.jpg",
        "\n",
        "Z\xfcrich.jpg",
        "back\\slash",
        "back\\nline",
        "*",
        "[x]",
        " lead",
        "trail ",
        "#hash",
        "!bang",
        "x=y",
        "%s",
        "$(touch x);a b.jpg",
    };
    for (const std::string name : names) {
        SCOPED_TRACE(name);
        const test::TemporaryFolder folder;
        const std::string source = folder.write(name, "bytes");
        const std::string target = folder.file("out.zip");
        EXPECT_EQ(compress(source, target, false), 0);
        EXPECT_EQ(test::readFile(target).substr(0, 4), "PK\3\4");
        EXPECT_EQ(namesIn(target, folder), Names{name});
        EXPECT_TRUE(fs::exists(source)) << "without the flag the source stays";
        EXPECT_EQ(compress(source, target, true), 0);
        EXPECT_EQ(namesIn(target, folder), Names{name});
        EXPECT_FALSE(fs::exists(source));
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
    }
}

TEST(compressToZIPFile, packsALinkAsALink)
{
    const test::TemporaryFolder folder;
    (void)folder.write("a.jpg", "bytes");
    fs::create_symlink("a.jpg", folder.file("link"));
    EXPECT_EQ(compress(folder.file("link"), folder.file("out.zip"), true), 0);
    EXPECT_EQ(namesIn(folder.file("out.zip"), folder), Names{"link"});
    EXPECT_FALSE(fs::is_symlink(folder.file("link")));
    EXPECT_EQ(test::readFile(folder.file("a.jpg")), "bytes");
}

TEST(compressToZIPFile, takesRelativePaths)
{
    const test::TemporaryFolder folder;
    const int status = test::inChild([&folder] {
        fs::current_path(folder.path());
        fs::create_directory("-C");
        (void)folder.write("-C/@a.jpg", "bytes");
        EXPECT_EQ(compress("-C/@a.jpg", "-f.zip", true), 0);
        EXPECT_EQ(namesIn(folder.file("-f.zip"), folder), Names{"@a.jpg"});
        EXPECT_FALSE(fs::exists("-C/@a.jpg"));
        fs::current_path("-C");
        EXPECT_EQ(compress(".", "../folder.zip", true), 0);
        EXPECT_EQ(namesIn(folder.file("folder.zip"), folder), Names{"-C"});
        EXPECT_FALSE(fs::exists(folder.file("-C")));
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(status, 0);
}

TEST(compressToZIPFile, packsAFolderWithEverythingInIt)
{
    const test::TemporaryFolder folder;
    fs::create_directories(folder.file("trip/day one"));
    (void)folder.write("trip/day one/a.jpg", "a");
    EXPECT_EQ(compress(folder.file("trip") + "/", folder.file("t.zip"), true), 0);
    EXPECT_EQ(namesIn(folder.file("t.zip"), folder),
              (std::vector<std::string>{"trip", "trip/day one", "trip/day one/a.jpg"}));
    EXPECT_FALSE(fs::exists(folder.file("trip"))) << "the flag removes a folder whole";
}

TEST(compressToZIPFile, replacesAnExistingArchive)
{
    const test::TemporaryFolder folder;
    const std::string target = folder.write("out.zip", "no archive");
    EXPECT_EQ(compress(folder.write("a", "1"), target, false), 0);
    EXPECT_EQ(compress(folder.write("b", "2"), target, true), 0);
    EXPECT_EQ(namesIn(target, folder), std::vector<std::string>{"b"});
    EXPECT_FALSE(fs::exists(folder.file("b")));
}

TEST(compressToZIPFile, failureKeepsTheSourceAndLeavesNothing)
{
    const test::TemporaryFolder folder;
    const std::string source = folder.write("a.jpg", "bytes");
    EXPECT_NE(compress(source, folder.file("missing/out.zip"), true), 0);
    EXPECT_TRUE(fs::exists(source));

    EXPECT_NE(compress(folder.file("missing.jpg"), folder.file("out.zip"), true), 0);
    EXPECT_FALSE(fs::exists(folder.file("out.zip")));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1)
        << "nothing unfinished is left after";
}

TEST(compressToZIPFile, failureKeepsAnArchiveThatWasThere)
{
    const test::TemporaryFolder folder;
    const std::string target = folder.write("out.zip", "earlier");
    EXPECT_NE(compress(folder.file("missing.jpg"), target, false), 0);
    EXPECT_EQ(test::readFile(target), "earlier");
}

TEST(compressToZIPFile, aMissingArchiverGives127)
{
    const test::TemporaryFolder folder;
    const test::ScopedVariable noPrograms("PATH", folder.path().c_str());
    const std::string source = folder.write("a.jpg", "bytes");
    EXPECT_EQ(compress(source, folder.file("out.zip"), true), 127);
    EXPECT_TRUE(fs::exists(source));
}

TEST(compressToZIPFile, packsAFolderWithNamesOfEveryKind)
{
    const test::TemporaryFolder folder;
    fs::create_directories(folder.file("trip/-C/empty"));
    const Names files = {"trip/-Cbar", "trip/@a.zip", "trip/-C/Z\xfc\nb", "trip/Gr\u00f6\u00dfe"};
    Names expected = {"trip", "trip/-C", "trip/-C/empty"};
    for (const std::string& file : files) {
        (void)folder.write(file, file);
        expected.push_back(file);
    }
    fs::create_symlink("nowhere", folder.file("trip/link"));
    expected.push_back("trip/link");
    fs::create_hard_link(folder.file(files[0]), folder.file("trip/same file"));
    expected.push_back("trip/same file");
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(compress(folder.file("trip"), folder.file("t.zip"), true), 0);
    EXPECT_EQ(namesIn(folder.file("t.zip"), folder), expected);
    EXPECT_FALSE(fs::exists(folder.file("trip")));
}

TEST(compressToZIPFile, keepsAnOriginalThatNoArchiveCanHold)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("trip"));
    (void)folder.write("trip/a.jpg", "bytes");
    ASSERT_EQ(mkfifo(folder.file("trip/pipe").c_str(), 0600), 0);
    const std::string target = folder.write("out.zip", "earlier");
    EXPECT_NE(compress(folder.file("trip"), target, true), 0);
    EXPECT_EQ(test::readFile(folder.file("trip/a.jpg")), "bytes");
    EXPECT_TRUE(fs::is_fifo(folder.file("trip/pipe")));
    EXPECT_EQ(test::readFile(target), "earlier");
}

TEST(compressToZIPFile, doesNotTrustAStatusWithoutTheArchive)
{
    // An archiver that packs something else, and one that packs nothing and lists what is wanted.
    for (const char* script :
         {"cd / && exec /usr/bin/bsdtar --format=zip -cf \"$3\" --null -T /dev/null\n",
          "case $1 in *zip) : > \"$3\";; *) exec /usr/bin/bsdtar \"$@\";; esac\n",
          "case $1 in *zip) echo PK > \"$3\";; esac\n", "exit 0\n"}) {
        SCOPED_TRACE(script);
        const test::TemporaryFolder folder;
        const OtherArchiver archiver(script);
        const std::string source = folder.write("a.jpg", "bytes");
        EXPECT_NE(compress(source, folder.file("out.zip"), true), 0);
        EXPECT_EQ(test::readFile(source), "bytes");
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
    }
}

TEST(compressToZIPFile, keepsAnOriginalThatChangedMeanwhile)
{
    const test::TemporaryFolder folder;
    const std::string source = folder.write("a.jpg", "bytes");
    const OtherArchiver archiver("case $1 in *zip) /usr/bin/bsdtar \"$@\"; printf other > '" +
                                 source + "';; *) exec /usr/bin/bsdtar \"$@\";; esac\n");
    EXPECT_NE(compress(source, folder.file("out.zip"), true), 0);
    EXPECT_EQ(test::readFile(source), "other");
}

TEST(compressToZIPFile, anArchiveInPlaceOfItsOriginalIsRefused)
{
    const test::TemporaryFolder folder;
    const std::string source = folder.write("a.jpg", "bytes");
    fs::create_directory(folder.file("trip"));
    (void)folder.write("trip/b.jpg", "bytes");
    fs::create_symlink(".", folder.file("here"));
    for (const bool deleteOriginal : {false, true}) {
        EXPECT_NE(compress(source, source, deleteOriginal), 0);
        EXPECT_NE(compress(source, folder.file("here/a.jpg"), deleteOriginal), 0);
        EXPECT_EQ(test::readFile(source), "bytes");
    }
    EXPECT_NE(compress(folder.file("trip"), folder.file("trip/t.zip"), true), 0);
    EXPECT_NE(compress(folder.file("trip"), folder.file("here/trip/t.zip"), true), 0);
    EXPECT_EQ(test::readFile(folder.file("trip/b.jpg")), "bytes");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.file("trip")), {}), 1);
}

TEST(compressToZIPFile, aFullDiskKeepsTheSource)
{
    const test::TemporaryFolder folder;
    const int status = test::inChild([&folder] {
        fs::create_directory(folder.file("disk"));
        if (!test::mountSmallDisk(folder.file("disk"))) return test::kCannotTest;
        test::fillDisk(folder.file("disk"));
        const std::string source = folder.write("a.jpg", std::string(50'000, 'x'));
        EXPECT_NE(compress(source, folder.file("disk/out.zip"), true), 0);
        EXPECT_TRUE(fs::exists(source));
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.file("disk")), {}), 1);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(compressToZIPFile, archiversStatusIsReturnedAndNoShellIsInvolved)
{
    const test::TemporaryFolder folder;
    const OtherArchiver archiver(
        "printf '%s\\n' \"$@\" > \"$(dirname \"$0\")/arguments\"\n"
        "cat > \"$(dirname \"$0\")/names\"\nexit 3\n");
    const std::string source = folder.write("$(touch x);a b.jpg", "bytes");
    EXPECT_EQ(compress(source, folder.file("out.zip"), true), 3);
    EXPECT_TRUE(fs::exists(source));
    const std::string arguments = test::readFile(archiver.file("arguments"));
    EXPECT_EQ(arguments.substr(arguments.find("-C\n")),
              "-C\n" + folder.path() + "\n--null\n-T\n-\n");
    EXPECT_EQ(test::readFile(archiver.file("names")), std::string("$(touch x);a b.jpg\0", 19));
}
