// What the window asks before it saves a place, and under which name it is saved.

#include "app/file_saving.h"
#include "tests/app/controller_fixture.h"

#include "globe/kml_document.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

class ExportDialogTest : public test::ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        showPicture("Tom & Jerry <Paris>.jpg",
                    {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "W"});
    }

    QFileDialog* dialog() { return controller.myWindow->findChild<QFileDialog*>(); }

    // The question whether to replace a file; null while there is none.
    static QMessageBox* question()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* box = qobject_cast<QMessageBox*>(window);
            if (box != nullptr && box->isVisible()) return box;
        }
        return nullptr;
    }

    // Types a name and presses the button; a question is answered with `choice`. Returns the text
    // of the question.
    std::string type(const std::string& name, QMessageBox::StandardButton choice = QMessageBox::Yes)
    {
        if (dialog() == nullptr) controller.exportKMLButton->click();
        std::string asked;
        dialog()->setDirectory(QString::fromStdString(folder.path()));
        dialog()
            ->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(name));
        static_cast<QDialog*>(dialog())->accept();
        EXPECT_TRUE(test::waitUntil([this] { return hasTaken(); }));
        if (QMessageBox* box = question()) {
            asked = box->text().toStdString();
            box->button(choice)->click();
        }
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        waitForSaving();
        return asked;
    }

    // Whether the dialog has done what it does with a name: closed, asked, or gone into a folder.
    bool hasTaken()
    {
        const QFileDialog* open = dialog();
        return open == nullptr || open->isHidden() || question() != nullptr ||
               open->directory().path().toStdString() != folder.path();
    }

    void waitForSaving()
    {
        const auto* saving = controller.myWindow->findChild<FileSaving*>();
        EXPECT_TRUE(test::waitUntil([saving] { return !saving->isUnderWay(); }));
    }

    std::string document() const
    {
        const test::Text name = test::text("Tom &amp; Jerry &lt;Paris&gt;.jpg");
        return test::takeUTF8(gpsMakeKMLDocument(&controller.info, name.get())).value_or("");
    }
};
}  // namespace

TEST_F(ExportDialogTest, addsTheSuffixUnlessItIsThere)
{
    const struct {
        const char *typed, *written;
    } rows[] = {
        {"place", "place.kml"},         {"trip 2009.jpg", "trip 2009.jpg.kml"},
        {"trip.kml", "trip.kml"},       {"TRIP.KML", "TRIP.KML"},
        {"a.kml.txt", "a.kml.txt.kml"}, {"v1.2", "v1.2.kml"},
        {"end.", "end..kml"},           {"akml", "akml.kml"},
        {"trip.kmz", "trip.kmz.kml"},   {".hidden", ".hidden.kml"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        EXPECT_EQ(type(row.typed), "");
        EXPECT_EQ(dialog(), nullptr);
        EXPECT_EQ(test::readFile(folder.file(row.written)), document());
        EXPECT_EQ(fs::exists(folder.file(row.typed)), std::string(row.typed) == row.written);
    }
}

TEST_F(ExportDialogTest, asksBeforeItReplacesTheFileThatIsWritten)
{
    (void)folder.write("trip.jpg", "a picture");
    (void)folder.write("trip.jpg.kml", "an earlier place");
    EXPECT_NE(type("trip.jpg", QMessageBox::No).find("trip.jpg.kml"), std::string::npos);
    EXPECT_EQ(test::readFile(folder.file("trip.jpg.kml")), "an earlier place");
    ASSERT_NE(dialog(), nullptr) << "another name can be typed";
    EXPECT_NE(type("trip.jpg", QMessageBox::Yes).find("trip.jpg.kml"), std::string::npos);
    EXPECT_EQ(test::readFile(folder.file("trip.jpg.kml")), document());
    EXPECT_EQ(test::readFile(folder.file("trip.jpg")), "a picture");
    fs::remove(folder.file("trip.jpg.kml"));
    EXPECT_EQ(type("trip.jpg"), "") << "that one is not touched";
    EXPECT_EQ(test::readFile(folder.file("trip.jpg")), "a picture");
}

TEST_F(ExportDialogTest, aDialogOfTheDesktopKnowsNothingOfTheSuffix)
{
    (void)folder.write("trip.jpg.kml", "an earlier place");
    const QString chosen = QString::fromStdString(folder.file("trip.jpg"));
    for (const auto choice : {QMessageBox::No, QMessageBox::Yes}) {
        controller.exportKMLButton->click();
        ASSERT_NE(dialog(), nullptr);
        // So it ends, with what the user has chosen there.
        Q_EMIT dialog()->fileSelected(chosen);
        ASSERT_TRUE(test::waitUntil([] { return question() != nullptr; }));
        EXPECT_NE(question()->text().indexOf(QLatin1String("trip.jpg.kml")), -1);
        EXPECT_EQ(test::readFile(folder.file("trip.jpg.kml")), "an earlier place");
        question()->button(choice)->click();
        waitForSaving();
        dialog()->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(test::readFile(folder.file("trip.jpg.kml")), document());
    EXPECT_FALSE(fs::exists(folder.file("trip.jpg")));
}

TEST_F(ExportDialogTest, entersAFolderThatIsTyped)
{
    fs::create_directory(folder.file("sub"));
    EXPECT_EQ(type("sub"), "");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->directory().dirName(), QLatin1String("sub"));
    dialog()->reject();
    EXPECT_FALSE(fs::exists(folder.file("sub.kml")));
    EXPECT_TRUE(fs::is_empty(folder.file("sub")));
}

TEST_F(ExportDialogTest, leavesNothingOfALongerFileAndMakesNoProgram)
{
    (void)folder.write("place.kml", std::string(5000, 'x'));
    EXPECT_NE(type("place.kml"), "");
    EXPECT_EQ(test::readFile(folder.file("place.kml")), document());
    EXPECT_EQ(type("new.kml"), "");
    struct stat facts = {};
    ASSERT_EQ(stat(folder.file("new.kml").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0111, 0u);
}
