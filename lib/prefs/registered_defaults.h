// Values for settings that the user never changed. They are a layer of their own below the stored
// preferences: kept in memory, never written, and not seen by the pref functions.

#pragma once

#include <optional>
#include <string>
#include <string_view>

// Registers the value of a key for this run of the program; a later one replaces it.
void prefRegisterDefault(std::u16string_view key, std::u16string_view value);

// The stored value of a key as a text (a number as its decimal digits), else the registered one,
// else nothing.
std::optional<std::u16string> prefValueOrDefault(std::u16string_view key);
