#include "app/finder_sync.h"

#include <optional>

namespace {
std::optional<bool> gRegisteredDefault;
std::optional<bool> gStored;
}  // namespace

void appRegisterFinderSyncDefault()
{
    gRegisteredDefault = true;
}

bool appLoadFinderSync()
{
    return gStored.value_or(gRegisteredDefault.value_or(false));
}

void appStoreFinderSync(bool isOn)
{
    gStored = isOn;
}
