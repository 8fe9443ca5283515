// The window where what it writes finds no room, no permission and no folder: an export says so at
// the foot of the window and nowhere else, and nothing else is lost.

#include "app/file_saving.h"
#include "app/foot_line.h"
#include "globe/kml_document.h"
#include "opener/events/picture_opener.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/event_loop.h"
#include "tests/support/permissions.h"
#include "tests/support/small_disk.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <sys/stat.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

constexpr uid_t kNobody = 65534;

class placesToWrite : public test::ControllerTest {
protected:
    void SetUp() override
    {
        test::ControllerTest::SetUp();
        fs::create_directory(place_);
        showPicture("cape.jpg", {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "W"});
    }
    void TearDown() override
    {
        cuPictureOpener().stop();
        if (hasSmallDisk_) test::leaveSmallDisk(place_);
    }

    bool putSmallDisk()
    {
        hasSmallDisk_ = test::mountSmallDisk(place_);
        cuPictureOpener().stop();  // openers that ran before do not see the disk
        return hasSmallDisk_;
    }

    // Exports as a user does; `change` happens while the dialog is open.
    void exportTo(
        const std::string& name, const std::function<void()>& change = [] {})
    {
        controller.exportKMLButton->click();
        auto* dialog = controller.myWindow->findChild<QFileDialog*>();
        ASSERT_NE(dialog, nullptr);
        change();
        dialog->selectFile(QString::fromStdString(place_ + "/" + name));
        static_cast<QDialog*>(dialog)->accept();
        EXPECT_TRUE(test::waitUntil(
            [this] { return controller.myWindow->findChild<QFileDialog*>() == nullptr; }));
        const auto* saving = controller.myWindow->findChild<FileSaving*>();
        EXPECT_TRUE(test::waitUntil([saving] { return !saving->isUnderWay(); }));
        expectNoMessage();
    }

    void expectNoMessage()
    {
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            EXPECT_EQ(qobject_cast<const QMessageBox*>(window), nullptr);
        }
    }

    // What the foot of the window says; empty when it says nothing.
    std::string notice() const
    {
        const auto* line = controller.myWindow->findChild<FootLine*>();
        return line == nullptr ? std::string() : line->words().toStdString();
    }

    std::string document() const
    {
        const test::Text name = test::text("cape.jpg");
        return test::takeUTF8(gpsMakeKMLDocument(&controller.info, name.get())).value_or("");
    }

    // The files of the place that this process still has open.
    std::vector<std::string> openFiles() const
    {
        std::vector<std::string> files;
        for (const auto& descriptor : fs::directory_iterator("/proc/self/fd")) {
            std::error_code error;
            const std::string file = fs::read_symlink(descriptor, error).string();
            if (file.starts_with(place_ + "/")) files.push_back(file);
        }
        return files;
    }

    std::string place_ = folder.file("place");

private:
    bool hasSmallDisk_ = false;
};

// The settings lie in the place as well.
class settingsOn : public placesToWrite {
protected:
    void toggle()
    {
        controller.syncCheckbox->click();
        expectNoMessage();
    }
    std::string settings() const
    {
        return test::readFile(place_ + "/org.pinorama.Pinorama/preferences.json");
    }

private:
    test::ScopedVariable variable_{"XDG_CONFIG_HOME", place_.c_str()};
};
}  // namespace

TEST_F(placesToWrite, aFullDiskTakesNoExportAndKeepsWhatItHolds)
{
    if (!putSmallDisk()) GTEST_SKIP() << "cannot mount a small disk here";
    folder.write("place/other.kml", "kept");
    exportTo("first.kml");
    EXPECT_EQ(test::readFile(place_ + "/first.kml"), document());
    test::fillDisk(place_);
    EXPECT_TRUE(notice().starts_with("first.kml was saved in ")) << notice();
    for (const char* name : {"second.kml", "third.kml"}) {
        exportTo(name);
        EXPECT_FALSE(fs::exists(place_ + "/" + name));
        EXPECT_EQ(notice(), std::string(name) + " could not be written: the disk is full.");
    }
    EXPECT_EQ(test::readFile(place_ + "/first.kml"), document());
    EXPECT_EQ(test::readFile(place_ + "/other.kml"), "kept");
    EXPECT_EQ(openFiles(), std::vector<std::string>());
    fs::remove(place_ + "/filler");
    exportTo("fourth.kml");
    EXPECT_EQ(test::readFile(place_ + "/fourth.kml"), document());
    EXPECT_TRUE(notice().starts_with("fourth.kml was saved in ")) << notice();
}

TEST_F(placesToWrite, aReadOnlyFolderTakesNoExport)
{
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(place_.c_str(), 0555), 0);
    // An opener without privileges, in a place where it may be started.
    const std::string program = folder.file("opener");
    fs::copy_file(openerProgram(), program);
    const test::ScopedVariable variable("PINORAMA_OPENER", program.c_str());
    const uid_t user = geteuid();
    cuPictureOpener().stop();
    ASSERT_EQ(seteuid(user == 0 ? kNobody : user), 0);
    cuPictureOpener().start();
    ASSERT_EQ(seteuid(user), 0);
    exportTo("out.kml");
    ASSERT_EQ(chmod(place_.c_str(), 0755), 0);
    EXPECT_TRUE(fs::is_empty(place_));
    EXPECT_EQ(notice(), "out.kml could not be written: writing there is not allowed.");
    expectLocationActions(true);
}

TEST_F(placesToWrite, aFolderThatVanishesUnderTheDialogTakesNoExport)
{
    exportTo("out.kml", [this] { fs::remove_all(place_); });
    EXPECT_FALSE(fs::exists(place_));
    EXPECT_EQ(notice(), "out.kml could not be written: there is no such folder.");
    expectLocationActions(true);
}

TEST_F(settingsOn, aFullDiskStayAndTheSwitchWorks)
{
    if (!putSmallDisk()) GTEST_SKIP() << "cannot mount a small disk here";
    toggle();
    const std::string before = settings();
    EXPECT_NE(before.find("finderSync"), std::string::npos);
    test::fillDisk(place_);
    for (int i = 0; i < 9; i++) {
        const bool wasOn = controller.syncCheckbox->isChecked();
        toggle();
        EXPECT_NE(controller.syncCheckbox->isChecked(), wasOn);
        EXPECT_EQ(settings(), before);
    }
    fs::remove(place_ + "/filler");
    toggle();
    toggle();
    EXPECT_NE(settings(), before) << "there is room again";
}

TEST_F(settingsOn, aReadOnlyFolderAreNotStored)
{
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(place_.c_str(), 0555), 0);
    {
        const test::WithoutPrivileges nobody;
        for (int i = 0; i < 3; i++) toggle();
    }
    ASSERT_EQ(chmod(place_.c_str(), 0755), 0);
    EXPECT_TRUE(fs::is_empty(place_));
}

TEST_F(settingsOn, aFolderThatVanishesAreStoredInANewOne)
{
    toggle();
    const std::string before = settings();
    fs::remove_all(place_);
    toggle();
    toggle();
    EXPECT_EQ(settings(), before);
}
