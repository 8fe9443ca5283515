#include "base/user_folders.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include <sys/stat.h>

using namespace pinorama;

namespace fs = std::filesystem;

TEST(homeFolder, isWhatHOMESays)
{
    const struct {
        const char *value, *expected;
    } rows[] = {{"/home/anna", "/home/anna"}, {"/home/anna/", "/home/anna"}, {"/", "/"}};
    for (const auto& row : rows) {
        const test::ScopedVariable home("HOME", row.value);
        EXPECT_EQ(homeFolder(), row.expected);
    }
}

TEST(homeFolder, comesFromTheUserDatabaseWithoutHOME)
{
    for (const char* value : {static_cast<const char*>(nullptr), "", "relative"}) {
        const test::ScopedVariable home("HOME", value);
        EXPECT_NE(homeFolder(), "relative");
        EXPECT_TRUE(homeFolder().empty() || homeFolder().starts_with('/'));
    }
}

TEST(userFolders, followTheEnvironmentElseLieInTheHomeFolder)
{
    const test::ScopedVariable home("HOME", "/home/anna");
    const struct {
        const char* variable;
        std::string (*folder)();
        const char* expected;
    } rows[] = {
        {"XDG_CONFIG_HOME", configFolder, "/home/anna/.config"},
        {"XDG_DATA_HOME", dataFolder, "/home/anna/.local/share"},
        {"XDG_CACHE_HOME", cacheFolder, "/home/anna/.cache"},
        {"XDG_STATE_HOME", stateFolder, "/home/anna/.local/state"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.variable);
        for (const char* unset : {static_cast<const char*>(nullptr), "", "relative/path"}) {
            const test::ScopedVariable variable(row.variable, unset);
            EXPECT_EQ(row.folder(), row.expected);
        }
        const test::ScopedVariable variable(row.variable, "/else where/");
        EXPECT_EQ(row.folder(), "/else where");
    }
}

TEST(desktopFolder, isWhatTheSettingsSay)
{
    const test::TemporaryFolder config;
    const test::ScopedVariable configHome("XDG_CONFIG_HOME", config.path().c_str());
    const test::ScopedVariable home("HOME", "/home/anna");
    const struct {
        const char *name, *settings, *expected;
    } rows[] = {
        {"below home", "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n", "/home/anna/Schreibtisch"},
        {"absolute", "XDG_DESKTOP_DIR=\"/srv/desk\"", "/srv/desk"},
        {"slash at the end", "XDG_DESKTOP_DIR=\"$HOME/Desk/\"\n", "/home/anna/Desk"},
        {"home itself", "XDG_DESKTOP_DIR=\"$HOME/\"\n", "/home/anna"},
        {"home without a slash", "XDG_DESKTOP_DIR=\"$HOME\"\n", "/home/anna"},
        {"quotes in the name", "XDG_DESKTOP_DIR=\"$HOME/a\\\"b\\$c\"\n", "/home/anna/a\"b$c"},
        {"blanks around", "  XDG_DESKTOP_DIR=\"$HOME/D\"  \n", "/home/anna/D"},
        {"among others", "# c\nXDG_MUSIC_DIR=\"$HOME/M\"\nXDG_DESKTOP_DIR=\"$HOME/D\"\n",
         "/home/anna/D"},
        {"the last one counts", "XDG_DESKTOP_DIR=\"/a\"\nXDG_DESKTOP_DIR=\"/b\"\n", "/b"},
        {"comment", "#XDG_DESKTOP_DIR=\"/a\"\n", "/home/anna/Desktop"},
        {"relative", "XDG_DESKTOP_DIR=\"Desk\"\n", "/home/anna/Desktop"},
        {"other variable", "XDG_DESKTOP_DIR=\"$HOMES/Desk\"\n", "/home/anna/Desktop"},
        {"no quotes", "XDG_DESKTOP_DIR=$HOME/Desk\n", "/home/anna/Desktop"},
        {"one quote", "XDG_DESKTOP_DIR=\"\n", "/home/anna/Desktop"},
        {"empty", "XDG_DESKTOP_DIR=\"\"\n", "/home/anna/Desktop"},
        {"nothing", "", "/home/anna/Desktop"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        config.write("user-dirs.dirs", row.settings);
        EXPECT_EQ(desktopFolder(), row.expected);
    }
    fs::remove(config.file("user-dirs.dirs"));
    EXPECT_EQ(desktopFolder(), "/home/anna/Desktop");
}

TEST(makeFolders, makesWhatIsMissing)
{
    const test::TemporaryFolder folder;
    EXPECT_TRUE(makeFolders(folder.file("a/b/c"), 0700));
    EXPECT_TRUE(fs::is_directory(folder.file("a/b/c")));
    struct stat facts = {};
    ASSERT_EQ(stat(folder.file("a").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0700u);
    EXPECT_TRUE(makeFolders(folder.file("a/b/c"), 0700)) << "there already";
    EXPECT_TRUE(makeFolders("/", 0700));
}

TEST(makeFolders, reportsWhyItCannot)
{
    const test::TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_FALSE(makeFolders(folder.file("file"), 0700));
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_FALSE(makeFolders(folder.file("file/below"), 0700));
    EXPECT_EQ(errno, ENOTDIR);
    fs::create_symlink("nowhere", folder.file("link"));
    EXPECT_FALSE(makeFolders(folder.file("link"), 0700));
    EXPECT_FALSE(makeFolders("", 0700));
}
