// The line at the foot of the window, and what it says of the file that is shown.

#include "app/foot_line.h"

#include "app/picture_words.h"
#include "app/reading_notice.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QTranslator>

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>

using namespace pinorama;
using Topic = FootLine::Topic;

namespace {
class FootLineTest : public testing::Test {
protected:
    std::string words() const
    {
        const auto* label = line.findChild<QLabel*>(QStringLiteral("footLineWords"));
        EXPECT_EQ(label->text(), line.words());
        return line.isHidden() ? "" : label->text().toStdString();
    }
    QPushButton* button() { return line.findChild<QPushButton*>(); }

    FootLine line;
};

class whatTheFootSays : public test::ControllerTest {
protected:
    // The words once everything has come of the file that is shown; empty without any.
    std::string words()
    {
        EXPECT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
        const auto* line = controller.myWindow->findChild<FootLine*>();
        if (line == nullptr || line->isHidden()) return "";
        return line->words().toStdString();
    }
    bool waitFor(const std::string& expected)
    {
        return test::waitUntil([&] { return words() == expected; });
    }
};

const test::PictureFields kCape = {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "E"};
constexpr const char* kNoPlace = "This picture does not say where it was taken.";
constexpr const char* kSeveral = "Several files are selected; the window shows one at a time.";
}  // namespace

TEST_F(FootLineTest, saysNothingAtFirst)
{
    EXPECT_EQ(words(), "");
    line.takeBack(Topic::action);
    EXPECT_EQ(words(), "");
}

TEST_F(FootLineTest, showsWhatWasSaidLastAndThenWhatWasSaidBefore)
{
    line.say(Topic::picture, QStringLiteral("picture"));
    line.say(Topic::action, QStringLiteral("action"));
    EXPECT_EQ(words(), "action");
    line.say(Topic::picture, QStringLiteral("picture"));
    EXPECT_EQ(words(), "action") << "the same again";
    line.say(Topic::picture, QStringLiteral("another"));
    EXPECT_EQ(words(), "another");
    line.takeBack(Topic::picture);
    EXPECT_EQ(words(), "action");
    EXPECT_TRUE(line.says(Topic::action));
    EXPECT_FALSE(line.says(Topic::picture));
    line.takeBack(Topic::action);
    EXPECT_EQ(words(), "");
}

TEST_F(FootLineTest, offersAButtonWithItsOwnWords)
{
    int runs = 0;
    const FootOffer offer = {QStringLiteral("Do It"), [&] {
                                 ++runs;
                                 line.say(Topic::action, QStringLiteral("done"));
                             }};
    line.say(Topic::action, QStringLiteral("to do"), offer);
    EXPECT_FALSE(button()->isHidden());
    EXPECT_EQ(button()->text(), QLatin1String("Do It"));
    line.say(Topic::picture, QStringLiteral("picture"));
    EXPECT_TRUE(button()->isHidden());
    line.takeBack(Topic::picture);
    button()->click();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(words(), "done");
    EXPECT_TRUE(button()->isHidden());
}

TEST_F(FootLineTest, anActionThatFailsAgainIsSaidAgain)
{
    line.say(Topic::action, QStringLiteral("no browser"));
    line.say(Topic::selection, QStringLiteral("several"));
    line.say(Topic::action, QStringLiteral("no browser"));
    EXPECT_EQ(words(), "no browser");
    line.say(Topic::selection, QStringLiteral("several"));
    EXPECT_EQ(words(), "no browser") << "the selection is looked at all the time";
}

TEST_F(FootLineTest, theButtonIsThatOfTheLastActionEvenIfItsWordsAreTheSame)
{
    std::string done;
    const auto offer = [&done](const char* which) {
        return FootOffer{QStringLiteral("Show"), [&done, which] { done += which; }};
    };
    line.say(Topic::action, QStringLiteral("saved"), offer("first"));
    line.say(Topic::action, QStringLiteral("saved"), offer("second"));
    button()->click();
    EXPECT_EQ(done, "second");
}

TEST_F(FootLineTest, isReadOutAndTakesMarkupAsItStands)
{
    line.say(Topic::action, QStringLiteral("<b>%1 &x.jpg"));
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&line);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), "<b>%1 &x.jpg");
    EXPECT_EQ(line.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_EQ(line.focusPolicy(), Qt::NoFocus);
}

TEST_F(whatTheFootSays, aPictureWithAPlaceNeedsNoWords)
{
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    EXPECT_EQ(words(), "");
    EXPECT_EQ(controller.myWindow->findChild<FootLine*>(), nullptr);
}

TEST_F(whatTheFootSays, aPictureWithoutAPlace)
{
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_TRUE(waitFor(kNoPlace)) << words();
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    EXPECT_EQ(words(), "") << "gone with the next picture";
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_TRUE(waitFor(kNoPlace)) << words();
}

TEST_F(whatTheFootSays, aPictureOnTheEquatorNeedsNoWords)
{
    EXPECT_TRUE(showPicture("a.jpg", {.lat = 0.0, .latRef = "N", .lon = 9.0, .lonRef = "E"}));
    EXPECT_EQ(words(), "");
}

