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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    std::string saved()
    {
        const auto* line = controller.myWindow->findChild<FootLine*>();
        return line == nullptr || line->isHidden() ? "" : line->words().toStdString();
    }
    ExportNotice* notice() { return controller.myWindow->findChild<ExportNotice*>(); }
    std::string words()
    {
        const auto* label =
            controller.myWindow->findChild<QLabel*>(QStringLiteral("exportNoticeWords"));
        return label == nullptr ? "" : label->text().toStdString();
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
    EXPECT_EQ(controller.myWindow->findChildren<ExportNotice*>().size(), 1);
    EXPECT_TRUE(test::waitUntil([this] { return notice()->isVisible(); }));
    EXPECT_GT(notice()->geometry().top(), controller.syncCheckbox->geometry().bottom());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(showExportResult, goesWhenItIsDismissedAndWhenAnExportSucceeds)
{
    EXPECT_EQ(notice(), nullptr);
    show(ENOSPC);
    notice()->findChild<QPushButton*>(QStringLiteral("exportNoticeDismissButton"))->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(notice(), nullptr);
    show(ENOSPC);
    show(0);
    EXPECT_EQ(notice(), nullptr);
}

TEST_F(showExportResult, goesWithTheNextPicture)
{
    for (const int error : {ENOSPC, 0}) {
        show(error);
        EXPECT_TRUE(showPicture("a.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
        EXPECT_TRUE(showPicture("b.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(notice(), nullptr);
        EXPECT_EQ(saved(), "");
    }
}

TEST_F(showExportResult, saysThatItWasSavedAndShowsTheFile)
{
    show(0);
    EXPECT_EQ(saved(), "place.kml was saved in /home/me.");
    auto* button = controller.myWindow->findChild<QPushButton*>(QStringLiteral("footLineButton"));
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->isHidden());
    EXPECT_EQ(button->text(), QLatin1String("Show in Fo&lder"));
    button->click();  // without a session bus the folder is opened
    EXPECT_TRUE(test::waitUntil([this] { return !opener.addresses.empty(); }));
    EXPECT_EQ(opener.addresses, std::vector<std::string>{"file:///home/me/"});
    show(ENOSPC);
    EXPECT_EQ(saved(), "") << "the later one counts";
}

TEST_F(showExportResult, isReadOutAndTakesNoFocus)
{
    const QWidget* focus = controller.myWindow->focusWidget();
    show(ENOSPC);
    EXPECT_EQ(controller.myWindow->focusWidget(), focus);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(notice());
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
    EXPECT_TRUE(saved().starts_with("place.kml was saved in /tmp/W")) << saved();
}

TEST_F(showExportResult, markupInANameIsShownAsItStands)
{
    show(ENOSPC, QStringLiteral("/tmp/<b>%1 %2.kml"));
    EXPECT_EQ(words(), "<b>%1 %2.kml could not be written: the disk is full.");
    EXPECT_EQ(notice()->findChild<QLabel*>()->textFormat(), Qt::PlainText);
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
        EXPECT_EQ(saved().find("saved"), std::string::npos) << saved();
        EXPECT_NE(saved().find("place.kml"), std::string::npos) << saved();
        QCoreApplication::removeTranslator(&translator);
    }
}
