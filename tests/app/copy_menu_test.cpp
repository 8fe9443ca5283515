// The forms in which a place is copied, and the menu that offers them.

#include "app/copy_menu.h"

#include "app/place_actions.h"
#include "tests/app/controller_fixture.h"
#include "tests/places/grid_readers.h"
#include "tests/places/places_file.h"
#include "tests/places/position_readers.h"
#include "tests/support/toolkit.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTranslator>

#include <cmath>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

using namespace pinorama;
using Form = CopyMenu::Form;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

using test::PictureFields;

const PictureFields kUshuaia = {.lat = 54.8018889, .latRef = "S", .lon = 68.3029722, .lonRef = "W"};

// With resources of its own, so that the places and the services are those of the test.
class CopyMenuTest : public testing::Test {
protected:
    void SetUp() override
    {
        useServices("\"a1\" = \"One\"; \"b1\" = \"https://x.example/%f,%f\";");
    }

    // Starts a controller with these services.
    void useServices(std::string_view services)
    {
        controller_.reset();
        variable_.reset();
        const std::string strings = resources_.file("strings");
        std::filesystem::remove_all(strings);
        std::filesystem::copy(PINORAMA_STRINGS, strings, std::filesystem::copy_options::recursive);
        (void)resources_.write("strings/en/GPS.strings", services);
        variable_.emplace("PINORAMA_RESOURCES", resources_.path().c_str());
        controller_.emplace();
        ASSERT_TRUE(controller_->init());
        controller_->awakeFromNib();
        controller_->gUpdateTimer->stop();
        controller_->reading().setPatience(std::chrono::milliseconds(500));
    }

    void install(const PlacesFile& places)
    {
        std::filesystem::create_directories(resources_.file("places"));
        const std::vector<std::uint8_t> bytes = places.build();
        (void)resources_.write("places/places.bin",
                               {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

    void showPicture(const PictureFields& fields)
    {
        const std::string path = folder_.write("picture " + std::to_string(++pictures_) + ".jpg",
                                               test::pictureWithGps(fields));
        EXPECT_TRUE(controller_->showPath(path));
    }

    CopyMenu& menu() { return *controller_->myWindow->findChild<CopyMenu*>(); }

    // Chooses an item as a user does who has opened the menu; what is on the clipboard then.
    std::string copied(Form form)
    {
        Q_EMIT menu().aboutToShow();
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));
        menu().action(form)->trigger();
        return QGuiApplication::clipboard()->text().toStdString();
    }

    static void open(CopyMenu& menu)
    {
        menu.setHasPlace(true);
        Q_EMIT menu.aboutToShow();
    }

    test::TemporaryFolder resources_;
    test::TemporaryFolder folder_;
    std::optional<test::ScopedVariable> variable_;
    std::optional<AppController> controller_;
    int pictures_ = 0;
};

// Reads "S 54° 48' 6.8"   W 68° 18' 10.7"".
Position readAsShown(const std::string& text)
{
    char y = 0, x = 0;
    double dy = 0, my = 0, sy = 0, dx = 0, mx = 0, sx = 0;
    EXPECT_EQ(std::sscanf(text.c_str(), "%c %lf\xc2\xb0 %lf' %lf\" %c %lf\xc2\xb0 %lf' %lf\"", &y,
                          &dy, &my, &sy, &x, &dx, &mx, &sx),
              8)
        << text;
    return {(y == 'S' ? -1 : 1) * (dy + my / 60 + sy / 3600),
            (x == 'W' ? -1 : 1) * (dx + mx / 60 + sx / 3600)};
}

Position readPair(const std::string& text)
{
    Position position{};
    EXPECT_EQ(std::sscanf(text.c_str(), "%lf,%lf", &position.latitude, &position.longitude), 2)
        << text;
    return position;
}

Position readLink(const std::string& text)
{
    constexpr std::string_view kBefore = "https://x.example/";
    EXPECT_TRUE(text.starts_with(kBefore)) << text;
    return readPair(text.substr(std::min(kBefore.size(), text.size())));
}
}  // namespace

