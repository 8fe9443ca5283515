#include "opener/opener_client.h"

#include "base/resource_folder.h"
#include "tests/opener/opener_fixture.h"
#include "tests/support/environment.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

namespace pinorama::tests {
TEST_F(OpenerClient, opensAFile)
{
    const std::string path = folder_.write("a.jpg", "twelve bytes");
    EXPECT_EQ(client_.stage(), OpenStage::none);
    EXPECT_EQ(after(path), OpenStage::done);
    EXPECT_EQ(client_.file().item(), attributesOf(path));
    const PictureFile file = client_.take();
    EXPECT_EQ(client_.stage(), OpenStage::none);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.attributes(), attributesOf(path));
    EXPECT_EQ(textOf(file), "twelve bytes");
    EXPECT_EQ(client_.count(), 1u);
    EXPECT_EQ(client_.countAtWork(), 0u);
}

TEST_F(OpenerClient, saysWhatIsNoFileAndWhy)
{
    ASSERT_EQ(mkfifo(folder_.file("pipe.jpg").c_str(), 0600), 0);
    const struct {
        std::string path;
        int error;
        bool isThere;
    } rows[] = {{folder_.path(), 0, true},
                {folder_.file("pipe.jpg"), 0, true},
                {"/dev/null", 0, true},
                {folder_.file("none.jpg"), ENOENT, false},
                {std::string("/a\0b", 4), ENOENT, false},
                {"", ENOENT, false},
                {"/" + std::string(kMaxOpenPath, 'a'), ENAMETOOLONG, false},
                {folder_.file(std::string(300, 'a')), ENAMETOOLONG, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path.substr(0, 100));
        EXPECT_EQ(after(row.path), OpenStage::done);
        EXPECT_FALSE(client_.file().isOpen());
        EXPECT_EQ(client_.file().error(), row.error);
        EXPECT_EQ(client_.file().item().has_value(), row.isThere);
    }
}

TEST_F(OpenerClient, opensTheSidecarOfAPicture)
{
    const std::string path = folder_.write("IMG.CR2", "picture");
    const auto sidecar = [&] {
        client_.request(path, OpenTask::sidecar);
        EXPECT_EQ(client_.wait(kPatience), OpenStage::done);
        return client_.take();
    };
    EXPECT_FALSE(sidecar().isOpen());
    EXPECT_EQ(sidecar().error(), ENOENT);
    std::filesystem::create_directory(folder_.file("IMG.xmp"));
    EXPECT_FALSE(sidecar().isOpen()) << "a folder";
    folder_.write("IMG.XMP", "of both");
    EXPECT_EQ(textOf(sidecar()), "of both");
    std::filesystem::create_directory(folder_.file("elsewhere"));
    folder_.write("elsewhere/b.txt", "of the raw picture");
    ASSERT_EQ(symlink("elsewhere/b.txt", folder_.file("IMG.CR2.xmp").c_str()), 0);
    EXPECT_EQ(textOf(sidecar()), "of the raw picture");
    EXPECT_EQ(after(path), OpenStage::done);
    EXPECT_EQ(textOf(client_.take()), "picture");
    EXPECT_EQ(client_.count(), 1u);
}

TEST_F(OpenerClient, forgetsWhatIsGivenUp)
{
    client_.request(folder_.write("a.jpg", "a"));
    client_.giveUp();
    EXPECT_EQ(client_.wait(kShort), OpenStage::none);
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 0; }));
    EXPECT_EQ(client_.stage(), OpenStage::none);
    EXPECT_EQ(after(folder_.write("b.jpg", "b")), OpenStage::done);
    EXPECT_EQ(textOf(client_.file()), "b");
}

TEST_F(OpenerClient, givesTheLastOfManyRequests)
{
    for (int i = 0; i < 100; i++) {
        client_.request(folder_.write(std::to_string(i) + ".jpg", std::to_string(i)));
        EXPECT_LE(client_.count(), pinorama::OpenerClient::kMaxOpeners);
    }
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::done; }));
    EXPECT_EQ(textOf(client_.file()), "99");
    EXPECT_TRUE(goesOnUntil([this] { return client_.count() == 1; })) << "one is enough";
}

TEST_F(OpenerClient, replacesAnOpenerThatDied)
{
    const std::string path = folder_.write("a.jpg", "a");
    pid_t process = -1;
    pinorama::OpenerClient client([&process] {
        OpenerProcess opener = startOpenerProgram(programFolder() + "/pinorama-opener");
        process = opener.process;
        return opener;
    });
    for (int i = 0; i < 3; i++) {
        client.request(path);
        EXPECT_EQ(client.wait(kPatience), OpenStage::done);
        EXPECT_TRUE(client.take().isOpen());
        kill(process, SIGKILL);
    }
}

TEST_F(OpenerClient, doesWithoutOneThatCannotStart)
{
    const std::string path = folder_.write("a.jpg", "a");
    const std::string exits = folder_.write("exits", "#!/bin/sh\nexit 1\n");
    std::filesystem::permissions(exits, std::filesystem::perms::owner_all);
    for (const std::string& program : {std::string("/nowhere/pinorama-opener"), exits}) {
        pinorama::OpenerClient client([program] { return startOpenerProgram(program); });
        client.start();
        client.request(path);
        EXPECT_EQ(client.wait(kPatience), OpenStage::noOpener) << program;
        EXPECT_FALSE(client.file().isOpen());
        EXPECT_EQ(client.countAtWork(), 0u);
    }
}

TEST_F(OpenerClient, doesNotBelieveMalformedReplies)
{
    const std::string liar = folder_.write("liar", "#!/bin/sh\necho hello >&3\nexec sleep 60\n");
    std::filesystem::permissions(liar, std::filesystem::perms::owner_all);
    pinorama::OpenerClient client([liar] { return startOpenerProgram(liar); });
    client.request(folder_.write("a.jpg", "a"));
    EXPECT_EQ(client.wait(kPatience), OpenStage::noOpener);
}

TEST(openerProgram, isThatOfTheEnvironmentElseTheOneBesideTheProgram)
{
    EXPECT_EQ(openerProgram(), programFolder() + "/pinorama-opener");
    const test::ScopedVariable set("PINORAMA_OPENER", "/elsewhere/opener");
    EXPECT_EQ(openerProgram(), "/elsewhere/opener");
}

}  // namespace pinorama::tests
