// The language of the user, for metadata that comes in several.

#pragma once

#include <string>

namespace pinorama {

// The user's language as the environment names it, such as "de" or "de_CH.UTF-8": the first one of
// LANGUAGE, else LC_ALL, LC_MESSAGES or LANG. Empty when there is none.
std::string userLanguage();

}  // namespace pinorama
