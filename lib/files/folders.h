// Folders: making items in them, renaming, looking through them, and the well-known ones.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Makes a folder with all permissions that the umask leaves.
//
//   outRef  receives its reference, may be null; untouched on failure.
//
// Returns 0, -48 when an item of that name exists, -37 for a name that no item can have, or another
// status.
std::int32_t feCreateFolder(const FSRef* parent, TovStringRef name, FSRef* outRef);

// Makes a file and opens it for reading and writing. The codes of type and creator have no place in
// the file and are not kept.
//
//   outRef      receives the file's reference, may be null; untouched on failure.
//   outForkRef  receives the open fork, which the caller closes with feCloseFork; 0 on failure.
//
// Returns 0, -48 when an item of that name exists, -37 for a name that no item can have, or another
// status.
std::int32_t feCreateAndOpenDataFileUnicode(const FSRef* parent, TovStringRef name,
                                            std::uint32_t type, std::uint32_t creator,
                                            FSRef* outRef, ForkRef* outForkRef);

// Gives an item, folder or not, another name in its folder. A link is renamed, not what it leads
// to. The name that it has already is fine.
//
//   outRef  receives the new reference, may be null or `ref` itself; untouched on failure.
//
// Returns 0, -48 when another item has the name (both stay as they are), -37 for a name that no
// item can have, or another status.
std::int32_t feRenameFolder(const FSRef* ref, TovStringRef name, FSRef* outRef);

// Finds an item of a folder, file or folder, whose name ends with `suffix`, whatever its case. Of
// several the first one in the order of the names' bytes is taken.
//
// TovStringEndsWith looks at the first occurrence only, so "a.jpg.jpg" does not end with ".jpg".
// Intended; pinned by feGetFirstFileInFolderWithSuffix.looksAtTheFirstOccurrenceOnly.
//
// Returns 0, or -1 if there is no such item and if memory runs out; `outRef` is untouched then.
std::int32_t feGetFirstFileInFolderWithSuffix(const FSRef* folder, TovStringRef suffix,
                                              FSRef* outRef);

// The sum of the sizes of a folder's direct items in bytes. Folders in it add nothing, links their
// own size. What cannot be examined is left out. 0 if memory runs out.
std::uint64_t feGetFolderSize(const FSRef* folder);

// The path of a well-known folder as a new text. Only number 13 is known: the user's desktop
// folder, which is made when missing. Null for every other number, for a folder that cannot be
// made, and if memory runs out.
[[nodiscard]] TovStringRef feGetPathOfSpecialFolder(std::int32_t folderNumber);
