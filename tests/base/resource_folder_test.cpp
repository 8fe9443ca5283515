#include "base/resource_folder.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace pinorama;

TEST(programFolder, isTheFolderOfThisTest)
{
    EXPECT_EQ(programFolder(),
              std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

TEST(resourceFolder, isWhatTheEnvironmentSays)
{
    const test::ScopedVariable variable("PINORAMA_RESOURCES", "/somewhere/else");
    EXPECT_EQ(resourceFolder(), "/somewhere/else");
}

TEST(resourceFolder, liesBesideTheBuildTreesPrograms)
{
    for (const char* unset : {static_cast<const char*>(nullptr), ""}) {
        const test::ScopedVariable variable("PINORAMA_RESOURCES", unset);
        EXPECT_EQ(resourceFolder(), programFolder() + "/../resources");
        EXPECT_TRUE(std::filesystem::exists(resourceFolder() + "/strings/en/Localizable.strings"));
    }
}

TEST(resourceFolderOf, prefersTheBuildTree)
{
    const test::TemporaryFolder folder;
    const std::string programs = folder.file("bin");
    EXPECT_EQ(resourceFolderOf(programs), programs + "/../share/pinorama");
    std::filesystem::create_directories(programs);
    std::filesystem::create_directories(folder.file("resources"));
    EXPECT_EQ(resourceFolderOf(programs), programs + "/../share/pinorama")
        << "some other program's";
    std::filesystem::create_directories(folder.file("resources/strings"));
    EXPECT_EQ(resourceFolderOf(programs), programs + "/../resources");
}

TEST(helperProgramOf, prefersTheBuildTree)
{
    const test::TemporaryFolder folder;
    const std::string programs = folder.file("bin");
    std::filesystem::create_directories(programs);
    const std::string installed = helperProgramOf(programs, "some-helper");
    EXPECT_TRUE(installed.starts_with(programs + "/../")) << installed;
    EXPECT_TRUE(installed.ends_with("/some-helper")) << installed;
    const std::string beside = folder.write("bin/some-helper", "#!/bin/sh\n");
    std::filesystem::permissions(beside, std::filesystem::perms::owner_read);
    EXPECT_EQ(helperProgramOf(programs, "some-helper"), installed) << "it cannot be run";
    std::filesystem::permissions(beside, std::filesystem::perms::owner_all);
    EXPECT_EQ(helperProgramOf(programs, "some-helper"), beside);
}

TEST(helperProgram, isWhatTheEnvironmentSays)
{
    for (const char* unset : {static_cast<const char*>(nullptr), ""}) {
        const test::ScopedVariable variable("PINORAMA_SOME_HELPER", unset);
        EXPECT_EQ(helperProgram("some-helper", "PINORAMA_SOME_HELPER"),
                  helperProgramOf(programFolder(), "some-helper"));
    }
    const test::ScopedVariable variable("PINORAMA_SOME_HELPER", "/elsewhere/helper");
    EXPECT_EQ(helperProgram("some-helper", "PINORAMA_SOME_HELPER"), "/elsewhere/helper");
    EXPECT_EQ(helperProgram("some-helper"), helperProgramOf(programFolder(), "some-helper"));
}
