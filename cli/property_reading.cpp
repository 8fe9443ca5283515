#include "cli/property_reading.h"

#include "platform/pictures/reader_client.h"
#include "platform/pictures/sandboxed_properties.h"

#include <memory>

PropertyReading makePropertyReading()
{
    const auto client = std::make_shared<platform::ReaderClient>(platform::forkPropertyReader);
    return {
        .prepare = [client] { client->start(); },
        .read =
            [client](std::span<const int> descriptors) {
                return client->readProperties(descriptors);
            },
        .finish = [client] { client->dismiss(); },
    };
}
