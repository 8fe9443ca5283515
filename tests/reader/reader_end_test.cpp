// How the reader of a program ends, and what is given up with it.

#include "tests/reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace {
using namespace platform;
using test::expectGoodPicture;
using test::realReader;
using Pictures = test::ReaderPictures;

TEST(ReaderClient, mayEndWithTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // nothing of this process is there yet
    const auto loseAReader = [] {
        static ReaderClient client(realReader());
        client.start();
        kill(client.processID(), SIGKILL);
        const Pictures pictures;
        expectGoodPicture(client, pictures);
    };
    EXPECT_EXIT(
        {
            loseAReader();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}
}  // namespace
