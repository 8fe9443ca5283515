// The window of pictures nearby over searches of the test's own.

#include "app/nearby/nearby_window.h"

#include "app/nearby/nearby_view.h"
#include "app/translations.h"
#include "lib/ui/application_bundle.h"
#include "tests/app/controller_fixture.h"
#include "tests/app/nearby/nearby_views.h"
#include "tests/app/nearby/search_program.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/mirrored.h"

#include <QAccessible>
#include <QAction>
#include <QLayout>
#include <QLocale>
#include <QScrollBar>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

using namespace pinorama;

namespace {
class nearbyWindow : public testing::Test {
protected:
    nearbyWindow()
    {
        (void)iuRegisterApplicationBundle();  // the points of the compass
        installTranslations();                // the plural forms of English
        QObject::connect(&window, &NearbyWindow::chosen, &window,
                         [this](const std::string& path) { chosen = path; });
        QObject::connect(&window, &NearbyWindow::opened, &window,
                         [this](const std::string& path) { opened = path; });
    }

    // Searches by such a program.
    void searchBy(const std::string& lines)
    {
        program.emplace(lines);
        window.search("/photos/trip/here.jpg", {0.5, 10});
    }
    bool waitUntilIdle()
    {
        return test::waitUntil([this] { return !window.isBusy(); });
    }

    std::optional<test::SearchProgram> program;
    test::RecordingOpener opener;
    NearbyWindow window{opener};
    test::NearbyViews views{&window};
    std::string chosen, opened;
};
}  // namespace

TEST_F(nearbyWindow, showsPicturesWhileTheSearchGoesOn)
{
    searchBy(test::foundLine("/b.jpg", "1500") + test::foundLine("/a.jpg", "12") +
             "while [ ! -e \"$FOLDER/go\" ]; do sleep 0.05; done\n" +
             test::foundLine("/c.jpg", "600"));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(test::waitUntil([this] { return views.model()->rowCount() == 2; }));
    EXPECT_EQ(views.texts(), "a.jpg, 12 m NE; b.jpg, 1.5 km NE; ");
    EXPECT_EQ(views.status(), "Searching... 2 pictures found so far");
    EXPECT_TRUE(views.stopButton()->isEnabled());
    (void)program->folder().write("go", "");
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(views.texts(), "a.jpg, 12 m NE; c.jpg, 600 m NE; b.jpg, 1.5 km NE; ");
    EXPECT_EQ(views.status(), "3 pictures found");
    EXPECT_FALSE(views.stopButton()->isEnabled());
}

