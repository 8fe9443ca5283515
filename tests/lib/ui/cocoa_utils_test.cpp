#include "lib/ui/cocoa_utils.h"

#include "platform/files/file_comment.h"
#include "platform/files/path_text.h"
#include "platform/system/child_process.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>
#include <filesystem>
#include <vector>

#include <sys/stat.h>

namespace {
namespace fs = std::filesystem;
using test::text;

// What `bsdtar -tf` lists, sorted.
std::vector<std::string> namesIn(const std::string& archive, const test::TemporaryFolder& folder)
{
    fs::create_directory(folder.file("unpacked"));
    EXPECT_EQ(platform::runAndWait({"bsdtar", "-xf", archive, "-C", folder.file("unpacked")},
                                   {"LC_ALL=C.UTF-8"}),
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
    return cocoaUtils::compressToZIPFile(text(source).get(), text(target).get(),
                                         deleteOriginal ? 1 : 0);
}
}  // namespace

TEST(setStringValue, setsTheTextOfEveryKindOfControl)
{
    QLabel label;
    QLineEdit line;
    QPlainTextEdit plain;
    QPushButton button;
    QCheckBox box;
    QGroupBox group;
    QComboBox popUp;
    popUp.addItems({QStringLiteral("one"), QStringLiteral("two")});
    for (QWidget* control :
         std::initializer_list<QWidget*>{&label, &line, &plain, &button, &box, &group, &popUp}) {
        cocoaUtils::setStringValue(control, text("two").get());
    }
    EXPECT_EQ(label.text(), QLatin1String("two"));
    EXPECT_EQ(line.text(), QLatin1String("two"));
    EXPECT_EQ(plain.toPlainText(), QLatin1String("two"));
    EXPECT_EQ(button.text(), QLatin1String("two"));
    EXPECT_EQ(box.text(), QLatin1String("two"));
    EXPECT_EQ(group.title(), QLatin1String("two"));
    EXPECT_EQ(popUp.currentIndex(), 1);
}

TEST(setStringValue, nullSetsTheEmptyText)
{
    QLabel label(QStringLiteral("before"));
    cocoaUtils::setStringValue(&label, nullptr);
    EXPECT_EQ(label.text(), QString());
    EXPECT_FALSE(label.text().isNull()) << "the empty text, never none";
    cocoaUtils::setStringValue(nullptr, nullptr);  // no control is no failure
}

TEST(setStringValue, markupIsShownAsItStands)
{
    QLabel label;
    cocoaUtils::setStringValue(&label, text("<b>x</b>").get());
    EXPECT_EQ(label.text(), QLatin1String("<b>x</b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(setStringValue, whatIsNoUnicodeShowsAsReplacementCharacter)
{
    QLabel label;
    const test::Text path(platform::createPathText("a\xff\xF0\x9F\x8C\x8D"));
    cocoaUtils::setStringValue(&label, path.get());
    EXPECT_EQ(label.text(), QStringLiteral(u"a\uFFFD\U0001F30D"));
}

TEST(cuGetPathFromFSRef, pathOfAReference)
{
    const test::TemporaryFolder folder;
    for (const char* name : {"Gr\u00f6\u00dfe.jpg", "caf\xe9.jpg", "-C"}) {
        const FSRef ref = {folder.write(name, "")};
        const test::Text path(cocoaUtils::cuGetPathFromFSRef(&ref));
        ASSERT_TRUE(path);
        EXPECT_EQ(platform::pathBytes(path.get()), ref.path);
    }
}

TEST(cuGetPathFromFSRef, nullWithoutAPathAndBeyond2048Bytes)
{
    const test::TemporaryFolder folder;
    std::string deep = folder.path();
    while (deep.size() + 201 < 2040) deep += '/' + std::string(200, 'x');
    fs::create_directories(deep);
    const FSRef empty;
    const FSRef longest = {deep + '/' + std::string(2048 - deep.size() - 1, 'y')};
    const FSRef tooLong = {longest.path + 'y'};
    for (const FSRef& ref : {longest, tooLong}) fs::create_directory(ref.path);
    EXPECT_EQ(cocoaUtils::cuGetPathFromFSRef(nullptr), nullptr);
    EXPECT_EQ(cocoaUtils::cuGetPathFromFSRef(&empty), nullptr);
    EXPECT_EQ(test::takeUTF8(cocoaUtils::cuGetPathFromFSRef(&longest)), longest.path);
    EXPECT_EQ(cocoaUtils::cuGetPathFromFSRef(&tooLong), nullptr);
}

TEST(cuGetPathFromFSRef, nullOnceTheItemIsGone)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("a.jpg", "")};
    const FSRef inFolder = {folder.file("trip/b.jpg")};
    fs::create_directory(folder.file("trip"));
    (void)folder.write("trip/b.jpg", "");
    const FSRef link = {folder.file("link")};
    fs::create_symlink("a.jpg", link.path);
    fs::remove(file.path);
    fs::remove_all(folder.file("trip"));
    EXPECT_EQ(cocoaUtils::cuGetPathFromFSRef(&file), nullptr);
    EXPECT_EQ(cocoaUtils::cuGetPathFromFSRef(&inFolder), nullptr);
    EXPECT_EQ(test::takeUTF8(cocoaUtils::cuGetPathFromFSRef(&link)), link.path)
        << "a link is an item, wherever it leads";
}

TEST(compressToZIPFile, packsAFileUnderItsName)
{
    const test::TemporaryFolder folder;
    const std::string source = folder.write(
        "-Gr\xC3\xB6\xC3\x9F"
        "e 1.jpg",
        "bytes");
    const std::string target = folder.file("out.zip");
    EXPECT_EQ(compress(source, target, false), 0);
    EXPECT_EQ(test::readFile(target).substr(0, 4), "PK\3\4");
    EXPECT_EQ(namesIn(target, folder), std::vector<std::string>{"-Gr\xC3\xB6\xC3\x9F"
                                                                "e 1.jpg"});
    EXPECT_TRUE(fs::exists(source)) << "without the flag the source stays";
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
        << "nothing unfinished stays behind";
}

TEST(compressToZIPFile, failureKeepsAnArchiveThatWasThere)
{
    const test::TemporaryFolder folder;
    const std::string target = folder.write("out.zip", "earlier");
    EXPECT_NE(compress(folder.file("missing.jpg"), target, false), 0);
    EXPECT_EQ(test::readFile(target), "earlier");
}

TEST(compressToZIPFile, missingArchiverIs127)
{
    const test::TemporaryFolder folder;
    const test::ScopedVariable noPrograms("PATH", folder.path().c_str());
    const std::string source = folder.write("a.jpg", "bytes");
    EXPECT_EQ(compress(source, folder.file("out.zip"), true), 127);
    EXPECT_TRUE(fs::exists(source));
}

TEST(compressToZIPFile, archiversStatusIsReturnedAndNoShellIsInvolved)
{
    const test::TemporaryFolder folder;
    const std::string stub = folder.write(
        "bsdtar", "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$(dirname \"$0\")/arguments\"\nexit 3\n");
    chmod(stub.c_str(), 0755);
    const std::string path = folder.path() + ":/usr/bin:/bin";
    const test::ScopedVariable stubFirst("PATH", path.c_str());
    const std::string source = folder.write("$(touch x);a b.jpg", "bytes");
    EXPECT_EQ(compress(source, folder.file("out.zip"), true), 3);
    EXPECT_TRUE(fs::exists(source));
    const std::string arguments = test::readFile(folder.file("arguments"));
    EXPECT_EQ(arguments.substr(arguments.find("-C\n")),
              "-C\n" + folder.path() + "\n--\n$(touch x);a b.jpg\n");
}

class addToFinderComment : public testing::Test {
protected:
    void SetUp() override
    {
        path_ = folder_.write("a.jpg", "bytes");
        if (!platform::writeFileComment(path_, ""))
            GTEST_SKIP() << "the temporary folder's file system keeps no comments";
    }
    void add(std::string_view comment)
    {
        cocoaUtils::addToFinderComment(text(path_).get(), text(comment).get());
    }

    test::TemporaryFolder folder_;
    std::string path_;
};

TEST_F(addToFinderComment, replacesAnEmptyComment)
{
    add("Stra\xC3\x9F"
        "e");
    EXPECT_EQ(platform::readFileComment(path_),
              "Stra\xC3\x9F"
              "e");
}

TEST_F(addToFinderComment, appendsOnANewLine)
{
    add("a");
    add("b");
    EXPECT_EQ(platform::readFileComment(path_), "a\rb");
}

TEST_F(addToFinderComment, commentsAFileThatHadNone)
{
    path_ = folder_.write("b.jpg", "bytes");
    EXPECT_EQ(platform::readFileComment(path_), std::nullopt);
    add("first");
    EXPECT_EQ(platform::readFileComment(path_), "first");
}

TEST_F(addToFinderComment, failuresAreSilent)
{
    path_ = folder_.file("missing.jpg");
    add("x");
    cocoaUtils::addToFinderComment(nullptr, text("x").get());
    EXPECT_FALSE(fs::exists(path_));
}
