// What is known about an item: its kind, its size, its dates. Symbolic links are followed.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"

// The date of the last change of the contents: the low 32 bits of the whole seconds since
// 1904-01-01 00:00 UTC. 0 for an item that cannot be examined.
std::uint32_t feGetFileModificationDate(const FSRef* ref);

// The four-character codes of type and creator. No file here carries any, so both are 0.
//
// Returns 0, or the status of an item that cannot be examined; the codes are 0 then, too.
std::int32_t feGetFileTypeAndCreator(const FSRef* ref, std::uint32_t* outType,
                                     std::uint32_t* outCreator);

// The size of a file's data in bytes; 0 for a folder and for an item that cannot be examined.
std::int64_t feGetFileDataSize(const FSRef* ref);

// True for a folder.
bool feIsFolder(const FSRef* ref);

// Always false: files carry no icons of their own.
bool feHasCustomIcon(const FSRef* ref);
