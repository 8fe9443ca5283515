// Files in boxes, which are passed on without being closed.

#include "base/descriptor_box.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

using namespace pinorama;

namespace {
DescriptorHolder opened(const std::string& path)
{
    return DescriptorHolder(openDescriptor(path.c_str(), O_RDONLY));
}

std::string textOf(const DescriptorHolder& file)
{
    char bytes[64] = {};
    const auto count = readAt(file.get(), 0, bytes, sizeof bytes);
    return {bytes, count > 0 ? static_cast<std::size_t>(count) : 0};
}
}  // namespace

TEST(unboxDescriptor, givesTheFileAsOftenAsItIsWanted)
{
    const test::TemporaryFolder folder;
    DescriptorHolder file = opened(folder.write("a.jpg", "twelve bytes"));
    const DescriptorHolder box = boxDescriptor(file.get(), "/a/b.jpg");
    ASSERT_TRUE(box);
    file = DescriptorHolder();
    for (int again = 0; again < 3; again++) {
        const DescriptorHolder unboxed = unboxDescriptor(box.get());
        ASSERT_TRUE(unboxed);
        EXPECT_EQ(textOf(unboxed), "twelve bytes");
        EXPECT_EQ(fcntl(unboxed.get(), F_GETFD), FD_CLOEXEC);
    }
}

TEST(unboxDescriptor, givesNothingThatIsNotInABox)
{
    const test::TemporaryFolder folder;
    const DescriptorHolder file = opened(folder.write("a.jpg", "x"));
    EXPECT_FALSE(unboxDescriptor(file.get()));
    EXPECT_FALSE(unboxDescriptor(-1));
    int ends[2] = {-1, -1};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends), 0);
    const DescriptorHolder near(ends[0]);
    const DescriptorHolder far(ends[1]);
    EXPECT_FALSE(unboxDescriptor(near.get())) << "nothing is in it, and nobody waits";
    ASSERT_EQ(send(far.get(), "x", 1, 0), 1);
    EXPECT_FALSE(unboxDescriptor(near.get())) << "no file came along";
}

TEST(pathInBox, isThatWhichCameWithTheFile)
{
    const test::TemporaryFolder folder;
    const DescriptorHolder file = opened(folder.write("a.jpg", "x"));
    for (const std::string& path : {std::string("/a/b \xE4.jpg"), std::string(4095, 'a')}) {
        const DescriptorHolder box = boxDescriptor(file.get(), path);
        EXPECT_EQ(pathInBox(box.get()), path);
        EXPECT_EQ(pathInBox(box.get()), path) << "as often as it is wanted";
        EXPECT_EQ(textOf(unboxDescriptor(box.get())), "x");
    }
    EXPECT_EQ(pathInBox(boxDescriptor(file.get(), "").get()), "");
    EXPECT_EQ(pathInBox(file.get()), "");
    EXPECT_EQ(pathInBox(-1), "");
}

TEST(boxDescriptor, tellsWhenNobodyHasTheBoxAnyMore)
{
    const test::TemporaryFolder folder;
    const DescriptorHolder file = opened(folder.write("a.jpg", "x"));
    DescriptorHolder otherEnd;
    DescriptorHolder box = boxDescriptor(file.get(), "/a/b.jpg", &otherEnd);
    ASSERT_TRUE(box);
    ASSERT_TRUE(otherEnd);
    EXPECT_EQ(textOf(unboxDescriptor(box.get())), "x");
    EXPECT_EQ(pathInBox(box.get()), "/a/b.jpg");
    const auto hasHungUp = [&otherEnd] {
        pollfd state = {otherEnd.get(), 0, 0};
        return poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
    };
    DescriptorHolder copy(fcntl(box.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    EXPECT_FALSE(hasHungUp());
    box = DescriptorHolder();
    EXPECT_FALSE(hasHungUp()) << "a copy of it is left";
    copy = DescriptorHolder();
    EXPECT_TRUE(hasHungUp());
}

TEST(boxDescriptor, takesNothingThatIsNotOpen)
{
    EXPECT_FALSE(boxDescriptor(-1, "/a"));
}

TEST(boxDescriptor, keepsTheFileOpenUntilItIsClosed)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    const DescriptorHolder reading(ends[0]);
    DescriptorHolder writing(ends[1]);
    DescriptorHolder box = boxDescriptor(writing.get(), "");
    ASSERT_TRUE(box);
    writing = DescriptorHolder();
    char byte = 0;
    EXPECT_EQ(read(reading.get(), &byte, 1), -1) << "somebody may write";
    box = DescriptorHolder();
    EXPECT_EQ(read(reading.get(), &byte, 1), 0) << "nobody can write";
}
