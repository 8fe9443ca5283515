// The languages and formats that the user has chosen in the environment. Names are written as in
// the environment without the character set: "de_AT". C and POSIX mean English, and so does an
// empty environment. Whether the C library has the locale installed does not matter.

#pragma once

#include <string>
#include <vector>

namespace pinorama {

// The languages of texts, most wanted first; each is followed by its more general forms, and the
// last is always "en", which every table has. "de_AT.UTF-8" gives de_AT, de, en.
//
// The first of LANGUAGE (a list separated by colons), LC_ALL, LC_MESSAGES and LANG that is set and
// not empty decides. As in other programs, LANGUAGE is skipped if the locale itself is plain C or
// POSIX. Names that cannot be the name of a folder are left out.
std::vector<std::string> textLanguages();

// The locale of numbers, as ICU names it: LC_ALL, LC_NUMERIC, LANG; "en" for C and POSIX.
std::string numberLocale();

// The locale of dates: LC_ALL, LC_TIME, LANG.
std::string dateLocale();

}  // namespace pinorama
