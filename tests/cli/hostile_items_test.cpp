// pinorama-info with items that are not pictures, and with pictures that change while it reads
// them.

#include "tests/support/hostile_items.h"
#include "tests/cli/info_run.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"
#include "tests/support/restless_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <nlohmann/json.hpp>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using test::objectsOf;

constexpr std::size_t kMaxArgumentLength =
    100'000;  // bytes; the system allows no more than 128 KiB
const test::PictureFields kPlace = {.lat = 48.5, .latRef = "N", .lon = 11.25, .lonRef = "E"};

test::ProgramResult runJson(std::vector<std::string> paths)
{
    paths.insert(paths.begin(), {PINORAMA_INFO, "--json", "--"});
    return test::runProgram({.command = std::move(paths), .seconds = 30});
}

}  // namespace

TEST(pinoramaInfoWithHostileItems, reportsEachAndContinues)
{
    const test::TemporaryFolder folder;
    const std::string good = folder.write("good.jpg", test::pictureWithGps(kPlace));
    std::vector<test::HostileItem> items = test::hostileItems(folder);
    std::erase_if(items, [](const auto& item) { return item.path.size() > kMaxArgumentLength; });
    std::vector<std::string> paths;
    std::size_t errors = 0;
    for (const test::HostileItem& item : items) {
        paths.insert(paths.end(), {item.path, good});
        errors += item.error != nullptr ? 1 : 0;
    }
    const test::ProgramResult result = runJson(paths);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), errors) << result.err;
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), paths.size());
    for (std::size_t i = 0; i < items.size(); i++) {
        SCOPED_TRACE(items[i].what);
        const ordered_json& object = objects[2 * i];
        EXPECT_EQ(object["result"], items[i].error != nullptr ? items[i].status : -1);
        EXPECT_EQ(object["size"].is_null(), !items[i].isRegular);
        EXPECT_EQ(object["coordinate"], "");
        if (items[i].error != nullptr) {
            const std::string line =
                "pinorama-info: " + items[i].path + ": " + items[i].error + "\n";
            EXPECT_NE(result.err.find(line), std::string::npos) << line << result.err;
        }
        EXPECT_EQ(objects[2 * i + 1]["latti"], 48.5) << "the good picture after it";
    }
}

TEST(pinoramaInfoWithHostileItems, readsPicturesWithDifficultNames)
{
    const test::TemporaryFolder folder;
    std::vector<std::string> paths;
    for (const std::string& name :
         {test::longestName(), std::string("\xff\xc3(.jpg"), std::string("a\nb.jpg"),
          std::string("-v.jpg"), std::string("%s%n.jpg")}) {
        paths.push_back(folder.write(name, test::pictureWithGps(kPlace)));
    }
    const test::ProgramResult result = runJson(paths);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), paths.size());
    for (const ordered_json& object : objects) EXPECT_EQ(object["latti"], 48.5) << object["path"];
}

TEST(pinoramaInfoWithHostileItems, printsThePlaceOfAChangingFileOrNone)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("restless.jpg");
    const test::RestlessFile other(path, test::pictureWithGps(kPlace));
    int found = 0;
    for (int i = 0; i < 5; i++) {
        const test::ProgramResult result = runJson(std::vector<std::string>(200, path));
        EXPECT_GE(result.status, 0) << "crashed or took too long";
        EXPECT_EQ(result.err.find("too long"), std::string::npos) << result.err;
        const std::vector<ordered_json> objects = objectsOf(result.out);
        EXPECT_EQ(objects.size(), 200u);
        for (const ordered_json& object : objects) {
            if (object["result"] == 0 && object["latti"] == 48.5) found++;
        }
    }
    EXPECT_GT(found, 0);
}
