// References to files and folders: made from paths, names and addresses, and turned back into them.
// A reference is an absolute path that named an existing item when it was made; it is not followed
// when the item moves.
//
// A reference from a path or an address names what a symbolic link at its end points to, so reading
// follows links. A reference from a folder and a name names the link itself, and so do the calls
// that remove and rename.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Makes the reference of the item at a path. A relative path counts from the working folder;
// slashes at the end are dropped.
//
//   outRef  receives the reference; untouched on failure.
//
// Returns 0, -108 if memory runs out, -43 if there is no such item, or another status.
// On the way of every picture that is read: one lstat when the path is absolute and no link.
std::int32_t feMakeFSRefFromPath(TovStringRef path, FSRef* outRef);

// The same from the path's bytes, for callers that have them.
std::int32_t feMakeFSRefFromBytes(const char* path, FSRef* outRef);

// Makes the reference of the child `name` of a folder. Returns 0, -43 if there is none, -37 for a
// name that no item can have ("", ".", ".." or with a slash), or another status; `outRef` is
// untouched on failure.
std::int32_t feMakeFSRefFromParent(const FSRef* parent, TovStringRef name, FSRef* outRef);

// Makes the reference of the item that a file URL names ("file:///home/a%20b"). Returns 0, or -50
// for every address that cannot be turned into a reference, one of a missing item included;
// `outRef` is untouched on failure. RFC 8089.
std::int32_t feGetFSRefFromCFURL(TovStringRef fileURL, FSRef* outRef);

// Makes the reference of the folder that holds the item. Returns 0, -43 for the root folder and for
// an item that is gone, or another status; `outParent` is untouched on failure.
std::int32_t feGetParentRef(const FSRef* ref, FSRef* outParent);

// The path of an existing item as a new text.
//
//   pathStyle  0 is POSIX; no other style exists here.
//
// Null for an item that is gone, another style, and if memory runs out.
[[nodiscard]] TovStringRef feGetPathFromFSRef(const FSRef* ref, std::int32_t pathStyle);

// The name of an existing item as a new text; "/" for the root folder. Null for an item that is
// gone and if memory runs out.
[[nodiscard]] TovStringRef feGetItemNameFromRef(const FSRef* ref);

// True when the folder holds an item of that name, be it a link that leads nowhere.
bool feItemExists(const FSRef* parent, TovStringRef name);
