// The file of the debug log: opening it, writing the parts of an entry, closing it. Most callers
// want the complete entries of debug_log.h.
//
// The log is "KVL Log.txt" in the user's desktop folder (docs/formats.md). Every part is one append
// at the current end of the file, so the parts of two processes may alternate but never mix. A part
// that cannot be written is left out silently. No state is kept between entries:
//
//     const ForkRef log = debugOpenLogfile();
//     if (log == 0) return;
//     debugWriteDateTime(log);
//     debugWriteCString(log, "started");
//     debugWriteReturn(log);
//     debugCloseLogFile(log);

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

// The current date, a tab, the time with seconds, a tab; in the format of the user's locale.
void debugWriteDateTime(ForkRef refNum);
