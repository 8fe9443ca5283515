#include "lib/ui/cocoa_utils.h"

#include "lib/files/file_comment.h"
#include "lib/files/path_text.h"
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

#include <filesystem>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using test::text;
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

TEST(setStringValue, aLoneSurrogateShowsAsReplacementCharacter)
{
    QLabel label;
    const test::Text path(createPathText("a\xff\xF0\x9F\x8C\x8D"));
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
        EXPECT_EQ(pathBytes(path.get()), ref.path);
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

class addToFinderComment : public testing::Test {
protected:
    void SetUp() override
    {
        path_ = folder_.write("a.jpg", "bytes");
        if (!writeFileComment(path_, ""))
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
    EXPECT_EQ(readFileComment(path_),
              "Stra\xC3\x9F"
              "e");
}

TEST_F(addToFinderComment, appendsOnANewLine)
{
    add("a");
    add("b");
    EXPECT_EQ(readFileComment(path_), "a\rb");
}

TEST_F(addToFinderComment, commentsAFileThatHadNone)
{
    path_ = folder_.write("b.jpg", "bytes");
    EXPECT_EQ(readFileComment(path_), std::nullopt);
    add("first");
    EXPECT_EQ(readFileComment(path_), "first");
}

TEST_F(addToFinderComment, failuresAreSilent)
{
    path_ = folder_.file("missing.jpg");
    add("x");
    cocoaUtils::addToFinderComment(nullptr, text("x").get());
    EXPECT_FALSE(fs::exists(path_));
}
