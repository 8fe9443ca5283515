#include "opener/opener_question.h"

#include "base/resource_folder.h"
#include "opener/opener_client.h"
#include "tests/support/environment.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <set>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
using namespace std::chrono_literals;
using test::SlowDisk;

class OpenerQuestion : public testing::Test {
protected:
    static constexpr auto kPatience = 30s;  // no measure of speed: a busy machine may stall
    static constexpr auto kShort = 300ms;   // for what does not come

    std::vector<ItemFacts> factsOf(const std::vector<std::string>& paths)
    {
        const auto question = client_.ask({.task = OpenTask::facts, .paths = paths});
        EXPECT_EQ(client_.wait(*question, kPatience), OpenStage::done);
        return question->facts();
    }

    static DescriptorHolder memoryFile(const std::string& bytes)
    {
        DescriptorHolder file(memfd_create("test", MFD_CLOEXEC));
        EXPECT_EQ(write(file.get(), bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
        return file;
    }

    bool isReadable(std::chrono::milliseconds max) const
    {
        pollfd state = {client_.descriptor(), POLLIN, 0};
        return poll(&state, 1, static_cast<int>(max.count())) == 1;
    }

    // Goes on as an event loop does.
    bool goesOnUntil(const std::function<bool()>& isTrue)
    {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (!isTrue() && std::chrono::steady_clock::now() < end) {
            (void)isReadable(10ms);
            client_.advance();
        }
        return isTrue();
    }

    // A disk with a file that can be looked at, and one that never comes.
    std::unique_ptr<SlowDisk> disk(const std::string& name)
    {
        std::filesystem::create_directory(folder_.file(name));
        return std::make_unique<SlowDisk>(
            folder_.file(name),
            std::vector<SlowDisk::File>{{"good.jpg", "good", 0},
                                        {"look.jpg", "l", SlowDisk::kNever, SlowDisk::Step::look}});
    }

    test::TemporaryFolder folder_;
    pinorama::OpenerClient client_{
        [] { return startOpenerProgram(programFolder() + "/pinorama-opener"); }};
};

TEST_F(OpenerQuestion, aboutItemsHasTheFactsOfEach)
{
    const std::string file = folder_.write("a.jpg", "x");
    const std::vector<std::string> paths = {folder_.path() + "/", file, folder_.file("none"), "/"};
    const std::vector<ItemFacts> facts = factsOf(paths);
    ASSERT_EQ(facts.size(), paths.size());
    for (std::size_t i = 0; i < paths.size(); i++) EXPECT_EQ(facts[i], factsOfItem(paths[i])) << i;
    EXPECT_EQ(client_.count(), 1u);
}

TEST_F(OpenerQuestion, aboutNamesHasThoseThatMayBeShownSo)
{
    for (const char* name : {"a.jpg", "a.nef", "b.jpg", "\u00e4.jpg"}) folder_.write(name, "x");
    std::set<std::string> names;
    const auto question =
        client_.ask({.task = OpenTask::names, .paths = {folder_.path()}, .shown = "a"},
                    [&](const auto& part) { names.insert(part.begin(), part.end()); });
    EXPECT_EQ(client_.wait(*question, kPatience), OpenStage::done);
    EXPECT_EQ(names, (std::set<std::string>{"a.jpg", "a.nef", "\u00e4.jpg"}));
}

TEST_F(OpenerQuestion, aboutNamesHasThoseOfALargeFolder)
{
    constexpr std::size_t kCount = 600;
    for (std::size_t i = 0; i < kCount; i++)
        folder_.write(std::string(230, 'a') + "\u00e4" + std::to_string(i), "");
    std::set<std::string> names;
    std::size_t parts = 0;
    const auto question =
        client_.ask({.task = OpenTask::names, .paths = {folder_.path()}}, [&](const auto& part) {
            names.insert(part.begin(), part.end());
            parts++;
        });
    EXPECT_TRUE(goesOnUntil([&] { return question->isAnswered(); }));
    EXPECT_EQ(question->stage(), OpenStage::done);
    EXPECT_EQ(names.size(), kCount);
    EXPECT_GT(parts, 3u);
}

TEST_F(OpenerQuestion, aboutTheNumberOfItemsHasIt)
{
    for (const char* name : {"a", "b", ".c"}) folder_.write(name, "x");
    const auto question = client_.ask({.task = OpenTask::count, .paths = {folder_.path()}});
    EXPECT_EQ(client_.wait(*question, kPatience), OpenStage::done);
    EXPECT_EQ(question->count(), (FolderCount{2, 3}));
}

TEST_F(OpenerQuestion, hasAFileOpenedBesideTheOneThatIsWanted)
{
    const std::string path = folder_.write("a.jpg", "one");
    const auto question = client_.ask({.task = OpenTask::open, .paths = {path}});
    client_.request(folder_.write("b.jpg", "the other"));
    EXPECT_EQ(client_.wait(*question, kPatience), OpenStage::done);
    const PictureFile file = question->takeFile();
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.attributes(), attributesOf(path));
    EXPECT_FALSE(question->takeFile().isOpen()) << "it was handed over";
    EXPECT_EQ(client_.wait(kPatience), OpenStage::done);
    EXPECT_EQ(client_.take().size(), 9u);

    const auto missing = client_.ask({.task = OpenTask::open, .paths = {folder_.file("none")}});
    EXPECT_EQ(client_.wait(*missing, kPatience), OpenStage::done);
    EXPECT_EQ(missing->takeFile().error(), ENOENT);
}

TEST_F(OpenerQuestion, savesAFileAsAWhole)
{
    const std::string bytes = std::string(100'000, 'a') + "end";
    const auto save = [&](const std::string& path) {
        const auto question = client_.save(path, memoryFile(bytes));
        EXPECT_EQ(client_.wait(*question, kPatience), OpenStage::done);
        return question->error();
    };
    const std::string earlier = folder_.write("a.kml", std::string(200'000, 'x'));
    EXPECT_EQ(save(earlier), 0);
    EXPECT_EQ(test::readFile(earlier), bytes);
    EXPECT_EQ(save(folder_.file("b.kml")), 0);
    EXPECT_EQ(test::readFile(folder_.file("b.kml")), bytes);
    EXPECT_EQ(save(folder_.file("none/c.kml")), ENOENT);
    EXPECT_EQ(save(folder_.path()), EISDIR);
    const auto items = std::filesystem::directory_iterator(folder_.path());
    EXPECT_EQ(std::distance(begin(items), end(items)), 2) << "nothing is left beside them";
}

TEST_F(OpenerQuestion, doesNotDisturbTheFile)
{
    client_.request(folder_.write("a.jpg", "x"));
    const auto first = client_.ask({.task = OpenTask::facts, .paths = {folder_.path()}});
    const auto second = client_.ask({.task = OpenTask::count, .paths = {folder_.path()}});
    EXPECT_TRUE(goesOnUntil([&] {
        return client_.stage() == OpenStage::done && first->isAnswered() && second->isAnswered();
    }));
    EXPECT_TRUE(client_.take().isOpen());
    EXPECT_EQ(second->count(), (FolderCount{1, 1}));
}

TEST_F(OpenerQuestion, isSeenToBeAnsweredByTheEventLoopWhenSomebodyElseWaited)
{
    const auto first = client_.ask({.task = OpenTask::facts, .paths = {folder_.path()}});
    for (int i = 0; i < 1000 && !first->isAnswered(); i++) {
        client_.request(folder_.file("none.jpg"));
        (void)client_.wait(kPatience);
    }
    ASSERT_EQ(first->stage(), OpenStage::done);
    EXPECT_TRUE(isReadable(0ms));
    client_.advance();
    EXPECT_FALSE(isReadable(0ms));
}

TEST_F(OpenerQuestion, isGivenUpWithItsOwner)
{
    for (int i = 0; i < 20; i++)
        (void)client_.ask({.task = OpenTask::facts, .paths = {folder_.file(std::to_string(i))}});
    EXPECT_LE(client_.count(), pinorama::OpenerClient::kMaxOpeners);
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 0; }));
    EXPECT_EQ(factsOf({folder_.path()}).front(), factsOfItem(folder_.path()));
}

TEST_F(OpenerQuestion, doesNotKeepTheCallerOnADiskThatHangs)
{
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    hanging->hang();
    const auto saved = client_.save(hanging->file("new.kml"), memoryFile("x"));
    EXPECT_EQ(client_.wait(*saved, kShort), OpenStage::waiting);
    EXPECT_EQ(factsOf({folder_.path()}).front(), factsOfItem(folder_.path()));
    hanging->recover();
    EXPECT_TRUE(goesOnUntil([&] { return saved->isAnswered(); }));
    EXPECT_NE(saved->error(), 0) << "nothing can be written there";
    hanging->hang();
    const OpenRequest requests[] = {
        {.task = OpenTask::names, .paths = {hanging->file("")}, .shown = "x"},
        {.task = OpenTask::facts, .paths = {folder_.path(), hanging->file("new.jpg")}}};
    std::vector<std::shared_ptr<pinorama::OpenerQuestion>> asked;
    for (const OpenRequest& request : requests) {
        asked.push_back(client_.ask(request));
        EXPECT_EQ(client_.wait(*asked.back(), kShort), OpenStage::waiting);
    }
    const auto count = client_.ask({.task = OpenTask::count, .paths = {hanging->file("")}});
    EXPECT_EQ(client_.wait(*count, kPatience), OpenStage::leftAlone);
    const auto facts = factsOf({folder_.path(), hanging->file("other.jpg")});
    EXPECT_TRUE(facts[0].isFolder);
    EXPECT_FALSE(facts[1].isKnown) << "the others come nevertheless";
    const auto again = client_.ask(requests[1]);
    EXPECT_EQ(client_.wait(*again, kShort), OpenStage::waiting);
    EXPECT_EQ(client_.countAtWork(), 2u) << "one has that request already";

    hanging->recover();
    EXPECT_TRUE(goesOnUntil([&] { return count->isAnswered() && again->isAnswered(); }));
    EXPECT_EQ(count->count(), (FolderCount{2, 2}));
    EXPECT_FALSE(again->facts()[1].isThere);
}

TEST_F(OpenerQuestion, saysThatThereIsNoOpener)
{
    pinorama::OpenerClient client([] { return startOpenerProgram("/nowhere/pinorama-opener"); });
    const auto question = client.ask({.task = OpenTask::facts, .paths = {"/"}});
    EXPECT_EQ(question->stage(), OpenStage::noOpener);
    EXPECT_TRUE(question->isAnswered());
}

}  // namespace pinorama::tests
