#include "base/child_process.h"

#include "tests/support/other_process.h"

#include <gtest/gtest.h>

#include <string>

#include <unistd.h>

using namespace pinorama;

TEST(runAndWait, returnsTheStatusOrTheSignal)
{
    EXPECT_EQ(runAndWait({"true"}), 0);
    EXPECT_EQ(runAndWait({"sh", "-c", "exit 3"}), 3);
    EXPECT_EQ(runAndWait({"sh", "-c", "kill -9 $$"}), 128 + 9);
    EXPECT_EQ(runAndWait({"there-is-no-such-program"}), kCannotStart);
    EXPECT_EQ(runAndWait({}), kCannotStart);
}

TEST(runAndWait, handsOverTheInputAndTakesTheOutput)
{
    const std::string much = std::string(300'000, 'x') + std::string("\0\xff\n", 3);
    for (const std::string& input : {std::string(), std::string("a\nb"), much}) {
        std::string output = "from before";
        EXPECT_EQ(runAndWait({"cat"}, {}, {.input = input, .output = &output}), 0);
        EXPECT_TRUE(output == input) << input.size() << " bytes";
    }
}

TEST(runAndWait, takesWhatAProgramWroteBeforeItFailed)
{
    std::string output;
    EXPECT_EQ(runAndWait({"sh", "-c", "echo $A; exit 2"}, {"A=b"}, {.output = &output}), 2);
    EXPECT_EQ(output, "b\n");
    EXPECT_EQ(runAndWait({"there-is-no-such-program"}, {}, {.output = &output}), kCannotStart);
    EXPECT_EQ(output, "");
}

TEST(runAndWait, worksWithoutStandardStreams)
{
    const int status = test::inChild([] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
        std::string output;
        const int ended = runAndWait({"cat"}, {}, {.input = "text", .output = &output});
        return ended == 0 && output == "text" ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}