TEST_F(CopyMenuTest, copiesEachFormAsItsReadersKnowIt)
{
    showPicture(kUshuaia);
    EXPECT_EQ(copied(Form::asShown), "S 54° 48' 6.8\"   W 68° 18' 10.6\"");
    EXPECT_EQ(copied(Form::asShown), controller_->gpsCoordinateField->text().toStdString());
    EXPECT_EQ(copied(Form::decimalDegrees), "-54.801889, -68.302972");
    EXPECT_EQ(copied(Form::degreesMinutes), "S 54° 48.1133'   W 68° 18.1783'");
    EXPECT_EQ(copied(Form::geoAddress), "geo:-54.801889,-68.302972");
    EXPECT_EQ(copied(Form::plusCode), "37QH5MXW+6RRH");
    EXPECT_EQ(copied(Form::utm), "19F 544807 3927031");
    EXPECT_EQ(copied(Form::mgrs), "19F EV 44806 27031");
    EXPECT_EQ(copied(Form::mapLink), "https://x.example/-54.801889,-68.302972");
}

TEST_F(CopyMenuTest, everyFormGivesThePlaceBackToWithinAMetre)
{
    // A tenth of a second is three metres, and what the window shows is cut to tenths.
    constexpr double kCutToTenths = std::numbers::sqrt2 * 3.1;
    const struct {
        const char* name;
        Form form;
        std::function<Position(const std::string&)> read;
        double within;  // metres
    } forms[] = {
        {"as shown", Form::asShown, readAsShown, kCutToTenths},
        {"decimal degrees", Form::decimalDegrees, readPair, 1},
        {"degrees and minutes", Form::degreesMinutes, readDegreesMinutes, 1},
        {"geo:", Form::geoAddress, readGeo, 1},
        {"plus code", Form::plusCode, readPlusCode, 1},
        {"UTM", Form::utm, readUtm, 1},
        {"MGRS", Form::mgrs, readMgrs, 1},
        {"link", Form::mapLink, readLink, 1},
    };
    const PictureFields places[] = {
        kUshuaia,
        {.lat = 48.858371, .latRef = "N", .lon = 2.294481, .lonRef = "E"},
        {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "E"},
        {.lat = 21.309444, .latRef = "N", .lon = 157.916861, .lonRef = "W"},
        {.lat = 0.0000123, .latRef = "S", .lon = 179.99999, .lonRef = "W"},
        {.lat = 78.2232, .latRef = "N", .lon = 15.6267, .lonRef = "E"},
    };
    for (const PictureFields& place : places) {
        showPicture(place);
        const Position taken = {signedLatitude(controller_->info),
                                signedLongitude(controller_->info)};
        for (const auto& form : forms) {
            SCOPED_TRACE(form.name);
            EXPECT_LT(metres(form.read(copied(form.form)), taken), form.within);
        }
    }
}

TEST_F(CopyMenuTest, copiesThePlaceInWordsWhereThePlacesAreInstalled)
{
    install(PlacesFile()
                .area("AR", {{-75, -56}, {-60, -56}, {-60, -40}, {-75, -40}})
                .town({"AR", "Ushuaia", -54.8, -68.3, 60000, "America/Argentina/Ushuaia"}));
    showPicture(kUshuaia);
    EXPECT_EQ(copied(Form::words), "Near Ushuaia, Argentina");
    EXPECT_TRUE(menu().action(Form::words)->isVisible());
    // At sea, and none is known there.
    showPicture({.lat = 10.0, .latRef = "N", .lon = 10.0, .lonRef = "E"});
    EXPECT_EQ(copied(Form::words), "before");
    EXPECT_FALSE(menu().action(Form::words)->isEnabled());
    EXPECT_TRUE(menu().action(Form::utm)->isEnabled());
}

TEST_F(CopyMenuTest, offersNoWordsWithoutThePlaces)
{
    showPicture(kUshuaia);
    EXPECT_EQ(copied(Form::words), "before");
    EXPECT_FALSE(menu().action(Form::words)->isVisible());
}