TEST_F(whatTheFootSays, whatIsMissingOrOfAnotherKind)
{
    EXPECT_TRUE(show(folder.file("gone.jpg")));
    EXPECT_EQ(words(), "There is no file gone.jpg.");
    EXPECT_FALSE(show(folder.file("gone.txt")));
    EXPECT_EQ(words(), "There is no file gone.txt.");
    EXPECT_FALSE(show(folder.write("notes.txt", "x")));
    EXPECT_EQ(words(), "Files of this type are not read; JPEG and the raw files of cameras are.");
    std::filesystem::create_directory(folder.file("Pictures"));
    EXPECT_FALSE(show(folder.file("Pictures")));
    EXPECT_EQ(words(), "Pictures is a folder.");
    std::filesystem::create_directory(folder.file("x.jpg"));
    EXPECT_TRUE(show(folder.file("x.jpg")));
    EXPECT_EQ(words(), "x.jpg is a folder.");
    ASSERT_EQ(mkfifo(folder.file("pipe.jpg").c_str(), 0600), 0);
    EXPECT_TRUE(show(folder.file("pipe.jpg")));
    EXPECT_EQ(words(), "pipe.jpg is not a file that can be read.");
}

TEST_F(whatTheFootSays, whatIsNoPictureWhateverItsName)
{
    const struct {
        const char* name;
        std::string bytes;
    } rows[] = {{"empty.jpg", ""},
                {"text.jpg", "some words"},
                {"noise.nef", "\x07\xf3 6\x90\xee"},
                {"broken.jpg", "\xff\xd8\xff\xe1 and nothing more"}};
    for (const auto& row : rows) {
        EXPECT_TRUE(show(folder.write(row.name, row.bytes)));
        EXPECT_TRUE(waitFor(std::string(row.name) + " could not be read.")) << words();
    }
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    EXPECT_EQ(words(), "") << "gone with the next picture";
}

TEST_F(whatTheFootSays, whatMayNotBeRead)
{
    if (geteuid() == 0) {
        // Root may read everything; the words are the same.
        EXPECT_EQ(wordsOfOpenError(EACCES, QStringLiteral("a.jpg")).toStdString(),
                  "You are not allowed to read a.jpg.");
        return;
    }
    const std::string path = folder.write("a.jpg", test::pictureWithGps(kCape));
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    EXPECT_TRUE(show(path));
    EXPECT_EQ(words(), "You are not allowed to read a.jpg.");
}

TEST_F(whatTheFootSays, severalFilesUntilThereIsOneOrNoneAgain)
{
    const std::string none = folder.write("none.jpg", test::jpegPicture({}));
    selection.paths = {none};
    controller.updateSelection();
    EXPECT_TRUE(waitFor(kNoPlace)) << words();
    selection.paths = {none, "/b.jpg"};
    controller.updateSelection();
    EXPECT_EQ(words(), kSeveral);
    controller.updateSelection();
    EXPECT_EQ(words(), kSeveral);
    selection.paths = {none};
    controller.updateSelection();
    EXPECT_EQ(words(), kNoPlace);
    selection.paths = {none, "/b.jpg"};
    controller.updateSelection();
    selection.paths = {};
    controller.updateSelection();
    EXPECT_EQ(words(), kNoPlace);
}

TEST_F(whatTheFootSays, nothingOfTheSelectionWhileNobodyFollowsIt)
{
    selection.paths = {"/a.jpg", "/b.jpg"};
    controller.updateSelection();
    EXPECT_EQ(words(), kSeveral);
    controller.syncCheckbox->setChecked(false);
    EXPECT_EQ(words(), "");
    controller.updateSelection();
    EXPECT_EQ(words(), "");
}

TEST_F(whatTheFootSays, aLongNameKeepsTheWindowAsWideAsItIs)
{
    EXPECT_TRUE(show(folder.file("a.jpg")));
    const int width = controller.myWindow->minimumSizeHint().width();
    EXPECT_TRUE(show(folder.file(std::string(200, 'W') + ".jpg")));
    EXPECT_EQ(controller.myWindow->minimumSizeHint().width(), width);
    EXPECT_LT(words().size(), 60u) << words();
}

TEST_F(whatTheFootSays, theWindowStaysAsItIsOnceTheLineHasBeenThere)
{
    EXPECT_TRUE(showPicture("none.jpg", {}));
    controller.showMainWindow();
    ASSERT_TRUE(waitFor(kNoPlace));
    QCoreApplication::processEvents();
    const QPoint button = controller.exportKMLButton->pos();
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    EXPECT_EQ(words(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.exportKMLButton->pos(), button);
}

TEST_F(whatTheFootSays, isTranslated)
{
    const QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    const auto allWords = [] {
        const QString name = QStringLiteral("a.jpg");
        FileAttributes item = {.isRegular = false, .size = 0, .modified = 0, .created = {}};
        QStringList all = {wordsOfNoPlace(), wordsOfSeveral(), wordsOfKind(item, name, true)};
        item.type = S_IFDIR;
        all << wordsOfKind(item, name, true);
        item.isRegular = true;
        item.type = S_IFREG;
        EXPECT_EQ(wordsOfKind(item, name, true), QString());
        all << wordsOfKind(item, name, false);
        for (const int error : {ENOENT, EACCES, EIO}) all << wordsOfOpenError(error, name);
        return all;
    };
    const QStringList english = allWords();
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        const QStringList translated = allWords();
        for (qsizetype i = 0; i < english.size(); ++i) {
            EXPECT_NE(translated[i], english[i]);
            EXPECT_EQ(translated[i].contains(QLatin1String("a.jpg")),
                      english[i].contains(QLatin1String("a.jpg")));
        }
        QCoreApplication::removeTranslator(&translator);
    }
}
