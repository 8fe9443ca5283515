// The preference file of the application that runs.

#pragma once

#include "lib/prefs/preference_file.h"

// The file of the main bundle's application, looked up anew with every call.
pinorama::PreferenceFile prefApplicationFile();

// The text of a stored value, a number as its decimal digits; nothing for values of other kinds.
std::optional<std::u16string> prefTextOf(const pinorama::PreferenceValue& value);
