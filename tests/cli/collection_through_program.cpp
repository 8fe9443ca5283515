#include "tests/cli/collection_through_program.h"

#include "tests/support/collection.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

void test::expectTheCollectionThrough(const std::string& program, const std::string& folder)
{
    const std::vector<test::CollectedPicture> pictures = test::picturesOf(folder);
    ASSERT_GE(pictures.size(), 400u) << "the collection is incomplete";
    std::vector<std::string> command = {program, "--json"};
    for (const test::CollectedPicture& picture : pictures) command.push_back(picture.path);
    const test::ProgramResult result = test::runProgram({.command = command});
    ASSERT_TRUE(result.status == 0 || result.status == 1) << result.err;

    std::istringstream lines(result.out);
    for (const test::CollectedPicture& picture : pictures) {
        SCOPED_TRACE(picture.name);
        std::string line;
        ASSERT_TRUE(std::getline(lines, line));
        const nlohmann::json object = nlohmann::json::parse(line);
        EXPECT_EQ(object["path"], picture.path);
        EXPECT_EQ(object["accepted"], true);
        if (picture.isAdvisory()) continue;
        int compared = 0;
        for (const auto& [field, expected] : picture.expected.items()) {
            if (!object.contains(field) || picture.isAmbiguous(field)) continue;
            compared++;
            if (expected == "nonzero path error") {
                EXPECT_NE(object[field], 0) << field;
            } else {
                EXPECT_EQ(object[field], expected) << field;
            }
        }
        EXPECT_GE(compared, 1);
        EXPECT_EQ(object["coordinate"] != "", object["result"] == 0);
    }
    std::string rest;
    EXPECT_FALSE(std::getline(lines, rest));
}
