#include "opener/opener_protocol.h"

#include "base/descriptor_passing.h"
#include "opener/opener_socket.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
namespace {
struct Sockets {
    Sockets()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
        near = DescriptorHolder(ends[0]);
        far = DescriptorHolder(ends[1]);
    }

    DescriptorHolder near;
    DescriptorHolder far;
};

FileAttributes someItem()
{
    return {.isRegular = true,
            .size = 0x123456789a,
            .modified = -5,
            .created = 1'700'000'000,
            .type = S_IFREG};
}
}  // namespace

TEST(openRequestIn, givesWhatWasSent)
{
    const OpenRequest sent = {.number = 7, .leftAlone = {1, 0x100000002}, .paths = {"/a \xFC.jpg"}};
    const std::optional<OpenRequest> request = openRequestIn(messageOf(sent));
    ASSERT_TRUE(request);
    EXPECT_EQ(request->number, 7u);
    EXPECT_EQ(request->leftAlone, sent.leftAlone);
    EXPECT_EQ(request->paths, sent.paths);
}

TEST(openRequestIn, refusesWhatIsMalformed)
{
    const std::vector<std::uint8_t> whole =
        messageOf(OpenRequest{.number = 7, .leftAlone = {1, 2}, .paths = {"/"}});
    for (std::size_t size = 0; size < whole.size(); size++) {
        EXPECT_FALSE(openRequestIn(std::span(whole).first(size))) << size;
    }
    EXPECT_TRUE(openRequestIn(messageOf(OpenRequest{.paths = {std::string(kMaxOpenPath, 'a')}})));
    EXPECT_FALSE(
        openRequestIn(messageOf(OpenRequest{.paths = {std::string(kMaxOpenPath + 1, 'a')}})));
    EXPECT_FALSE(openRequestIn(messageOf(
        OpenRequest{.leftAlone = std::vector<std::uint64_t>(kMaxLeftAlone + 1), .paths = {"/"}})));
}

TEST(openRequestIn, takesAsManyPathsAsTheTaskHas)
{
    const std::vector<std::string> two = {"/a", "/b"};
    const auto facts = openRequestIn(messageOf(OpenRequest{.task = OpenTask::facts, .paths = two}));
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->paths, two);
    EXPECT_EQ(facts->task, OpenTask::facts);
    EXPECT_FALSE(openRequestIn(messageOf(OpenRequest{.task = OpenTask::names, .paths = two})));
    EXPECT_FALSE(openRequestIn(messageOf(OpenRequest{.task = OpenTask::facts})));
    EXPECT_FALSE(openRequestIn(messageOf(OpenRequest{
        .task = OpenTask::facts, .paths = std::vector<std::string>(kMaxOpenPaths + 1, "/")})));
    const auto sidecar =
        openRequestIn(messageOf(OpenRequest{.task = OpenTask::sidecar, .paths = {"/a"}}));
    ASSERT_TRUE(sidecar);
    EXPECT_EQ(sidecar->task, OpenTask::sidecar);
    EXPECT_TRUE(openRequestIn(messageOf(OpenRequest{.task = OpenTask::close})));
    EXPECT_FALSE(openRequestIn(messageOf(OpenRequest{.task = OpenTask::close, .paths = {"/"}})));
    for (const std::uint16_t task : {0, 9}) {
        EXPECT_FALSE(openRequestIn(
            messageOf(OpenRequest{.task = static_cast<OpenTask>(task), .paths = {"/"}})));
    }
    const auto names = openRequestIn(
        messageOf(OpenRequest{.task = OpenTask::names, .paths = {"/"}, .shown = "\u00e4.jpg"}));
    ASSERT_TRUE(names);
    EXPECT_EQ(names->shown, "\u00e4.jpg");
    EXPECT_FALSE(openRequestIn(messageOf(OpenRequest{
        .task = OpenTask::names, .paths = {"/"}, .shown = std::string(kMaxShownName + 1, 'a')})));
}

TEST(openReplyIn, givesWhatWasSent)
{
    FileAttributes undated = someItem();
    undated.created.reset();
    const OpenReply rows[] = {
        {.number = 1, .event = OpenEvent::entering, .device = 0x800000001},
        {.number = 2, .event = OpenEvent::leftAlone, .device = 5},
        {.number = 3, .event = OpenEvent::looked, .item = someItem(), .isOpen = true},
        {.number = 4, .event = OpenEvent::looked, .error = EACCES, .item = undated},
        {.number = 5, .event = OpenEvent::looked, .error = ENOENT},
        {.number = 6, .event = OpenEvent::opened},
        {.number = 7,
         .event = OpenEvent::facts,
         .facts = {{true, true, true, 0x800013, 0x9e7e}, {true, true, false, 5, 6}, {}}},
        {.number = 8, .event = OpenEvent::names, .names = {"a", "\xE4"}, .isLast = false},
        {.number = 9, .event = OpenEvent::names},
        {.number = 10, .event = OpenEvent::count, .count = {7, 8}},
        {.number = 11, .event = OpenEvent::saved, .error = ENOSPC},
        {.number = 12, .event = OpenEvent::keeps, .device = 0x800000001},
        {.number = 0, .event = OpenEvent::released, .device = 7},
        {.number = 13, .event = OpenEvent::closed},
    };
    for (const OpenReply& sent : rows) {
        const std::optional<OpenReply> reply = openReplyIn(messageOf(sent));
        ASSERT_TRUE(reply) << sent.number;
        EXPECT_EQ(reply->number, sent.number);
        EXPECT_EQ(reply->event, sent.event);
        EXPECT_EQ(reply->device, sent.device);
        EXPECT_EQ(reply->error, sent.error);
        EXPECT_EQ(reply->item, sent.item);
        EXPECT_EQ(reply->isOpen, sent.isOpen);
        EXPECT_EQ(reply->facts, sent.facts);
        EXPECT_EQ(reply->names, sent.names);
        EXPECT_EQ(reply->isLast, sent.isLast);
        EXPECT_EQ(reply->count, sent.count);
    }
}

