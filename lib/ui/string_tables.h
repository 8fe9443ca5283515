// The words that the program builds its texts from, looked up by number or by key in the tables of
// a bundle: a folder with one folder per language, each with files of lines "key" = "value";.
//
// A key that the user's first language lacks is looked up in the next one: LANGUAGE=de_AT:fr means
// de_AT, de, fr and en in turn. The text of a key that no language has is the key itself, so that a
// missing text is visible on the screen. Tables are read when a key is first looked up in them,
// once; one that cannot be read or is larger than 256 KiB holds nothing. Every text that comes back
// is new and released by the caller.
//
//     iuRegisterBundle(identifier, "/usr/share/pinorama", true);
//     initStringBundle(identifier);
//     TovStringRef text = iuGetIndCFString(1001, 46);  // the text of "STR#1001:46"
//     TovStringRelease(&text);

#pragma once

#include <cstdint>
#include <string_view>

#include "lib/objects/string.h"

// The bundle that numbered lookups read; null until initStringBundle finds one.
extern void* gCFBundleRef;

// Makes a bundle known; nothing is read yet.
//
//   identifier      the bundle's name, e.g. "org.pinorama.Pinorama". Copied.
//   resourceFolder  the folder of the language folders, in the raw bytes of the system. Copied.
//   isMain          true: bare numbers and named tables are looked up here from now on.
//
// An identifier that is known already gets the new folder, and its tables are read anew.
// Returns the bundle, which lives as long as the process; null for a null identifier or folder, and
// if memory runs out.
void* iuRegisterBundle(TovStringRef identifier, const char* resourceFolder, bool isMain);

// Selects the bundle for numbered lookups.
//
// Returns it; null when no bundle of that identifier is known, and then none is selected.
void* initStringBundle(TovStringRef bundleIdentifier);

// The text of the key "STR#table:index" in the table Localizable of the selected bundle, a negative
// number with its minus sign. Null only if memory runs out.
[[nodiscard]] TovStringRef iuGetIndCFString(std::int16_t table, std::int16_t index);

// The text of the key "index" in the table Localizable of the main bundle, whichever bundle is
// selected. Null only if memory runs out.
[[nodiscard]] TovStringRef iuGetIndKVLCFString(std::int16_t index);

// True when the table Localizable of the main bundle has a text for the key ("11",
// "STR#1001:46") in one of the user's languages. Reads the tables that it searches, if necessary.
bool iuHasText(std::u16string_view key);

// The text of a key in a named table of the main bundle.
//
//   key           read only; null is found nowhere.
//   defaultValue  stands in for a missing key; when it is null or empty the key does.
//   tableName     null and "" mean Localizable.
//
// A table of the user's own comes first; see iuSetUserTableFolder.
// Null when there is neither a key nor a default value, and if memory runs out.
[[nodiscard]] TovStringRef iuCopyLocalizedString(TovStringRef key, TovStringRef defaultValue,
                                                 const char* tableName);

// Sets the folder of the user's own tables, `<folder>/<table>.strings`, which iuCopyLocalizedString
// searches before the main bundle's tables, in every language. Null means no such folder, as at the
// start. A malformed line in such a table is skipped and reported once on standard error.
// `folder` is in the raw bytes of the system and copied. If memory runs out nothing changes.
void iuSetUserTableFolder(const char* folder);

// The identifier of the main bundle as a new text; null if there is no main bundle.
[[nodiscard]] TovStringRef iuCopyMainBundleIdentifier();
