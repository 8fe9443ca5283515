// Places in the words of each language.

#include "places/words/place_words.h"
#include "lib/text/country_name.h"
#include "lib/ui/string_tables.h"
#include "lib/ui/strings_table.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <set>
#include <sstream>

using namespace pinorama;

namespace {
void useShippedTables()
{
    iuRegisterBundle(test::text("test.places").get(), PLACES_STRINGS, true);
}

Place onLand(const char* country, const char* town, double distance, double bearing,
             double radius = 1)
{
    Place place;
    place.country = country;
    place.town = NearTown{town, country, distance, bearing, radius};
    return place;
}

Place atSea(const char* sea, const char* town, const char* islands, double distance)
{
    Place place;
    place.sea = sea;
    place.islands = islands;
    place.town = NearTown{town, "SH", distance, 0, 1};
    return place;
}

std::string inWords(const Place& place, const char* locale)
{
    const test::ScopedVariable language("LANGUAGE", nullptr);
    const test::ScopedVariable variable("LC_ALL", locale);
    useShippedTables();
    return test::takeUTF8(createPlaceText(place)).value_or("none");
}

std::set<std::string> braces(const std::u16string& text)
{
    std::set<std::string> names;
    for (std::size_t at = text.find(u'{'); at != text.npos; at = text.find(u'{', at + 1)) {
        const std::size_t end = text.find(u'}', at);
        if (end == text.npos) return {"unclosed"};
        names.insert(std::string(text.begin() + static_cast<std::ptrdiff_t>(at),
                                 text.begin() + static_cast<std::ptrdiff_t>(end)));
    }
    return names;
}
}  // namespace

