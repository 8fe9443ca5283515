// What the foot of the window says once after it was closed for the first time.

#include "app/closing_words.h"

#include "app/foot_line.h"
#include "lib/prefs/preferences.h"
#include "tests/app/controller_fixture.h"

#include <QCoreApplication>

using namespace pinorama;

namespace {
class ClosingWordsTest : public test::ControllerTest {
protected:
    void SetUp() override
    {
        forget();
        ControllerTest::SetUp();
        controller.showMainWindow();
    }
    void TearDown() override { forget(); }

    static void forget() { prefStoreString(test::text("closingExplained").take(), nullptr); }

    // What the window says of the program; empty if nothing.
    QString words() const
    {
        const auto* line = controller.myWindow->findChild<FootLine*>();
        return line != nullptr && line->says(FootLine::Topic::program) ? line->words() : QString();
    }
    void closeAndShow()
    {
        controller.myWindow->close();
        EXPECT_EQ(words(), QString());
        controller.showMainWindow();
    }
};
}  // namespace

TEST_F(ClosingWordsTest, areSaidWhenTheWindowComesBack)
{
    EXPECT_EQ(words(), QString());
    closeAndShow();
    EXPECT_EQ(words().toStdString(),
              "Pinorama keeps running when its window is closed. Picture > Quit Pinorama ends it.");
}

TEST_F(ClosingWordsTest, areSaidOnceOnly)
{
    closeAndShow();
    EXPECT_NE(words(), QString());
    closeAndShow();
    EXPECT_EQ(words(), QString());

    MainWindow another;
    const ClosingWords later(another);
    another.show();
    another.close();
    another.show();
    EXPECT_EQ(another.findChild<FootLine*>(), nullptr);
}

TEST_F(ClosingWordsTest, stayWhenAnotherPictureIsShown)
{
    closeAndShow();
    forgetPicture(*controller.myWindow);
    EXPECT_NE(words(), QString());
}
