#include "lib/prefs/preference_file.h"

#include "base/file_lock.h"
#include "tests/support/environment.h"
#include "tests/support/other_process.h"
#include "tests/support/permissions.h"
#include "tests/support/small_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

struct Store {
    std::string path(const std::string& name = "preferences.json") const
    {
        return folder.file("app/" + name);
    }
    void write(const std::string& content) const
    {
        fs::create_directories(folder.file("app"));
        folder.write("app/preferences.json", content);
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& item : fs::directory_iterator(folder.file("app"))) {
            found.push_back(item.path().filename());
        }
        std::sort(found.begin(), found.end());
        return found;
    }
    test::TemporaryFolder folder;
    PreferenceFile file{folder.file("app")};
};
}  // namespace

TEST(PreferenceFile, isReadableForTheUserOnly)
{
    const Store store;
    EXPECT_TRUE(store.file.store(u"\u00e4", u"x"));
    EXPECT_EQ(test::readFile(store.path()), "{\n    \"\u00e4\": \"x\"\n}\n");
    struct stat facts = {};
    ASSERT_EQ(stat(store.path().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600u);
    ASSERT_EQ(stat(store.folder.file("app").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0700u);
    EXPECT_THAT(store.names(), testing::ElementsAre("preferences.json", "preferences.lock"));
}

TEST(PreferenceFile, setsADamagedFileAside)
{
    const std::string deep(100000, '[');
    for (const std::string& damaged :
         {std::string("{\"a\": 1"), std::string(""), std::string("\"text\""), std::string("[1]"),
          std::string("{\"a\": \"\xff\"}"), std::string("{\"a\": 1} x"), std::string(64, '\0'),
          deep, "{\"a\":" + deep + std::string(deep.size(), ']') + "}"}) {
        SCOPED_TRACE(damaged.substr(0, 20));
        const Store store;
        store.write(damaged);
        EXPECT_EQ(store.file.load(u"a"), std::nullopt);
        EXPECT_EQ(test::readFile(store.path()), damaged) << "reading changes nothing";
        EXPECT_TRUE(store.file.store(u"b", 2));
        EXPECT_EQ(test::readFile(store.path("preferences.json.damaged")), damaged);
        EXPECT_EQ(store.file.load(u"b"), PreferenceValue(2));
        EXPECT_EQ(store.file.load(u"a"), std::nullopt);
    }
}

TEST(PreferenceFile, keepsEveryDamagedFile)
{
    const Store store;
    for (const char* damaged : {"first", "second", "third"}) {
        store.write(damaged);
        EXPECT_TRUE(store.file.store(u"a", u"x"));
    }
    EXPECT_EQ(test::readFile(store.path("preferences.json.damaged")), "first");
    EXPECT_EQ(test::readFile(store.path("preferences.json.damaged.2")), "second");
    EXPECT_EQ(test::readFile(store.path("preferences.json.damaged.3")), "third");
}

TEST(PreferenceFile, leavesAloneWhatItCannotRead)
{
    const Store store;
    fs::create_directories(store.path());  // a folder in the file's place
    EXPECT_FALSE(store.file.store(u"a", 1));
    EXPECT_EQ(store.file.load(u"a"), std::nullopt);
    EXPECT_TRUE(fs::is_directory(store.path()));
    EXPECT_FALSE(PreferenceFile("").store(u"a", 1));
    EXPECT_FALSE(PreferenceFile("/proc/nothing/here").store(u"a", 1));
    EXPECT_EQ(PreferenceFile("").load(u"a"), std::nullopt);
}

TEST(PreferenceFile, staysWhenTheFolderMayNotBeWritten)
{
    const Store store;
    EXPECT_TRUE(store.file.store(u"a", 1));
    const std::string before = test::readFile(store.path());
    for (const std::string& path : {store.folder.path(), store.folder.file("app")}) {
        ASSERT_EQ(chmod(path.c_str(), 0555), 0);
    }
    ASSERT_EQ(chmod(store.path().c_str(), 0444), 0);
    {
        const test::WithoutPrivileges nobody;
        EXPECT_FALSE(store.file.store(u"a", 2));
        EXPECT_EQ(store.file.load(u"a"), PreferenceValue(1));
    }
    EXPECT_EQ(test::readFile(store.path()), before);
    for (const std::string& path : {store.folder.path(), store.folder.file("app")}) {
        ASSERT_EQ(chmod(path.c_str(), 0755), 0);
    }
}

TEST(PreferenceFile, staysUnchangedOnAFullDisk)
{
    const Store store;
    fs::create_directory(store.folder.file("app"));
    const int status = test::inChild([&store] {
        if (!test::mountSmallDisk(store.folder.file("app"))) return test::kCannotTest;
        EXPECT_TRUE(store.file.store(u"a", u"x"));
        EXPECT_TRUE(store.file.store(u"b", 1));
        const std::string before = test::readFile(store.path());
        test::fillDisk(store.folder.file("app"));
        for (int i = 0; i < 3; i++) EXPECT_FALSE(store.file.store(u"a", u"y"));
        EXPECT_FALSE(store.file.store(u"c", 2));
        EXPECT_FALSE(store.file.store(u"a", std::nullopt));
        EXPECT_EQ(test::readFile(store.path()), before);
        EXPECT_EQ(store.file.load(u"a"), PreferenceValue(u"x"));
        EXPECT_THAT(store.names(),
                    testing::ElementsAre("filler", "preferences.json", "preferences.lock"));
        fs::remove(store.path("filler"));
        EXPECT_TRUE(store.file.store(u"a", u"y"));
        EXPECT_EQ(store.file.load(u"b"), PreferenceValue(1));
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(PreferenceFile, aDamagedOneIsNotLostOnAFullDisk)
{
    const Store store;
    fs::create_directory(store.folder.file("app"));
    const int status = test::inChild([&store] {
        if (!test::mountSmallDisk(store.folder.file("app"))) return test::kCannotTest;
        store.write("damaged");
        test::fillDisk(store.folder.file("app"));
        for (int i = 0; i < 3; i++) EXPECT_FALSE(store.file.store(u"a", u"x"));
        EXPECT_EQ(test::readFile(store.path("preferences.json.damaged")), "damaged");
        EXPECT_FALSE(fs::exists(store.path("preferences.json.damaged.2")));
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(PreferenceFile, isMadeAnewInAFolderThatVanished)
{
    const Store store;
    EXPECT_TRUE(store.file.store(u"a", 1));
    fs::remove_all(store.folder.file("app"));
    EXPECT_EQ(store.file.load(u"a"), std::nullopt);
    EXPECT_TRUE(store.file.store(u"b", 2));
    EXPECT_EQ(store.file.load(u"b"), PreferenceValue(2));
    EXPECT_EQ(store.file.load(u"a"), std::nullopt);
}

TEST(PreferenceFile, doesNotWaitForAPipeInItsPlace)
{
    const Store store;
    fs::create_directory(store.folder.file("app"));
    ASSERT_EQ(mkfifo(store.path().c_str(), 0600), 0);
    EXPECT_EQ(store.file.load(u"a"), std::nullopt);
    EXPECT_FALSE(store.file.store(u"a", 1));
    EXPECT_TRUE(fs::is_fifo(store.path()));
}

TEST(PreferenceFile, ignoresTheFileOfAProgramThatDied)
{
    const Store store;
    fs::create_directory(store.folder.file("app"));
    const std::string unfinished = store.path("preferences.json.new");
    const std::string other = store.folder.write("other", "kept");
    ASSERT_EQ(mkfifo(unfinished.c_str(), 0600), 0);
    EXPECT_TRUE(store.file.store(u"a", 1));
    fs::create_symlink(other, unfinished);
    EXPECT_TRUE(store.file.store(u"a", 2));
    store.folder.write("app/preferences.json.new", "half of it");
    EXPECT_TRUE(store.file.store(u"a", 3));
    EXPECT_EQ(store.file.load(u"a"), PreferenceValue(3));
    EXPECT_EQ(test::readFile(other), "kept");
    EXPECT_THAT(store.names(), testing::ElementsAre("preferences.json", "preferences.lock"));
}

TEST(PreferenceFile, replacesTheTargetOfALink)
{
    const Store store;
    fs::create_directory(store.folder.file("app"));
    store.folder.write("elsewhere.json", "{\"kept\": \"1\"}");
    fs::create_symlink("../elsewhere.json", store.path());
    EXPECT_TRUE(store.file.store(u"a", u"x"));
    EXPECT_TRUE(fs::is_symlink(store.path()));
    EXPECT_EQ(store.file.load(u"kept"), PreferenceValue(u"1"));
    EXPECT_THAT(test::readFile(store.folder.file("elsewhere.json")), testing::HasSubstr("\"a\""));
}

TEST(PreferenceFile, writesNothingWhenNothingChanges)
{
    const Store store;
    EXPECT_TRUE(store.file.store(u"a", 1));
    struct stat before = {}, after = {};
    ASSERT_EQ(stat(store.path().c_str(), &before), 0);
    EXPECT_TRUE(store.file.store(u"a", 1));
    EXPECT_TRUE(store.file.store(u"missing", std::nullopt));
    ASSERT_EQ(stat(store.path().c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino) << "the same file";
}

TEST(PreferenceFile, halfASurrogatePairBecomesAReplacementCharacter)
{
    const Store store;
    EXPECT_TRUE(store.file.store(u"a", std::u16string(u"x\xdce9y")));
    EXPECT_EQ(store.file.load(u"a"), PreferenceValue(u"x\ufffdy"));
}

TEST(PreferenceFile, processesThatStoreDifferentKeysAllKeepTheirValues)
{
    constexpr int kProcesses = 4;
    constexpr int kKeys = 25;
    const Store store;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; process++) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            bool isStored = true;
            for (int i = 0; i < kKeys; i++) {
                const std::u16string key = {static_cast<char16_t>(u'a' + process),
                                            static_cast<char16_t>(u'a' + i)};
                isStored = store.file.store(key, i) && isStored;
            }
            _exit(isStored ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (int process = 0; process < kProcesses; process++) {
        for (int i = 0; i < kKeys; i++) {
            const std::u16string key = {static_cast<char16_t>(u'a' + process),
                                        static_cast<char16_t>(u'a' + i)};
            EXPECT_EQ(store.file.load(key), PreferenceValue(i));
        }
    }
}

TEST(PreferenceFile, isNeverIncompleteIfAProcessIsKilled)
{
    const Store store;
    EXPECT_TRUE(store.file.store(u"kept", u"1"));
    for (int round = 0; round < 10; round++) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (std::int32_t i = 0;; i++) (void)store.file.store(u"counter", i);
        }
        usleep(static_cast<useconds_t>(2000 + round * 700));
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(store.file.load(u"kept"), PreferenceValue(u"1"));
        EXPECT_TRUE(store.file.store(u"after", round)) << "the lock went with its holder";
    }
    for (const std::string& name : store.names()) {
        EXPECT_THAT(name, testing::Not(testing::HasSubstr("damaged")));
    }
}

TEST(FileLock, isHeldByOneProcessAtATime)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("lock");
    using std::chrono::milliseconds;
    {
        const FileLock first(path, milliseconds(0));
        EXPECT_TRUE(first);
        const auto start = std::chrono::steady_clock::now();
        const FileLock second(path, milliseconds(30));
        EXPECT_FALSE(second);
        EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(30)) << "it waits";
    }
    EXPECT_TRUE(FileLock(path, milliseconds(0)));
    EXPECT_FALSE(FileLock(folder.file("missing/lock"), milliseconds(0)));
}
