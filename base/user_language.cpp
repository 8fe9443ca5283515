#include "base/user_language.h"

#include <cstdlib>

namespace pinorama {

std::string userLanguage()
{
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value == nullptr || *value == '\0') continue;
        const std::string languages = value;
        return languages.substr(0, languages.find(':'));
    }
    return {};
}

}  // namespace pinorama
