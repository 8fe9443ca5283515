// What the window says when a place could not be saved.

#include "app/export_notice.h"

#include "tests/app/controller_fixture.h"

#include <QAccessible>
#include <QDir>
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
        pinorama::showExportResult(*controller.myWindow, file, error);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
    show(0);
    EXPECT_EQ(notice(), nullptr);
    show(ENOSPC);
    notice()->findChild<QPushButton*>(QStringLiteral("exportNoticeDismissButton"))->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(notice(), nullptr);
    show(ENOSPC);
    show(0);
    EXPECT_EQ(notice(), nullptr);
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
}

TEST_F(showExportResult, markupInANameIsShownAsItStands)
{
    show(ENOSPC, QStringLiteral("/tmp/<b>%1 %2.kml"));
    EXPECT_EQ(words(), "<b>%1 %2.kml could not be written: the disk is full.");
    EXPECT_EQ(notice()->findChild<QLabel*>()->textFormat(), Qt::PlainText);
}

TEST_F(showExportResult, speaksEveryLanguage)
{
    const QStringList files = QDir(QStringLiteral(":/i18n")).entryList({QStringLiteral("*.qm")});
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
        QCoreApplication::removeTranslator(&translator);
        show(0);
    }
}