TEST_F(CopyMenuTest, isDisabledWithoutAPlace)
{
    const auto expectEnabled = [this](bool isEnabled) {
        EXPECT_EQ(menu().menuAction()->isEnabled(), isEnabled);
        Q_EMIT menu().aboutToShow();
        for (std::size_t i = 0; i < CopyMenu::kForms; ++i) {
            const auto form = static_cast<Form>(i);
            EXPECT_EQ(menu().action(form)->isEnabled(), isEnabled && form != Form::words) << i;
        }
    };
    expectEnabled(false);
    showPicture(kUshuaia);
    expectEnabled(true);
    showPicture({});
    expectEnabled(false);
    showPicture(kUshuaia);
    EXPECT_FALSE(controller_->showPath("/nowhere/notes.txt"));
    expectEnabled(false);
}

TEST_F(CopyMenuTest, disablesWhatAPlaceDoesNotHave)
{
    // UTM ends at 84 degrees.
    showPicture({.lat = 89.5, .latRef = "N", .lon = 11.5, .lonRef = "E"});
    EXPECT_EQ(copied(Form::utm), "before");
    EXPECT_FALSE(menu().action(Form::utm)->isEnabled());
    EXPECT_TRUE(menu().action(Form::mgrs)->isEnabled());
    EXPECT_EQ(copied(Form::geoAddress), "geo:89.500000,11.500000");
}

TEST_F(CopyMenuTest, copiesThisPicturesPlaceWhereTheFieldsStillHaveTheLastOnes)
{
    showPicture(kUshuaia);
    // On the equator the location fields keep their texts, and the actions are there.
    showPicture({.lat = 0.0, .latRef = "N", .lon = 9.0, .lonRef = "E"});
    EXPECT_EQ(copied(Form::decimalDegrees), "0.000000, 9.000000");
    EXPECT_LT(metres(readAsShown(copied(Form::asShown)), {0, 9}), 5);
}

TEST_F(CopyMenuTest, hasOnlyEntriesWithWholeTitlesBeforeItIsOpened)
{
    EXPECT_FALSE(menu().actions().contains(menu().action(Form::mapLink)));
    for (const QAction* action : menu().actions()) {
        EXPECT_FALSE(action->text().isEmpty());
        EXPECT_FALSE(action->text().contains(QLatin1Char('%'))) << action->text().toStdString();
    }
}

TEST_F(CopyMenuTest, linksToTheFirstMapOnTheWeb)
{
    useServices(
        "\"a1\" = \"Here\"; \"b1\" = \"geo:%f,%f\";"
        "\"a2\" = \"A & B\"; \"b2\" = \"https://x.example/?q=%f,%f&n=%@\";");
    showPicture(kUshuaia);
    EXPECT_EQ(copied(Form::mapLink),
              "https://x.example/?q=-54.801889,-68.302972&n=picture%201.jpg");
    EXPECT_EQ(menu().action(Form::mapLink)->text().toStdString(), "Link to A && B");

    useServices("\"a1\" = \"Here\"; \"b1\" = \"geo:%f,%f\";");
    showPicture(kUshuaia);
    EXPECT_EQ(copied(Form::mapLink), "before");
    EXPECT_FALSE(menu().actions().contains(menu().action(Form::mapLink)));
}

TEST_F(CopyMenuTest, isInTheMenuAndInTheContextMenuOfTheCoordinate)
{
    const MainWindow* window = controller_->myWindow;
    const QList<QAction*> items = window->pictureMenu->actions();
    EXPECT_EQ(items.indexOf(menu().menuAction()), items.indexOf(window->copyDecimalAction) + 1);
    showPicture(kUshuaia);
    controller_->showMainWindow();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1),
                            controller_->gpsCoordinateField->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(controller_->gpsCoordinateField, &event);
    auto* context = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(context, nullptr);
    EXPECT_TRUE(context->actions().contains(menu().menuAction()));
    context->close();
}

TEST_F(CopyMenuTest, hasTitlesInEveryLanguage)
{
    const QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    const fileInfoRecord info{};
    const TovStringRef path = nullptr;
    CopyMenu english(info, path, nullptr);
    open(english);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        CopyMenu translated(info, path, nullptr);
        open(translated);
        EXPECT_NE(translated.title(), english.title());
        for (const Form form : {Form::asShown, Form::decimalDegrees, Form::degreesMinutes,
                                Form::geoAddress, Form::words, Form::mapLink}) {
            EXPECT_NE(translated.action(form)->text(), english.action(form)->text());
        }
        QCoreApplication::removeTranslator(&translator);
    }
}
