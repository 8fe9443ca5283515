#include "cli/property_reading.h"

#include "reader/reader_client.h"
#include "reader/sandboxed_properties.h"

#include <chrono>
#include <memory>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// Nobody sits before a window here, so disks have more time than there.
constexpr ReaderPatience kPatience = {.processor = 2s, .silence = 30s, .whole = 60s};
}  // namespace

PropertyReading makePropertyReading()
{
    ReaderLimits limits;
    limits.properties = kPatience;
    const auto client = std::make_shared<ReaderClient>(forkPropertyReader, limits);
    return {
        .prepare = [client] { client->start(); },
        .read = [client](std::span<const int> descriptors,
                         int alarm) { return client->readProperties(descriptors, alarm); },
        .finish = [client] { client->dismiss(); },
    };
}

}  // namespace pinorama
