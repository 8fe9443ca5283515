// What the window says when a place was saved, and when it could not be.

#include "app/export_notice.h"

#include "app/foot_line.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QTranslator>

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

using namespace pinorama;

namespace {
const QString kFile = QStringLiteral("/home/me/place.kml");

class showExportResult : public test::ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        controller.showMainWindow();
        QCoreApplication::processEvents();
    }

    void show(int error, const QString& file = kFile)
    {
        pinorama::showExportResult(*controller.myWindow, opener, file, error);
    }
    FootLine* line() { return controller.myWindow->findChild<FootLine*>(); }
    // What the foot of the window says; empty when it says nothing.
    std::string words()
    {
        return line() == nullptr || line()->isHidden() ? "" : line()->words().toStdString();
    }
    QPushButton* button()
    {
        return controller.myWindow->findChild<QPushButton*>(QStringLiteral("footLineButton"));
    }
};
}  // namespace

TEST_F(showExportResult, saysWhatCouldNotBeWrittenAndWhy)
{
    const struct {
        int error;
        const char* reason;
    } rows[] = {
        {ENOSPC, "the disk is full."},
        {EDQUOT, "the disk is full."},
        {EACCES, "writing there is not allowed."},
        {EPERM, "writing there is not allowed."},
        {EROFS, "writing there is not allowed."},
        {ENOENT, "there is no such folder."},
        {ENOTDIR, "there is no such folder."},
        {EISDIR, "a folder has that name."},
        {ETIMEDOUT, "the disk does not answer."},
        {EIO, "Input/output error."},
    };
    for (const auto& row : rows) {
        show(row.error);
        EXPECT_EQ(words(), std::string("place.kml could not be written: ") + row.reason);
    }
    EXPECT_EQ(controller.myWindow->findChildren<FootLine*>().size(), 1);
    EXPECT_TRUE(test::waitUntil([this] { return line()->isVisible(); }));
    EXPECT_GT(line()->geometry().top(), controller.syncCheckbox->geometry().bottom());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(showExportResult, isOneLineForFailureAndSuccess)
{
    show(ENOSPC);
    EXPECT_EQ(words(), "place.kml could not be written: the disk is full.");
    EXPECT_TRUE(button()->isHidden()) << "there is no file to show";
    show(0);
    EXPECT_EQ(words(), "place.kml was saved in /home/me.");
    EXPECT_FALSE(button()->isHidden());
    show(ETIMEDOUT);
    EXPECT_EQ(words(), "place.kml could not be written: the disk does not answer.");
    EXPECT_TRUE(button()->isHidden());
}

TEST_F(showExportResult, goesWithTheNextPicture)
{
    for (const int error : {ENOSPC, 0}) {
        show(error);
        EXPECT_TRUE(showPicture("a.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
        EXPECT_TRUE(showPicture("b.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
        EXPECT_EQ(words(), "");
    }
}

TEST_F(showExportResult, saysThatItWasSavedAndShowsTheFile)
{
    show(0);
    EXPECT_EQ(words(), "place.kml was saved in /home/me.");
    ASSERT_NE(button(), nullptr);
    EXPECT_FALSE(button()->isHidden());
    EXPECT_EQ(button()->text(), QLatin1String("Show in Fo&lder"));
    button()->click();  // without a session bus the folder is opened
    EXPECT_TRUE(test::waitUntil([this] { return !opener.addresses.empty(); }));
    EXPECT_EQ(opener.addresses, std::vector<std::string>{"file:///home/me/"});
}

TEST_F(showExportResult, isReadOutAndTakesNoFocus)
{
    const QWidget* focus = controller.myWindow->focusWidget();
    show(ENOSPC);
    EXPECT_EQ(controller.myWindow->focusWidget(), focus);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(line());
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), words());
}

TEST_F(showExportResult, aLongNameKeepsTheWindowAsWideAsItIs)
{
    const int width = controller.myWindow->minimumSizeHint().width();
    show(ENOSPC, QStringLiteral("/tmp/") + QString(250, u'W') + QStringLiteral(".kml"));
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.myWindow->minimumSizeHint().width(), width);
    EXPECT_NE(words().find("W.kml could not"), std::string::npos) << words();
    show(0, QStringLiteral("/tmp/") + QString(250, u'W') + QStringLiteral("/place.kml"));
    QCoreApplication::processEvents();
    EXPECT_EQ(controller.myWindow->minimumSizeHint().width(), width);
    EXPECT_TRUE(words().starts_with("place.kml was saved in /tmp/W")) << words();
}

TEST_F(showExportResult, markupInANameIsShownAsItStands)
{
    show(ENOSPC, QStringLiteral("/tmp/<b>%1 %2.kml"));
    EXPECT_EQ(words(), "<b>%1 %2.kml could not be written: the disk is full.");
    EXPECT_EQ(line()->findChild<QLabel*>()->textFormat(), Qt::PlainText);
}

TEST_F(showExportResult, speaksEveryLanguage)
{
    const QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        for (const int error : {ENOSPC, EACCES, ENOENT, EISDIR}) {
            show(error);
            EXPECT_EQ(words().find("written"), std::string::npos);
            EXPECT_NE(words().find("place.kml"), std::string::npos);
            for (const char* english : {"the disk", "not allowed", "no such", "that name"})
                EXPECT_EQ(words().find(english), std::string::npos) << words();
        }
        show(0);
        EXPECT_EQ(words().find("saved"), std::string::npos) << words();
        EXPECT_NE(words().find("place.kml"), std::string::npos) << words();
        QCoreApplication::removeTranslator(&translator);
    }
}
