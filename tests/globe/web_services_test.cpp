#include "globe/web_services.h"

#include "lib/ui/application_bundle.h"
#include "tests/globe/places.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>

using namespace pinorama;

namespace {
using test::place;
using test::takeUTF8;
using test::text;

// The program's texts with a table of services of the test's own.
class Services {
public:
    explicit Services(std::string_view lines)
    {
        std::filesystem::create_directories(folder_.file("strings/en"));
        (void)folder_.write("strings/en/GPS.strings", lines);
        variable_.emplace("PINORAMA_RESOURCES", folder_.path().c_str());
        EXPECT_NE(iuRegisterApplicationBundle(), nullptr);
    }

private:
    test::TemporaryFolder folder_;
    std::optional<test::ScopedVariable> variable_;
};

std::string address(std::string_view urlTemplate, const fileInfoRecord& info,
                    std::string_view path = "/pics/My Photo.jpg")
{
    return takeUTF8(appMakeWebServiceURL(text(urlTemplate).get(), &info, text(path).get()))
        .value_or("null");
}

std::string catalogue(const fileInfoRecord& info)
{
    return takeUTF8(appMakeCatalogueURL(&info)).value_or("null");
}

std::string templateOf(std::string_view title)
{
    return takeUTF8(appCopyServiceTemplate(text(title).get())).value_or("null");
}
}  // namespace

TEST(appCopyServiceTitle, theFirstMissingKeyEndsTheList)
{
    const Services services("\"a1\" = \"One\"; \"a2\" = \"Two\"; \"a4\" = \"Four\";");
    EXPECT_EQ(takeUTF8(appCopyServiceTitle(1)), "One");
    EXPECT_EQ(takeUTF8(appCopyServiceTitle(2)), "Two");
    EXPECT_EQ(appCopyServiceTitle(3), nullptr);
}

TEST(appCopyServiceTitle, aTitleThatIsItsKeyInAnyCaseCountsAsMissing)
{
    const Services services("\"a1\" = \"A1\"; \"a2\" = \"a3\";");
    EXPECT_EQ(appCopyServiceTitle(1), nullptr);
    EXPECT_EQ(takeUTF8(appCopyServiceTitle(2)), "a3");
}

TEST(appCopyServiceTemplate, matchesTitlesExactlyAndTakesTheFirst)
{
    const Services services(
        "\"a1\" = \"One\"; \"b1\" = \"first %f%f\"; \"a2\" = \"One\"; \"b2\" = \"second %f%f\";"
        "\"a3\" = \"one\"; \"b3\" = \"third %f%f\"; \"a4\" = \"No address\";");
    EXPECT_EQ(templateOf("One"), "first %f%f");
    EXPECT_EQ(templateOf("one"), "third %f%f");
    EXPECT_EQ(templateOf("No address"), "b4");
    EXPECT_EQ(templateOf("Unknown"), "null") << "the search ends with the list";
    EXPECT_EQ(appCopyServiceTemplate(nullptr), nullptr);
}

TEST(appCopyServiceTemplate, looksAtTheEntryThatEndsTheListToo)
{
    const Services services(
        "\"a1\" = \"One\"; \"a2\" = \"A2\"; \"b2\" = \"of the end\"; \"a3\" = \"Three\";");
    EXPECT_EQ(templateOf("A2"), "of the end");
    EXPECT_EQ(templateOf("a2"), "null") << "titles are compared exactly";
    EXPECT_EQ(templateOf("Three"), "null") << "the search ends with the list";
}

TEST(appMakeWebServiceURL, fillsTheSignedLocationIn)
{
    EXPECT_EQ(address("https://x.example/?q=%f,%f", place(45.5, 'S', 3.25, 'E')),
              "https://x.example/?q=-45.500000,3.250000");
    EXPECT_EQ(address("%f,%f", place(45.5, 'N', 3.25, 'W')), "45.500000,-3.250000");
    EXPECT_EQ(address("%f,%f", place(45.5, 0, 3.25, 0)), "45.500000,3.250000");
    EXPECT_EQ(address("%f,%f", place(45.5, 's', 3.25, 'w')), "45.500000,3.250000")
        << "only the capital letters negate";
    EXPECT_EQ(address("%f,%f", place(45.5, 'W', 3.25, 'S')), "45.500000,3.250000");
    EXPECT_EQ(address("%f,%f", place(0.0, 'S', 3.25, 'E')), "-0.000000,3.250000");
}

TEST(appMakeWebServiceURL, withThreeConversionsTheThirdIsTheName)
{
    const fileInfoRecord info = place(1, 'N', 2, 'E');
    EXPECT_EQ(address("%f,%f,%@", info), "1.000000,2.000000,My%20Photo.jpg");
    EXPECT_EQ(address("%3$@ %1$.1f %2$.1f", info,
                      "/a&b/Gr\xC3\xB6\xC3\x9F"
                      "e 50%#+.jpg"),
              "Gr%C3%B6%C3%9F"
              "e%2050%25%23+.jpg 1.0 2.0");
    EXPECT_EQ(address("%f,%f,%@", info, "/folder.jpg/"), "1.000000,2.000000,folder.jpg");
}

TEST(appMakeSafeWebServiceURL, noNameAddsAParameter)
{
    const fileInfoRecord info = place(1, 'N', 2, 'E');
    const auto safe = [&](std::string_view urlTemplate, std::string_view path) {
        return takeUTF8(appMakeSafeWebServiceURL(text(urlTemplate).get(), &info, text(path).get()))
            .value_or("null");
    };
    EXPECT_EQ(safe("%.0f,%.0f&q=%@", "/a/x)&q=0,0(&ll=1,1.jpg"),
              "1,2&q=x%29%26q%3D0%2C0%28%26ll%3D1%2C1.jpg");
    EXPECT_EQ(safe("%.0f,%.0f,%@", "/My Photo+#?:@;$!*'~-_.jpg"),
              "1,2,My%20Photo%2B%23%3F%3A%40%3B%24%21%2A%27~-_.jpg");
    EXPECT_EQ(safe("%.0f,%.0f", "/a&b"), "1,2");
    EXPECT_EQ(safe("%f", "/a&b"), "null");
}