TEST(openReplyIn, refusesWhatIsMalformed)
{
    std::vector<std::uint8_t> whole = messageOf(OpenReply{.event = OpenEvent::opened});
    for (std::size_t size = 0; size < whole.size(); size++) {
        EXPECT_FALSE(openReplyIn(std::span(whole).first(size))) << size;
    }
    whole.push_back(0);
    EXPECT_FALSE(openReplyIn(whole)) << "too long";
    EXPECT_FALSE(openReplyIn(messageOf(OpenReply{.event = OpenEvent{0}})));
    EXPECT_FALSE(openReplyIn(messageOf(OpenReply{.event = OpenEvent{12}})));
    EXPECT_FALSE(openReplyIn(messageOf(OpenReply{.event = OpenEvent::looked, .isOpen = true})))
        << "open, and there is nothing";
    FileAttributes folder = someItem();
    folder.isRegular = false;
    EXPECT_FALSE(openReplyIn(
        messageOf(OpenReply{.event = OpenEvent::looked, .item = folder, .isOpen = true})));
}

TEST(openReplyIn, refusesNamesAndFactsThatNoOpenerSends)
{
    const OpenReply rows[] = {
        {.event = OpenEvent::names, .names = {std::string(256, 'a')}},
        {.event = OpenEvent::names, .names = {""}},
        {.event = OpenEvent::names, .names = std::vector<std::string>(400, std::string(99, 'a'))},
        {.event = OpenEvent::facts, .facts = std::vector<ItemFacts>(kMaxOpenPaths + 1)},
    };
    for (const OpenReply& row : rows) EXPECT_FALSE(openReplyIn(messageOf(row)));
    std::vector<std::uint8_t> names =
        messageOf(OpenReply{.event = OpenEvent::names, .names = {"a"}});
    EXPECT_TRUE(openReplyIn(names));
    names.pop_back();
    EXPECT_FALSE(openReplyIn(names)) << "cut off";
}

TEST(receiveOpenMessage, endsWithOneThatIsTooLong)
{
    const Sockets sockets;
    const std::vector<std::uint8_t> longest(kMaxOpenMessage);
    EXPECT_TRUE(sendOpenMessage(sockets.near.get(), longest));
    EXPECT_EQ(receiveOpenMessage(sockets.far.get(), true).bytes.size(), kMaxOpenMessage);
    EXPECT_TRUE(
        sendOpenMessage(sockets.near.get(), std::vector<std::uint8_t>(kMaxOpenMessage + 1)));
    EXPECT_EQ(receiveOpenMessage(sockets.far.get(), true).outcome, OpenMessage::Outcome::gone);
}

TEST(receiveOpenMessage, bringsTheDescriptorAlong)
{
    const Sockets sockets;
    const std::uint8_t bytes[] = {1, 2, 3};
    EXPECT_EQ(receiveOpenMessage(sockets.far.get(), false).outcome, OpenMessage::Outcome::none);
    const DescriptorHolder file(openDescriptor("/dev/null", O_RDONLY));
    EXPECT_TRUE(sendOpenMessage(sockets.near.get(), bytes, file.get()));
    EXPECT_TRUE(sendOpenMessage(sockets.near.get(), bytes));

    const OpenMessage first = receiveOpenMessage(sockets.far.get(), true);
    EXPECT_EQ(first.outcome, OpenMessage::Outcome::received);
    EXPECT_EQ(first.bytes, std::vector<std::uint8_t>({1, 2, 3}));
    ASSERT_TRUE(first.descriptor);
    EXPECT_NE(fcntl(first.descriptor.get(), F_GETFD) & FD_CLOEXEC, 0);
    struct stat facts = {};
    EXPECT_EQ(fstat(first.descriptor.get(), &facts), 0);
    EXPECT_TRUE(S_ISCHR(facts.st_mode));
    EXPECT_FALSE(receiveOpenMessage(sockets.far.get(), true).descriptor);
}

// They would stay open for good: nobody knows of the second one.
TEST(receiveOpenMessage, leavesNoneOpenOfTwoDescriptors)
{
    const Sockets sockets;
    const DescriptorHolder file(openDescriptor("/dev/null", O_RDONLY));
    const int next = dup(file.get());
    (void)close(next);
    const int both[] = {file.get(), file.get()};
    const std::uint8_t byte = 1;
    ASSERT_EQ(sendWithDescriptors(sockets.near.get(), {&byte, 1}, both), 1);
    (void)receiveOpenMessage(sockets.far.get(), true);
    const int after = dup(file.get());
    EXPECT_EQ(after, next);
    (void)close(after);
}

TEST(receiveOpenMessage, noticesTheEnd)
{
    Sockets sockets;
    sockets.near = DescriptorHolder();
    EXPECT_EQ(receiveOpenMessage(sockets.far.get(), true).outcome, OpenMessage::Outcome::gone);
    const std::uint8_t byte = 1;
    EXPECT_FALSE(sendOpenMessage(sockets.far.get(), {&byte, 1}));
}

}  // namespace pinorama::tests
