// Which languages and formats the user wants, as the environment tells. Names are written as in the
// environment without the character set: "de_AT". C and POSIX mean English; so does no answer.
// Whether the C library has the locale installed does not matter.

#pragma once

#include <string>
#include <vector>

namespace pinorama {

// The languages of texts, most wanted first; each is followed by its more general forms, and the
// last is always "en", which every table has. "de_AT.UTF-8" gives de_AT, de, en.
//
// Asked are LANGUAGE (a list separated by colons), LC_ALL, LC_MESSAGES, LANG; the first that is set
// and not empty answers. As with other programs LANGUAGE is passed over when the locale itself is
// plainly C or POSIX. Names that could not be a folder's name are left out.
std::vector<std::string> textLanguages();

// The locale of numbers, as ICU names it: LC_ALL, LC_NUMERIC, LANG; "en" for C and POSIX.
std::string numberLocale();

// The locale of dates: LC_ALL, LC_TIME, LANG.
std::string dateLocale();

}  // namespace pinorama