TEST(appMakeWebServiceURL, anyOtherNumberOfPercentSignsGivesNoAddress)
{
    const fileInfoRecord info = place(1, 'N', 2, 'E');
    for (const char* wrong : {"b3", "", "%f", "%f,%f,%@,%f", "100%%,%f%f", "%f,%f%%"}) {
        SCOPED_TRACE(wrong);
        EXPECT_EQ(address(wrong, info), "null");
    }
}

TEST(appMakeWebServiceURL, aConversionThatDoesNotFitItsValueIsHarmless)
{
    const struct {
        const char *urlTemplate, *expected;
    } rows[] = {
        {"%@,%f", ",-3.250000"},
        {"%s,%n", ",%n"},
        {"%f,%f,%f", "45.500000,-3.250000,"},
        {"%f,%f,%20", "45.500000,-3.250000,%20"},
        {"%3$f,%99$f", ","},
        {"%f%%,", "45.500000%,"},
        {"%*f,%f", "                                    -3.250000,"},
        {"%.0f,%d", "46,-3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.urlTemplate);
        EXPECT_EQ(address(row.urlTemplate, place(45.5, 'N', 3.25, 'W')), row.expected);
    }
    EXPECT_LT(address("%99999999999f%.99999999999f", place(45.5, 'N', 3.25, 'W')).size(), 4096u)
        << "a width and a precision have their bounds";
}

TEST(appMakeWebServiceURL, nullArgumentsGiveNull)
{
    const fileInfoRecord info = place(1, 'N', 2, 'E');
    EXPECT_EQ(appMakeWebServiceURL(nullptr, &info, text("/a").get()), nullptr);
    EXPECT_EQ(appMakeWebServiceURL(text("%f%f").get(), nullptr, text("/a").get()), nullptr);
    EXPECT_EQ(appMakeWebServiceURL(text("%f%f%@").get(), &info, nullptr), nullptr);
    EXPECT_EQ(takeUTF8(appMakeWebServiceURL(text("%.0f,%.0f").get(), &info, nullptr)), "1,2");
}

TEST(appMakeCatalogueURL, hasItsFixedRadius)
{
    fileInfoRecord info = place(48.1, 'N', 11.5, 'W');
    info.distance = 1000.0;
    EXPECT_EQ(catalogue(info), "skallion://find/gps/&lat=48.100000&long=-11.500000&distance=2000m");
    EXPECT_EQ(catalogue(place(48.1, 'S', 11.5, 0)),
              "skallion://find/gps/&lat=-48.100000&long=11.500000&distance=2000m");
    EXPECT_EQ(appMakeCatalogueURL(nullptr), nullptr);
}

TEST(appMakeCatalogueURL, hasAPointInEveryLocale)
{
    // Whether this locale is installed or not, the text is the same.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(catalogue(place(0.5, 'N', 0.25, 'E')),
              "skallion://find/gps/&lat=0.500000&long=0.250000&distance=2000m");
    std::setlocale(LC_ALL, "C");
}

TEST(appCopyServiceTitle, theShippedServicesAllGiveAnAddress)
{
    ASSERT_NE(iuRegisterApplicationBundle(), nullptr);
    const fileInfoRecord info = place(48.1, 'N', 11.5, 'E');
    int count = 0;
    for (std::int32_t number = 1;; ++number) {
        const test::Text title(appCopyServiceTitle(number));
        if (!title) break;
        ++count;
        SCOPED_TRACE(test::utf8(title.get()).value());
        const test::Text urlTemplate(appCopyServiceTemplate(title.get()));
        const std::string filledIn =
            takeUTF8(appMakeWebServiceURL(urlTemplate.get(), &info, text("/a b.jpg").get()))
                .value_or("null");
        EXPECT_NE(filledIn.find("48.1"), std::string::npos) << filledIn;
        EXPECT_NE(filledIn.find("11.5"), std::string::npos) << filledIn;
    }
    EXPECT_GE(count, 4);
}

TEST(appCopyServiceTitle, isNullWhenMemoryRunsOut)
{
    ASSERT_NE(iuRegisterApplicationBundle(), nullptr);
    EXPECT_GT(test::failEachRequest([] { return appCopyServiceTitle(1); }), 2u);
    EXPECT_NE(test::Text(appCopyServiceTitle(1)).get(), nullptr);
}

TEST(appCopyServiceTemplate, isNullWhenMemoryRunsOut)
{
    ASSERT_NE(iuRegisterApplicationBundle(), nullptr);
    const test::Text title(appCopyServiceTitle(2));
    EXPECT_GT(test::failEachRequest([&] { return appCopyServiceTemplate(title.get()); }), 3u);
}

TEST(appMakeWebServiceURL, isNullWhenMemoryRunsOut)
{
    const fileInfoRecord info = place(48.1, 'N', 11.5, 'E');
    const test::Text urlTemplate = text("https://maps.example/?lat=%f&long=%f&name=%@");
    const test::Text path = text("/home/user/Pictures/One of the harbour, early.jpg");
    EXPECT_GT(test::failEachRequest(
                  [&] { return appMakeWebServiceURL(urlTemplate.get(), &info, path.get()); }),
              3u);
    EXPECT_GT(test::failEachRequest([&] { return appMakeCatalogueURL(&info); }), 1u);
}
