// The debug log: whole entries, each of which opens the log, appends itself, brings the log to the
// disk and closes it, so that nothing is lost when the process dies. Meant for rare diagnostics,
// not for volume. debug_log_file.h has the pieces, docs/formats.md the layout.
//
// Every function does nothing when the log cannot be opened, and returns 0 in any case. Null texts
// count as empty ones. Texts given as bytes are written as they are.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// The bytes of a Pascal string, and nothing after them.
std::int16_t debugAddToLog(const std::uint8_t* pString);

// The decimal number and two blanks.
std::int16_t debugAddLong(std::int32_t value);
std::int16_t debugAddLongLong(std::uint64_t value);

// The number in hexadecimal or octal digits and a line feed.
std::int16_t debugAddLongHex(std::uint32_t value);
std::int16_t debugAddUInt16Hex(std::uint16_t value);
std::int16_t debugAddUInt16Octal(std::uint16_t value);

// The text that printf would make, cut at 2047 bytes, and a carriage return. Numbers have a decimal
// point in every locale.
std::int16_t debugFormat(const char* format, ...);

// Date and time, the text, a carriage return. The text is written and consumed as by
// debugWriteAndReleaseCFString, so an empty one stays the caller's; so does every text when the log
// cannot be opened.
std::int16_t debugLogCFString(TovStringRef string);

// Date and time, then text, tab, number, tab, code, line feed.
std::int16_t debugAssertFailed(std::int16_t code, const char* text, std::int32_t number);

// Date and time, text and tab unless the text is null, number with two blanks and tab unless it is
// 0, the path of the file, a carriage return. A file that is gone and a path of more than 1024
// bytes give no path.
std::int16_t debugLogFilePath(const FSRef* ref, const char* text, std::int32_t number);

// The entry above, then six numbers as entries of their own: node flags, user privileges, owner and
// group in hexadecimal, the user's access in hexadecimal, the mode in octal. They are 0 when the
// file cannot be examined. lib/files/catalogue_facts.h defines them.
std::int16_t debugLogFileInformation(const FSRef* ref, const char* text, std::int32_t number);

// Date and time, then label, tab, number with two blanks, tab, detail, carriage return. Mind the
// order of the arguments.
std::int16_t debugProtocoll(const char* detail, const char* label, std::int32_t number);

// The same with `byteCount` bytes as detail.
std::int16_t debugProtocolLongString(const char* bytes, std::uint32_t byteCount, const char* label,
                                     std::int32_t number);

// The same with the bytes of a Pascal string as detail.
std::int16_t debugProtocollPString(const std::uint8_t* pString, const char* label,
                                   std::int32_t number);
