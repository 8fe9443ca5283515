// Signals to the reader of a client.

#pragma once

#include "reader/reader_client.h"

#include <gtest/gtest.h>

#include <csignal>

namespace test {

// Sends it to the reader's process. Without one the test fails: kill takes the number that a client
// without a reader has for all processes of the user.
inline void signalReader(const pinorama::ReaderClient& client, int signal)
{
    ASSERT_GT(client.processID(), 0) << "there is no reader";
    EXPECT_EQ(kill(client.processID(), signal), 0);
}

}  // namespace test
