// The turns of an event loop for a client of openers, in a test without one.

#pragma once

#include "opener/opener_client.h"

#include <poll.h>

#include <chrono>
#include <functional>

namespace test {

// Has the client go on as an event loop does until `isTrue`. False if that takes half a minute,
// which is no measure of speed: a busy machine may stall.
inline bool goesOnUntil(pinorama::OpenerClient* client, const std::function<bool()>& isTrue)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(30);
    while (!isTrue() && Clock::now() < end) {
        pollfd state = {client->descriptor(), POLLIN, 0};
        (void)poll(&state, 1, 10);
        client->advance();
    }
    return isTrue();
}

}  // namespace test
