#include "lib/files/catalogue_facts.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

TEST(catalogueFactsOf, readsOwnerAccessAndMode)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("file", "x");
    ASSERT_EQ(chmod(path.c_str(), 0740), 0);
    const CatalogueFacts facts = catalogueFactsOf(path);
    EXPECT_EQ(facts.nodeFlags, 0);
    EXPECT_EQ(facts.userPrivileges, 0);
    EXPECT_EQ(facts.ownerID, geteuid());
    EXPECT_EQ(facts.groupID, getegid());
    EXPECT_EQ(facts.userAccess, 7);
    EXPECT_EQ(facts.mode, S_IFREG | 0740);
}

TEST(catalogueFactsOf, flagsAFolder)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(catalogueFactsOf(folder.path()).nodeFlags, 0x0010);
}

TEST(catalogueFactsOf, looksAtTheLinkItself)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.file("link"));
    EXPECT_EQ(catalogueFactsOf(folder.file("link")).mode & S_IFMT, unsigned{S_IFLNK});
}

TEST(catalogueFactsOf, readsWhatAnotherUserMayNotDo)
{
    if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
    const test::TemporaryFolder folder;
    const std::string path = folder.write("file", "x");
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(path.c_str(), 0744), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        if (setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(2);
        const CatalogueFacts facts = catalogueFactsOf(path);
        _exit(facts.userPrivileges == (0x01 | 0x04 | 0x80) && facts.userAccess == 4 ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(catalogueFactsOf, isAllZeroForAMissingItem)
{
    const CatalogueFacts facts = catalogueFactsOf("/nowhere/at/all");
    EXPECT_EQ(facts.nodeFlags | facts.userPrivileges | facts.userAccess | facts.mode, 0);
    EXPECT_EQ(facts.ownerID | facts.groupID, 0u);
}
