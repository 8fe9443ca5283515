// The line at the foot of the window that says that a picture is still being read.

#include "app/reading_notice.h"

#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QAccessible>
#include <QTranslator>

using namespace pinorama;

namespace {
class ReadingNoticeTest : public testing::Test {
protected:
    std::string words() const { return notice.isHidden() ? "" : notice.text().toStdString(); }

    ReadingNotice notice;
};

const QString kName = QStringLiteral("a.jpg");
}  // namespace

TEST_F(ReadingNoticeTest, saysNothingAtFirst)
{
    EXPECT_EQ(words(), "");
    notice.endReading();
    notice.forget();
    EXPECT_EQ(words(), "");
}

TEST_F(ReadingNoticeTest, saysThatItGoesOnUntilItIsOver)
{
    notice.sayStillReading(kName);
    EXPECT_EQ(words(), "Still reading a.jpg...");
    EXPECT_EQ(notice.toolTip().toStdString(), words());
    notice.endReading();
    EXPECT_EQ(words(), "");
}

TEST_F(ReadingNoticeTest, takesBackThatAFileDoesNotAnswer)
{
    notice.sayStillReading(kName);
    notice.sayNotAnswering(kName);
    EXPECT_EQ(words(), "a.jpg does not answer.");
    notice.sayStillReading(kName);
    EXPECT_EQ(words(), "Still reading a.jpg...");
    notice.sayNotAnswering(kName);
    notice.endReading();
    EXPECT_EQ(words(), "");
}

TEST_F(ReadingNoticeTest, tellsAPictureFromTheFileBesideIt)
{
    notice.saySidecarNotAnswering(kName);
    EXPECT_EQ(words(), "The XMP file beside a.jpg does not answer.");
    notice.endReading();
    EXPECT_EQ(words(), "");
    notice.saySidecarNotRead(kName);
    EXPECT_EQ(words(), "The XMP file beside a.jpg could not be read.");
    notice.endReading();
    EXPECT_EQ(words(), "The XMP file beside a.jpg could not be read.");
}

TEST_F(ReadingNoticeTest, keepsSayingThatReadingHasFailed)
{
    notice.sayStillReading(kName);
    notice.sayNotRead(kName);
    EXPECT_EQ(words(), "a.jpg could not be read.");
    notice.endReading();
    EXPECT_EQ(words(), "a.jpg could not be read.");
    notice.forget();
    EXPECT_EQ(words(), "");
}

TEST_F(ReadingNoticeTest, takesNamesAsTheyAre)
{
    notice.sayStillReading(QStringLiteral("%1 <b>&x.jpg"));
    EXPECT_EQ(words(), "Still reading %1 <b>&x.jpg...");
}

TEST_F(ReadingNoticeTest, hasItsWordsAsItsNameForAScreenReader)
{
    notice.sayStillReading(kName);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&notice);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), words());
}

TEST_F(ReadingNoticeTest, hasWordsInEveryLanguage)
{
    QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        ReadingNotice translated;
        translated.sayStillReading(kName);
        EXPECT_TRUE(translated.text().contains(kName));
        EXPECT_FALSE(translated.text().startsWith(QLatin1String("Still")));
        translated.sayNotRead(kName);
        EXPECT_TRUE(translated.text().contains(kName));
        EXPECT_FALSE(translated.text().contains(QLatin1String("could")));
        translated.sayNotAnswering(kName);
        EXPECT_TRUE(translated.text().contains(kName));
        EXPECT_FALSE(translated.text().contains(QLatin1String("answer.")));
        translated.saySidecarNotRead(kName);
        EXPECT_TRUE(translated.text().contains(kName));
        EXPECT_FALSE(translated.text().contains(QLatin1String("could")));
        translated.saySidecarNotAnswering(kName);
        EXPECT_TRUE(translated.text().contains(kName));
        EXPECT_FALSE(translated.text().contains(QLatin1String("answer.")));
        QCoreApplication::removeTranslator(&translator);
    }
}

using ReadingNoticeInWindowTest = test::ControllerTest;

TEST_F(ReadingNoticeInWindowTest, standsAtItsFootAndTakesNeitherRoomNorFocusWithoutNeed)
{
    controller.showMainWindow();
    controller.myWindow->resize(700, 750);
    EXPECT_TRUE(showPicture("a.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.myWindow->findChild<ReadingNotice*>(), nullptr);
    const QRect checkBox = controller.syncCheckbox->geometry();
    const QWidget* const focus = controller.myWindow->focusWidget();

    controller.reading().takeReaderStuck(folder.file("other.jpg"));
    EXPECT_EQ(controller.myWindow->findChild<ReadingNotice*>(), nullptr) << "of another file";
    controller.reading().takeReaderStuck(folder.file("a.jpg"));
    auto* const line = controller.myWindow->findChild<ReadingNotice*>();
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(test::waitUntil([&] {
        return line->isVisible() && line->geometry().top() > controller.syncCheckbox->y();
    }));
    EXPECT_EQ(line->text(), QLatin1String("a.jpg could not be read."));
    EXPECT_EQ(controller.myWindow->focusWidget(), focus);

    EXPECT_TRUE(showPicture("b.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
    EXPECT_FALSE(line->isVisible());
    EXPECT_TRUE(test::waitUntil([&] { return controller.syncCheckbox->geometry() == checkBox; }));
}
