// What the controls of a location do.

#include "app/foot_line.h"
#include "tests/app/controller_fixture.h"

#include <QAction>
#include <QMessageBox>
#include <QPushButton>

#include <filesystem>
#include <optional>
#include <string_view>

using namespace pinorama;

namespace {
using webMenuHit = test::ControllerTest;
using searchInSkallion = test::ControllerTest;
using openPages = test::ControllerTest;

const test::PictureFields kCape = {.lat = 45.5, .latRef = "S", .lon = 3.25, .lonRef = "E"};

// A controller whose services are the test's own.
class setupWebMenu : public testing::Test {
protected:
    void useServices(std::string_view lines)
    {
        std::filesystem::create_directories(resources_.file("strings/en"));
        (void)resources_.write("strings/en/GPS.strings", lines);
        variable_.emplace("PINORAMA_RESOURCES", resources_.path().c_str());
        controller_.emplace(nullptr, &opener_);
        ASSERT_TRUE(controller_->init());
        controller_->awakeFromNib();
        controller_->gUpdateTimer->stop();
        const test::Text path =
            test::text(folder_.write("My Photo.jpg", test::pictureWithGps(kCape)));
        EXPECT_TRUE(controller_->updateValuesForNewPath(path.get()));
    }
    std::vector<std::string> items() const
    {
        std::vector<std::string> titles;
        for (int i = 0; i < controller_->webServicesMenu->count(); ++i)
            titles.push_back(controller_->webServicesMenu->itemText(i).toStdString());
        return titles;
    }

    test::TemporaryFolder resources_;
    test::TemporaryFolder folder_;
    test::RecordingOpener opener_;
    std::optional<test::ScopedVariable> variable_;
    std::optional<AppController> controller_;
};
}  // namespace

TEST_F(setupWebMenu, saysOfAServiceWithoutRoomForAPlaceThatItHasNone)
{
    useServices(
        "\"a1\" = \"My map\"; \"b1\" = \"https://map.example/\";"
        "\"a2\" = \"Other\"; \"b2\" = \"https://map.example/%f,%f\";");
    controller_->webMenuHit(0);
    EXPECT_EQ(controller_->myWindow->findChild<FootLine*>(), nullptr) << "the title does nothing";
    controller_->webMenuHit(1);
    const auto* line = controller_->myWindow->findChild<FootLine*>();
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->words().toStdString(),
              "The address of My map has no room for latitude and longitude.");
    EXPECT_EQ(opener_.addresses, std::vector<std::string>());
    controller_->webMenuHit(2);
    EXPECT_EQ(opener_.addresses.size(), 1u);
}

TEST_F(setupWebMenu, addsTheServicesBehindTheTitleUpToTheFirstGap)
{
    useServices("\"a1\" = \"One\"; \"a2\" = \"Two\"; \"a4\" = \"Four\";");
    EXPECT_EQ(items(), (std::vector<std::string>{"Map Services", "One", "Two"}));
    EXPECT_EQ(controller_->webServicesMenu->currentIndex(), 0);
}

TEST_F(setupWebMenu, withoutServicesOnlyTheTitleIsThere)
{
    useServices("\"b1\" = \"x\";");
    EXPECT_EQ(items(), std::vector<std::string>{"Map Services"});
}

TEST_F(setupWebMenu, choosingAnItemOpensItsAddress)
{
    useServices(
        "\"a1\" = \"One\"; \"b1\" = \"https://x.example/?q=%f,%f\";"
        "\"a2\" = \"Named\"; \"b2\" = \"geo:%f,%f?q=%@\";"
        "\"a3\" = \"No address\"; \"a4\" = \"Wrong\"; \"b4\" = \"https://x.example/%f\";"
        "\"a5\" = \"One\"; \"b5\" = \"https://second.example/%f,%f\";");
    for (int item = 0; item <= 6; ++item) controller_->webMenuHit(item);
    controller_->webMenuHit(-1);
    EXPECT_EQ(opener_.addresses,
              (std::vector<std::string>{"https://x.example/?q=-45.500000,3.250000",
                                        "geo:-45.500000,3.250000?q=My%20Photo.jpg",
                                        "https://x.example/?q=-45.500000,3.250000"}));
}

TEST_F(webMenuHit, isWhatThePopUpCallsAndTheTitleStays)
{
    ASSERT_GT(controller.webServicesMenu->count(), 1);
    EXPECT_TRUE(showPicture("a.jpg", kCape));
    Q_EMIT controller.webServicesMenu->activated(1);
    ASSERT_EQ(opener.addresses.size(), 1u);
    EXPECT_NE(opener.addresses[0].find("-45.5"), std::string::npos);
    EXPECT_EQ(controller.webServicesMenu->currentIndex(), 0);
    Q_EMIT controller.webServicesMenu->activated(0);
    EXPECT_EQ(opener.addresses.size(), 1u);
}

TEST_F(searchInSkallion, opensTheCataloguesAddress)
{
    EXPECT_TRUE(showPicture("a.jpg", {.lat = 48.1, .latRef = "N", .lon = 11.5, .lonRef = "W"}));
    controller.searchInTovButton->click();
    controller.myWindow->searchInTovAction->trigger();
    const std::string address = "skallion://find/gps/&lat=48.100000&long=-11.500000&distance=2000m";
    EXPECT_EQ(opener.addresses, (std::vector<std::string>{address, address}));
}

TEST_F(openPages, areOfferedOnlyIfTheyAreThere)
{
    const auto isThere = [](std::string_view address) {
        return address.find(".example") == std::string_view::npos && !address.empty();
    };
    EXPECT_EQ(controller.myWindow->homePageAction->isVisible(), isThere(PINORAMA_HOME_URL));
    EXPECT_EQ(controller.myWindow->donateAction->isVisible(), isThere(PINORAMA_DONATION_URL));
    controller.showAboutBox();
    const auto* box = controller.myWindow->findChild<QMessageBox*>(QStringLiteral("aboutBox"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->informativeText().contains(QLatin1String(PINORAMA_HOME_URL)),
              isThere(PINORAMA_HOME_URL));
}

TEST_F(openPages, ofTheMaker)
{
    controller.donate();
    controller.poweredBySkallion();
    // They are hidden, and then not to be triggered, in a build without these pages.
    controller.myWindow->donateAction->setVisible(true);
    controller.myWindow->homePageAction->setVisible(true);
    controller.myWindow->donateAction->trigger();
    controller.myWindow->homePageAction->trigger();
    EXPECT_EQ(opener.addresses,
              (std::vector<std::string>{PINORAMA_DONATION_URL, PINORAMA_HOME_URL,
                                        PINORAMA_DONATION_URL, PINORAMA_HOME_URL}));
    EXPECT_EQ(controller.lastPath, nullptr);
}
