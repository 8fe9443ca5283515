// The dialogs of the window where the desktop has a portal: they are shown by another process.

#include "tests/app/controller_fixture.h"
#include "tests/support/fake_portal.h"
#include "tests/support/session_bus.h"

#include <QAction>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

using namespace pinorama;

namespace {
class Bus : public testing::Environment {
public:
    void SetUp() override { bus_ = std::make_unique<test::SessionBus>(); }
    void TearDown() override { bus_.reset(); }

private:
    std::unique_ptr<test::SessionBus> bus_;
};
// The toolkit keeps its first connection, so the bus is there before it.
const auto* const bus = testing::AddGlobalTestEnvironment(new Bus);
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

class portalDialogs : public test::ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        if (!desktop_.isConnected()) GTEST_SKIP() << "no session bus can be started";
    }
    ~portalDialogs() override { QDBusConnection::disconnectFromBus(desktop_.name()); }

    bool isAsked()
    {
        return test::waitUntil([this] { return portal_.calls == 1; });
    }

    QFileDialog* dialog() { return controller.myWindow->findChild<QFileDialog*>(); }

    // Exports under the name that the user gives.
    void exportTo(const std::string& path)
    {
        showPicture("cape.jpg", {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "W"});
        ASSERT_TRUE(portal_.begin());
        controller.exportKMLButton->click();
        ASSERT_TRUE(isAsked());
        EXPECT_TRUE(showPicture("other.jpg", {.lat = 1.5, .latRef = "N", .lon = 2, .lonRef = "E"}));
        portal_.answer(0, {QStringLiteral("file://") + QString::fromStdString(path)});
    }

    QDBusConnection desktop_{QDBusConnection::connectToBus(
        QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), QStringLiteral("desktop"))};
    test::FakePortal portal_{desktop_};
};
}  // namespace

TEST_F(portalDialogs, openAPicture)
{
    ASSERT_TRUE(portal_.begin());
    const std::string path =
        folder.write("a b.jpg", test::pictureWithGps({.lat = 1, .latRef = "N"}));
    controller.myWindow->openAction->trigger();
    ASSERT_TRUE(isAsked());
    EXPECT_EQ(portal_.method, QStringLiteral("OpenFile"));
    EXPECT_EQ(portal_.title, QStringLiteral("Open Picture"));
    EXPECT_EQ(dialog(), nullptr);
    portal_.answer(0, {QStringLiteral("file://") + QString::fromStdString(folder.path()) +
                       QStringLiteral("/a%20b.jpg")});
    EXPECT_TRUE(test::waitUntil([this] { return shown(controller.fileNameField) == "a b.jpg"; }));
    EXPECT_EQ(controller.myWindow->isVisible(), true);

    controller.myWindow->openAction->trigger();
    ASSERT_TRUE(test::waitUntil([this] { return portal_.calls == 2; }));
    EXPECT_EQ(portal_.options[QStringLiteral("current_folder")].toByteArray().toStdString(),
              folder.path() + '\0');
}

TEST_F(portalDialogs, exportWhatWasShownWhenTheUserAskedForIt)
{
    exportTo(folder.file("place.kml"));
    EXPECT_EQ(portal_.method, QStringLiteral("SaveFile"));
    EXPECT_EQ(portal_.title, QStringLiteral("Export to KML Format (for Google Earth...)"));
    EXPECT_EQ(portal_.options[QStringLiteral("accept_label")], QStringLiteral("Export"));
    EXPECT_EQ(portal_.options[QStringLiteral("current_name")], QStringLiteral("cape.kml"));
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_TRUE(
        test::waitUntil([this] { return std::filesystem::exists(folder.file("place.kml")); }));
    EXPECT_NE(test::readFile(folder.file("place.kml")).find("cape.jpg"), std::string::npos);
}

TEST_F(portalDialogs, addTheSuffixAndAskBeforeTheyReplaceAnotherFile)
{
    folder.write("place.kml", "mine");
    exportTo(folder.file("place"));
    QMessageBox* question = nullptr;
    ASSERT_TRUE(test::waitUntil([&] {
        question = controller.myWindow->findChild<QMessageBox*>();
        return question != nullptr && question->isVisible();
    }));
    EXPECT_EQ(test::readFile(folder.file("place.kml")), "mine");
    question->button(QMessageBox::Yes)->click();
    EXPECT_TRUE(
        test::waitUntil([this] { return test::readFile(folder.file("place.kml")) != "mine"; }));
    EXPECT_FALSE(std::filesystem::exists(folder.file("place")));
}

TEST_F(portalDialogs, areOfTheToolkitWithoutAPortal)
{
    controller.myWindow->openAction->trigger();
    EXPECT_TRUE(test::waitUntil([this] { return dialog() != nullptr; }));
    delete dialog();
    showPicture("cape.jpg", {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "W"});
    controller.exportKMLButton->click();
    EXPECT_TRUE(test::waitUntil([this] { return dialog() != nullptr; }));
    delete dialog();
    EXPECT_EQ(portal_.calls, 0);
}
