// The file behind the debug log: opening it, the pieces that entries are put together from, closing
// it. Most callers want the whole entries of debug_log.h.
//
// The log is "KVL Log.txt" in the user's desktop folder (docs/formats.md). Nothing is kept between
// calls: whoever writes opens, writes and closes. Every piece is one append behind the end that the
// file has at that moment, so pieces of two processes may alternate but never mix. What cannot be
// written is left out without a word.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Opens the log for reading and writing. A missing desktop folder and a missing log are made; a new
// log begins with a banner that describes the machine.
// Returns the open fork, to be given to debugCloseLogFile, or 0 when the log cannot be opened.
[[nodiscard]] ForkRef debugOpenLogfile();

// Brings what was written to the disk and closes the log; 0 is ignored.
void debugCloseLogFile(ForkRef refNum);

// One byte: a tab (9) between fields, a carriage return (13) at the end of an entry.
void debugWriteTab(ForkRef refNum);
void debugWriteReturn(ForkRef refNum);

// The bytes up to the terminator; null writes nothing.
void debugWriteCString(ForkRef refNum, const char* text);

// `byteCount` bytes as they are.
void debugWriteBytes(ForkRef refNum, const void* bytes, std::uint32_t byteCount);

// The text in MacRoman when all of it can be, else in UTF-8, up to its first U+0000; nothing when
// it has a lone surrogate. Consumes the text, except an empty one: that stays the caller's.
void debugWriteAndReleaseCFString(ForkRef refNum, TovStringRef string);

// The decimal number and two blanks.
void debugWriteUInt64(ForkRef refNum, std::uint64_t value);
void debugWriteSInt32(ForkRef refNum, std::int32_t value);

// The date, a tab, the time with seconds, a tab; now, as the user's region writes them.
void debugWriteDateTime(ForkRef refNum);
