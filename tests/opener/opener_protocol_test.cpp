#include "opener/opener_protocol.h"

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
    const OpenRequest sent = {.number = 7, .leftAlone = {1, 0x100000002}, .path = "/a \xFC.jpg"};
    const std::optional<OpenRequest> request = openRequestIn(messageOf(sent));
    ASSERT_TRUE(request);
    EXPECT_EQ(request->number, 7u);
    EXPECT_EQ(request->leftAlone, sent.leftAlone);
    EXPECT_EQ(request->path, sent.path);
}

TEST(openRequestIn, refusesWhatIsMalformed)
{
    const std::vector<std::uint8_t> whole =
        messageOf(OpenRequest{.number = 7, .leftAlone = {1, 2}, .path = "/"});
    for (std::size_t size = 0; size < whole.size(); size++) {
        EXPECT_FALSE(openRequestIn(std::span(whole).first(size))) << size;
    }
    EXPECT_TRUE(openRequestIn(messageOf(OpenRequest{.path = std::string(kMaxOpenPath, 'a')})));
    EXPECT_FALSE(openRequestIn(messageOf(OpenRequest{.path = std::string(kMaxOpenPath + 1, 'a')})));
    EXPECT_FALSE(openRequestIn(messageOf(
        OpenRequest{.leftAlone = std::vector<std::uint64_t>(kMaxLeftAlone + 1), .path = "/"})));
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
    EXPECT_FALSE(openReplyIn(messageOf(OpenReply{.event = OpenEvent{5}})));
    EXPECT_FALSE(openReplyIn(messageOf(OpenReply{.event = OpenEvent::looked, .isOpen = true})))
        << "open, and there is nothing";
    FileAttributes folder = someItem();
    folder.isRegular = false;
    EXPECT_FALSE(openReplyIn(
        messageOf(OpenReply{.event = OpenEvent::looked, .item = folder, .isOpen = true})));
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

TEST(receiveOpenMessage, noticesTheEnd)
{
    Sockets sockets;
    sockets.near = DescriptorHolder();
    EXPECT_EQ(receiveOpenMessage(sockets.far.get(), true).outcome, OpenMessage::Outcome::gone);
    const std::uint8_t byte = 1;
    EXPECT_FALSE(sendOpenMessage(sockets.far.get(), {&byte, 1}));
}

}  // namespace pinorama::tests
