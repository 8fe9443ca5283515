#include "platform/files/resource_folder.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(programFolder, isTheFolderOfThisTest)
{
    EXPECT_EQ(platform::programFolder(),
              std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

TEST(resourceFolder, isWhatTheEnvironmentSays)
{
    const test::ScopedVariable told("PINORAMA_RESOURCES", "/somewhere/else");
    EXPECT_EQ(platform::resourceFolder(), "/somewhere/else");
}

TEST(resourceFolder, liesBesideTheBuildTreesPrograms)
{
    for (const char* unset : {static_cast<const char*>(nullptr), ""}) {
        const test::ScopedVariable told("PINORAMA_RESOURCES", unset);
        EXPECT_EQ(platform::resourceFolder(), platform::programFolder() + "/../resources");
        EXPECT_TRUE(std::filesystem::exists(platform::resourceFolder() +
                                            "/strings/en/Localizable.strings"));
    }
}
