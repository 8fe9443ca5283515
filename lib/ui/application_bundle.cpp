#include "lib/ui/application_bundle.h"

#include "base/memory_guard.h"
#include "base/resource_folder.h"
#include "base/user_folders.h"
#include "lib/objects/object_holder.h"
#include "lib/ui/string_tables.h"

void* iuRegisterApplicationBundle()
{
    return baseGuardMemory([&]() -> void* {
        const ObjectHolder<TovStringRef> identifier(platform::createString(kApplicationIdentifier));
        const std::string folder = platform::resourceFolder() + "/strings";
        if (iuRegisterBundle(identifier.get(), folder.c_str(), true) == nullptr) return nullptr;
        iuSetUserTableFolder((platform::configFolder() + "/pinorama").c_str());
        return initStringBundle(identifier.get());
    });
}
