// The reader on kernels that lack Landlock, have an old version of it, or let users make no
// namespaces: it reads its pictures and holds all faults, with the locks that are left.

#include "reader/sandbox_locks.h"
#include "tests/reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

using namespace pinorama;

namespace {
using test::childrenOf;
using test::expectGoodPicture;
using test::propertiesOf;
using test::statusLine;
using Pictures = test::ReaderPictures;

struct Kernel {
    const char* name;
    std::vector<std::string> lacks;
    bool hasLandlock;
    bool hasNamespaces;
};

const Kernel kKernels[] = {
    {"this one", {}, true, true},
    {"Landlock 1", {"--landlock", "1"}, true, true},
    {"Landlock 3", {"--landlock", "3"}, true, true},
    {"Landlock 4", {"--landlock", "4"}, true, true},
    {"no Landlock", {"--landlock", "0"}, false, true},
    {"no namespaces", {"--no-namespaces"}, true, false},
    {"neither", {"--landlock", "0", "--no-namespaces"}, false, false},
};

// A reader on that kernel.
ReaderLauncher readerOn(const Kernel& kernel, const std::string& program,
                        const std::vector<std::string>& arguments = {})
{
    std::vector<std::string> all = kernel.lacks;
    all.push_back(programFolder() + "/" + program);
    all.insert(all.end(), arguments.begin(), arguments.end());
    return [all] { return startReaderProgram(programFolder() + "/old-kernel", all); };
}

// Which namespace of that kind a process is in.
std::string namespaceOf(pid_t process, const std::string& kind)
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/ns/" + kind, error);
}

TEST(pinoramaReader, readsPicturesOnEveryKernel)
{
    for (const Kernel& kernel : kKernels) {
        SCOPED_TRACE(kernel.name);
        const Pictures pictures;
        ReaderClient client(readerOn(kernel, "pinorama-reader"));
        expectGoodPicture(client, pictures);
        const pid_t reader = client.processID();
        EXPECT_EQ(statusLine(reader, "Seccomp"), "2");
        EXPECT_EQ(statusLine(reader, "NoNewPrivs"), "1");
        if (namespaceOf(reader, "net").empty()) continue;  // only root may see it
        const bool isWalled = kernel.hasNamespaces && findSandboxLocks().namespaces;
        for (const char* kind : {"user", "mnt", "net", "ipc", "uts", "pid_for_children"}) {
            EXPECT_EQ(namespaceOf(reader, kind) != namespaceOf(getpid(), kind), isWalled) << kind;
        }
        const auto areWalled = [isWalled](pid_t child) {
            return (namespaceOf(child, "pid") != namespaceOf(getpid(), "pid")) == isWalled;
        };
        EXPECT_TRUE(std::ranges::all_of(childrenOf(reader), areWalled));
    }
}

TEST(pinoramaReader, holdsFaultsOnEveryKernel)
{
    for (const Kernel& kernel : kKernels) {
        const Pictures pictures;
        ReaderClient client(readerOn(kernel, "faulty-reader"), test::shortLimits());
        for (const std::string& fault :
             {"open-file " + pictures.secret(), "write-file " + pictures.harm(),
              "start-program " + pictures.harm(), "kill-other " + std::to_string(getpid()),
              std::string("open-socket"), std::string("make-executable")}) {
            SCOPED_TRACE(kernel.name + (": " + fault));
            EXPECT_NE(propertiesOf(client, pictures.withFault(fault)).outcome, ReadOutcome::found);
            expectGoodPicture(client, pictures);
        }
        EXPECT_FALSE(std::filesystem::exists(pictures.harm()));
    }
}

// What each lock holds alone: the filter of system calls is not there.
TEST(forbidFiles, isALockOfItsOwnWithEveryVersion)
{
    if (findSandboxLocks().landlock == 0) GTEST_SKIP() << "this kernel has no Landlock";
    for (const Kernel& kernel : kKernels) {
        SCOPED_TRACE(kernel.name);
        const Pictures pictures;
        ReaderClient client(readerOn(kernel, "faulty-reader", {"--file-ban-only"}));
        expectGoodPicture(client, pictures);
        const ReadOutcome expected = kernel.hasLandlock ? ReadOutcome::nothing : ReadOutcome::found;
        EXPECT_EQ(
            propertiesOf(client, pictures.withFault("open-file " + pictures.secret())).outcome,
            expected);
        EXPECT_EQ(propertiesOf(client, pictures.withFault("write-file " + pictures.harm())).outcome,
                  expected);
        EXPECT_EQ(std::filesystem::exists(pictures.harm()), !kernel.hasLandlock);
        std::filesystem::remove(pictures.harm());
        (void)propertiesOf(client, pictures.withFault("start-program " + pictures.harm()));
        EXPECT_EQ(std::filesystem::exists(pictures.harm()), !kernel.hasLandlock);
    }
}

TEST(enterNamespaces, areALockOfTheirOwn)
{
    if (!findSandboxLocks().namespaces) GTEST_SKIP() << "users can make no namespaces here";
    (void)std::signal(SIGUSR1, SIG_IGN);  // one of the faults sends it, and may get through
    for (const Kernel& kernel : kKernels) {
        SCOPED_TRACE(kernel.name);
        const Pictures pictures;
        ReaderClient client(readerOn(kernel, "faulty-reader", {"--namespaces-only"}));
        expectGoodPicture(client, pictures);
        const ReadOutcome expected =
            kernel.hasNamespaces ? ReadOutcome::nothing : ReadOutcome::found;
        for (const std::string& fault :
             {"open-file " + pictures.secret(), "write-file " + pictures.harm(),
              "kill-other " + std::to_string(getpid())}) {
            EXPECT_EQ(propertiesOf(client, pictures.withFault(fault)).outcome, expected) << fault;
        }
        EXPECT_EQ(std::filesystem::exists(pictures.harm()), !kernel.hasNamespaces);
    }
}
}  // namespace