TEST_F(nearbyWindow, saysHowASearchEnds)
{
    const struct {
        const char* name;
        std::string lines, expected;
    } rows[] = {
        {"none", test::foundLine("/photos/trip/here.jpg", "0"),
         "No other picture within 2000 m was found in these folders:\n/photos/trip\n"},
        {"too early", test::foundLine("/a.jpg", "1") + "exit 2",
         "The search ended too early. 1 picture found until then"},
        {"nothing, too early", "kill -KILL $$",
         "The search ended too early. 0 pictures found until then"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        searchBy(row.lines);
        EXPECT_EQ(views.status(), "Searching...");
        EXPECT_TRUE(waitUntilIdle());
        EXPECT_TRUE(views.status().starts_with(row.expected)) << views.status();
    }
    const test::ScopedVariable none("PINORAMA_SEARCH", "/nowhere/pinorama-search");
    window.search("/photos/trip/here.jpg", {0.5, 10});
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(views.status(),
              "Pictures cannot be searched for: the program pinorama-search does not start.");
    EXPECT_EQ(views.view()->accessibleName().toStdString(), views.status())
        << "what a screen reader says of the empty list";
}

TEST_F(nearbyWindow, saysHowManyOfThePicturesItShows)
{
    const int shown = static_cast<int>(NearbyModel::kMaxPictures);
    searchBy("i=0; while [ $i -lt " + std::to_string(shown + 1) + " ]; do i=$((i + 1))\n" +
             "printf '/%s.jpg\\0\\0\\0%s\\00045\\0\\0' $i $i; done");
    EXPECT_TRUE(waitUntilIdle());
    const QLocale locale;
    EXPECT_EQ(views.status(), locale.toString(shown + 1).toStdString() + " pictures found. The " +
                                  "nearest " + locale.toString(shown).toStdString() +
                                  " pictures are shown.");
}

TEST_F(nearbyWindow, isolatesNamesAndFoldersInAMirroredWindow)
{
    const test::Mirrored mirrored;
    searchBy(test::foundLine("/photos/trip/here.jpg", "0"));
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(views.heading(), "Within 2000 m of \u2068here.jpg\u2069");
    EXPECT_TRUE(
        views.status().starts_with("No other picture within 2000 m was found in these folders:\n"
                                   "\u2066/\u2068photos\u2069/\u2068trip\u2069\u2069\n"))
        << views.status();
}

// The words that stand beside the button otherwise stand in the list then.
TEST_F(nearbyWindow, keepsTheWidthOfItsButtonWhereNothingWasFound)
{
    window.show();
    searchBy(test::foundLine("/photos/trip/here.jpg", "0"));
    EXPECT_TRUE(waitUntilIdle());
    window.layout()->activate();
    EXPECT_EQ(views.stopButton()->width(), views.stopButton()->sizeHint().width());
    EXPECT_GT(views.stopButton()->x(), window.width() / 2) << "at the end of its line";
}

TEST_F(nearbyWindow, stopsASearch)
{
    searchBy(test::foundLine("/a.jpg", "1") + "exec sleep 1000");
    EXPECT_TRUE(test::waitUntil([this] { return views.model()->rowCount() == 1; }));
    views.stopButton()->click();
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(views.status(), "Stopped. 1 picture found until then");
    EXPECT_EQ(views.texts(), "a.jpg, 1 m NE; ");
}

TEST_F(nearbyWindow, endsTheSearchWhenItCloses)
{
    searchBy("echo $$ > \"$FOLDER/process\"\n" + test::foundLine("/a.jpg", "1") +
             "exec sleep 1000");
    EXPECT_TRUE(test::waitUntil([this] { return views.model()->rowCount() == 1; }));
    const pid_t process = std::stoi(test::readFile(program->folder().file("process")));
    EXPECT_EQ(kill(process, 0), 0);
    QTest::keyClick(views.view(), Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(test::waitUntil([process] { return kill(process, 0) != 0 && errno == ESRCH; }));
}

TEST_F(nearbyWindow, worksWithTheKeyboard)
{
    searchBy(test::foundLine("/b.jpg", "2") + test::foundLine("/a.jpg", "1"));
    EXPECT_TRUE(waitUntilIdle());
    QTest::keyClick(views.view(), Qt::Key_Home);
    QTest::keyClick(views.view(), Qt::Key_Right);
    EXPECT_EQ(views.view()->currentIndex().row(), 1);
    QTest::keyClick(views.view(), Qt::Key_Return);
    EXPECT_EQ(opened, "/b.jpg");
    views.view()->findChild<QAction*>(QStringLiteral("nearbyOpenAction"))->trigger();
    EXPECT_EQ(opener.addresses, std::vector<std::string>{"file:///b.jpg"});
}

TEST_F(nearbyWindow, opensAPictureInAProgramOfTheUsersChoice)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "x");
    searchBy(test::foundLine(path, "1"));
    EXPECT_TRUE(waitUntilIdle());
    auto* openWith = views.view()->findChild<QAction*>(QStringLiteral("nearbyOpenWithAction"));
    openWith->trigger();
    EXPECT_TRUE(opener.addresses.empty()) << "no picture is chosen";
    QTest::keyClick(views.view(), Qt::Key_Home);
    EXPECT_TRUE(openWith->isEnabled());
    openWith->trigger();
    // There is no session bus, and so no portal that could ask.
    EXPECT_TRUE(test::waitUntil([this] { return !opener.addresses.empty(); }));
    EXPECT_EQ(opener.addresses, std::vector<std::string>{"file://" + path});
}

TEST_F(nearbyWindow, tellsAScreenReaderWhatItShows)
{
    searchBy(test::foundLine("/a.jpg", "1500"));
    EXPECT_TRUE(waitUntilIdle());
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(views.view());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->text(QAccessible::Name), QLatin1String("Pictures Nearby"));
    ASSERT_EQ(list->childCount(), 1);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), QLatin1String("a.jpg, 1.5 km NE"));
}

TEST_F(nearbyWindow, loadsTheThumbnailsInSight)
{
    const test::TemporaryFolder folder;
    const std::string bytes = test::jpegOfQuarters(400, 300);
    std::string lines;
    constexpr int kCount = 200;
    for (int i = 0; i < kCount; i++) {
        const std::string path = folder.write(std::to_string(i) + ".jpg", bytes);
        lines += test::foundLine(path, std::to_string(i + 1));
    }
    searchBy(lines);
    EXPECT_TRUE(waitUntilIdle());
    const auto hasPicture = [this](int row) {
        const QImage image = views.index(row).data(Qt::DecorationRole).value<QPixmap>().toImage();
        return test::isNear(image.pixel(image.width() / 4, image.height() * 3 / 8), test::kRed);
    };
    ASSERT_EQ(views.model()->rowCount(), kCount);
    EXPECT_TRUE(hasPicture(0));
    EXPECT_FALSE(hasPicture(kCount - 1)) << "it is not in sight";
    views.view()->scrollToBottom();
    EXPECT_TRUE(test::waitUntil([&] { return hasPicture(kCount - 1); }));
    EXPECT_FALSE(hasPicture(kCount / 2)) << "it was passed over";
}

TEST_F(nearbyWindow, showsTheIconOfWhatHasNoPreview)
{
    searchBy(test::foundLine("/nowhere/a.jpg", "1"));
    EXPECT_TRUE(waitUntilIdle());
    const QImage image = views.index(0).data(Qt::DecorationRole).value<QPixmap>().toImage();
    EXPECT_GT(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 0);
}
