#include "lib/ui/application_bundle.h"

#include "lib/base/memory_guard.h"
#include "lib/ui/string_tables.h"
#include "platform/files/resource_folder.h"
#include "platform/files/user_folders.h"
#include "platform/objects/object_holder.h"

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
