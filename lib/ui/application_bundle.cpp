#include "lib/ui/application_bundle.h"

#include "base/memory_guard.h"
#include "base/resource_folder.h"
#include "base/user_folders.h"
#include "lib/objects/object_holder.h"
#include "lib/ui/string_tables.h"

using namespace pinorama;

void* iuRegisterApplicationBundle()
{
    return baseGuardMemory([&]() -> void* {
        const ObjectHolder<TovStringRef> identifier(createString(kApplicationIdentifier));
        const std::string folder = resourceFolder() + "/strings";
        if (iuRegisterBundle(identifier.get(), folder.c_str(), true) == nullptr) return nullptr;
        iuSetUserTableFolder((configFolder() + "/pinorama").c_str());
        return initStringBundle(identifier.get());
    });
}