TEST(createPlaceText, describesAPlaceInEnglish)
{
    Place country;
    country.country = "BV";
    Place sea;
    sea.sea = "Ross Sea";
    const struct {
        const char* name;
        Place place;
        const char* expected;
    } rows[] = {
        {"in a town", onLand("AR", "Ushuaia", 0, 0), "Near Ushuaia, Argentina"},
        {"close to it", onLand("AR", "Ushuaia", 3.49, 0), "Near Ushuaia, Argentina"},
        {"away from it", onLand("DE", "Grävenwiesbach", 8.2, 135),
         "8 km SE of Grävenwiesbach, Germany"},
        {"just away", onLand("DE", "Grävenwiesbach", 3.5, 0), "4 km N of Grävenwiesbach, Germany"},
        {"in a large city", onLand("GB", "London", 17, 0, 26.5), "Near London, United Kingdom"},
        {"far away", onLand("AU", "Yulara", 1237, 270), "1,240 km W of Yulara, Australia"},
        {"a town that is a country", onLand("SG", "Singapore", 2, 0), "Near Singapore"},
        {"beside such a town", onLand("MC", "Monaco", 4, 270), "4 km W of Monaco"},
        {"no town", country, "Bouvet Island"},
        {"no name of the country", onLand("QQ", "Somewhere", 1, 0), "Near Somewhere, QQ"},
        {"at sea", atSea("South Atlantic Ocean", "Edinburgh of the Seven Seas", "TA", 411.7),
         "South Atlantic Ocean, 412 km from Tristan da Cunha"},
        {"at sea off a town", atSea("Tasman Sea", "Hobart", "", 90),
         "Tasman Sea, 90 km from Hobart"},
        {"at sea off nothing", sea, "Ross Sea"},
        {"nowhere", Place(), "none"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(inWords(row.place, "en_US.UTF-8"), row.expected);
    }
}

TEST(createPlaceText, speaksTheUsersLanguage)
{
    const Place away = onLand("DE", "Grävenwiesbach", 8, 135);
    const Place sea = atSea("South Atlantic Ocean", "Edinburgh of the Seven Seas", "TA", 1412);
    const struct {
        const char *locale, *away, *sea;
    } rows[] = {
        {"C", "8 km SE of Grävenwiesbach, Germany",
         "South Atlantic Ocean, 1,410 km from Tristan da Cunha"},
        {"de_DE.UTF-8", "8 km SO von Grävenwiesbach, Deutschland",
         "Südatlantik, 1.410 km von Tristan da Cunha entfernt"},
        {"es_ES.UTF-8", "A 8 km al SE de Grävenwiesbach, Alemania", nullptr},
        {"fr_FR.UTF-8", "8 km SE de Grävenwiesbach, Allemagne", nullptr},
        {"it_IT.UTF-8", "8 km a SE di Grävenwiesbach, Germania", nullptr},
        {"ja_JP.UTF-8", "ドイツ、Grävenwiesbachの南東 8 km",
         "南大西洋、トリスタン・ダ・クーニャから 1,410 km"},
        {"nl_NL.UTF-8", "8 km ZO van Grävenwiesbach, Duitsland", nullptr},
        {"pl_PL.UTF-8", "8 km na SE od: Grävenwiesbach, Niemcy", nullptr},
        {"pt_BR.UTF-8", "8 km a SE de Grävenwiesbach, Alemanha", nullptr},
        {"zh_CN.UTF-8", "德国Grävenwiesbach东南方向 8 公里", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        EXPECT_EQ(inWords(away, row.locale), row.away);
        if (row.sea != nullptr) {
            EXPECT_EQ(inWords(sea, row.locale), row.sea);
        }
    }
}

TEST(createPlaceText, isolatesTheTownOnRequest)
{
    const test::ScopedVariable language("LANGUAGE", nullptr);
    const test::ScopedVariable variable("LC_ALL", "en_US");
    useShippedTables();
    const struct {
        Place place;
        const char* expected;
    } rows[] = {
        {onLand("DE", "Grävenwiesbach", 1, 0), "Near \u2068Grävenwiesbach\u2069, Germany"},
        {onLand("DE", "Grävenwiesbach", 8, 135), "8 km SE of \u2068Grävenwiesbach\u2069, Germany"},
        {onLand("SG", "Singapore", 1, 0), "Near \u2068Singapore\u2069"},
        {atSea("North Sea", "Cromer", "", 50), "North Sea, 50 km from \u2068Cromer\u2069"},
        {atSea("North Sea", "Cromer", "TA", 50), "North Sea, 50 km from Tristan da Cunha"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(test::takeUTF8(createPlaceText(row.place, TownNames::isolated)).value_or("none"),
                  row.expected);
}

TEST(createPlaceText, keepsBracesOfNamesAsTheyAre)
{
    EXPECT_EQ(inWords(onLand("DE", "{country} {town", 0, 0), "en_US"),
              "Near {country} {town, Germany");
}

TEST(createPlaceText, givesNullIfMemoryRunsOut)
{
    useShippedTables();
    const Place place = onLand("DE", "Grävenwiesbach", 8, 135);
    (void)test::takeUTF8(createPlaceText(place));  // reads the tables
    EXPECT_GT(test::failEachRequest([&] { return createPlaceText(place); }), 3U);
}

TEST(createCompassText, usesTheLettersOfTheLanguage)
{
    const struct {
        const char* locale;
        const char* expected;
    } rows[] = {{"en_US", "SSE"}, {"de_DE", "SSO"}, {"nl_NL", "ZZO"}, {"ja_JP", "南南東"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        const test::ScopedVariable language("LANGUAGE", nullptr);
        const test::ScopedVariable variable("LC_ALL", row.locale);
        useShippedTables();
        EXPECT_EQ(test::takeUTF8(createCompassText(157)), row.expected);
    }
    EXPECT_EQ(createCompassText(std::numeric_limits<double>::quiet_NaN()), nullptr);
}

TEST(createCountryName, givesNullForWhatIsNoCode)
{
    for (const char* code : {"", "D", "DEU", "de", "D1", "d\xc3"}) {
        EXPECT_EQ(createCountryName(code), nullptr) << code;
    }
}

TEST(placesTable, hasTheSameKeysAndHolesInEveryLanguage)
{
    const auto read = [](const std::filesystem::path& folder) {
        std::ostringstream content;
        content << std::ifstream(folder / "Places.strings").rdbuf();
        return StringsTable(content.str());
    };
    const StringsTable english = read(PLACES_STRINGS "/en");
    std::vector<std::string> keys = {"near",
                                     "nearTown",
                                     "away",
                                     "awayTown",
                                     "atSea",
                                     "trueNorth",
                                     "magneticNorth",
                                     "takenIn",
                                     "takenBySatellites",
                                     "takenBySatellitesInUTC",
                                     "takenByCamera",
                                     "takenByCameraElsewhere",
                                     "takenByCameraAssumed",
                                     "takenByCameraWithoutZone"};
    for (int point = 0; point < 16; ++point) keys.push_back("compass" + std::to_string(point));
    std::ifstream seas(PLACES_SEAS);
    for (std::string line; std::getline(seas, line);) {
        if (!line.starts_with('#')) keys.push_back(line.substr(0, line.find(';')));
    }
    ASSERT_GT(keys.size(), 100U);

    int languages = 0;
    for (const auto& folder : std::filesystem::directory_iterator(PLACES_STRINGS)) {
        SCOPED_TRACE(folder.path());
        ++languages;
        const StringsTable table = read(folder.path());
        EXPECT_TRUE(table.damagedLines().empty());
        EXPECT_EQ(table.size(), keys.size());
        for (const std::string& key : keys) {
            const auto value = table.find(std::u16string(key.begin(), key.end()));
            const auto original = english.find(std::u16string(key.begin(), key.end()));
            ASSERT_TRUE(value && original) << key;
            EXPECT_FALSE(value->empty()) << key;
            EXPECT_EQ(braces(std::u16string(*value)), braces(std::u16string(*original))) << key;
        }
    }
    EXPECT_GE(languages, 10);
}
