// The button that opens the window of pictures nearby, over real searches.

#include "app/nearby/nearby_window.h"
#include "tests/app/controller_fixture.h"
#include "tests/app/nearby/nearby_views.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
const test::PictureFields kPlace = {.lat = 0.5, .latRef = "N", .lon = 10, .lonRef = "E"};

// 111 m to the north for each thousandth of a degree.
std::string pictureAt(double latitude)
{
    return test::pictureWithGps({.lat = latitude, .latRef = "N", .lon = 10, .lonRef = "E"});
}

class FoundNothing final : public UrlOpener {
public:
    bool open(const QByteArray& address) override
    {
        addresses.push_back(address.toStdString());
        return true;
    }
    bool isTaken(const QByteArray&) const override { return false; }

    std::vector<std::string> addresses;
};

// The button of the main window where no program takes the address.
class findNearby : public test::ControllerTest {
protected:
    NearbyWindow* nearby() const
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<NearbyWindow*>(window)) return found;
        }
        return nullptr;
    }

    FoundNothing nobody;
    AppController lonely{nullptr, &nobody};
};
}  // namespace

TEST_F(findNearby, opensTheWindowWhereNoProgramTakesTheAddress)
{
    std::filesystem::create_directories(folder.file("trip/one"));
    std::filesystem::create_directories(folder.file("trip/two"));
    const std::string here = folder.write("trip/one/here.jpg", test::pictureWithGps(kPlace));
    (void)folder.write("trip/one/b.jpg", pictureAt(0.505));
    (void)folder.write("trip/one/far.jpg", pictureAt(0.6));
    const std::string nearest = folder.write("trip/two/a.jpg", pictureAt(0.5009));
    EXPECT_EQ(nearby(), nullptr);
    lonely.openPath(here);
    ASSERT_TRUE(test::waitUntil([this] { return lonely.searchInTovButton->isEnabled(); }));
    lonely.searchInTovButton->click();
    EXPECT_TRUE(nobody.addresses.empty());
    ASSERT_NE(nearby(), nullptr);
    const test::NearbyViews views(nearby());
    EXPECT_TRUE(test::waitUntil([this] { return !nearby()->isBusy(); }));
    EXPECT_EQ(views.texts(), "a.jpg, 100 m N; b.jpg, 550 m N; ");

    views.click(0);
    EXPECT_EQ(shown(lonely.fileNameField), "a.jpg");
    lonely.updateSelection();
    EXPECT_EQ(shown(lonely.fileNameField), "a.jpg") << "it stays until the selection changes";
    lonely.myWindow->hide();
    views.click(1);
    EXPECT_TRUE(lonely.myWindow->isVisible());
    EXPECT_EQ(shown(lonely.fileNameField), "b.jpg");

    lonely.myWindow->searchInTovAction->trigger();
    EXPECT_TRUE(test::waitUntil([this] { return !nearby()->isBusy(); }));
    EXPECT_EQ(views.texts(), "a.jpg, 450 m S; here.jpg, 550 m S; ");
}

TEST_F(findNearby, leavesTheAddressToAProgramThatTakesIt)
{
    EXPECT_TRUE(showPicture("a.jpg", kPlace));
    controller.searchInTovButton->click();
    EXPECT_EQ(opener.addresses.size(), 1u);
    EXPECT_EQ(nearby(), nullptr);
}

TEST_F(findNearby, findsThePicturesOfTheCollection)
{
    const auto collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    // The folder for the user's pictures is the collection.
    (void)std::filesystem::create_directories(folder.file("config"));
    (void)folder.write("config/user-dirs.dirs", "XDG_PICTURES_DIR=\"" + *collection + "\"\n");
    const test::ScopedVariable config("XDG_CONFIG_HOME", folder.file("config").c_str());
    const test::ProgramResult all =
        test::runProgram({.command = {PINORAMA_INFO, "-rq", "--csv", *collection}});
    ASSERT_GT(std::count(all.out.begin(), all.out.end(), '\n'), 400);
    // A place where several were taken.
    std::map<std::string, int> places;
    std::istringstream lines(all.out);
    for (std::string line; std::getline(lines, line);) {
        std::vector<std::string> fields;
        std::istringstream row(line);
        for (std::string field; fields.size() < 3 && std::getline(row, field, ',');) {
            fields.push_back(field);
        }
        if (fields.size() == 3 && !fields[1].empty() && fields[0].front() == '/') {
            places[fields[1] + "," + fields[2]]++;
        }
    }
    ASSERT_FALSE(places.empty());
    const auto most =
        std::max_element(places.begin(), places.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    const test::ProgramResult near = test::runProgram(
        {.command = {PINORAMA_INFO, "-rq", "--near=" + most->first, "--json", *collection}});
    const auto count = std::count(near.out.begin(), near.out.end(), '\n');
    ASSERT_GE(count, most->second);

    NearbyWindow window(nobody);
    double latitude = 0, longitude = 0;
    ASSERT_EQ(std::sscanf(most->first.c_str(), "%lf,%lf", &latitude, &longitude), 2);
    window.search(folder.file("own/here.jpg"), {latitude, longitude});
    EXPECT_TRUE(test::waitUntil([&] { return !window.isBusy(); }));
    EXPECT_EQ(test::NearbyViews(&window).model()->rowCount(), count);
}
