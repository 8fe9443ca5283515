// Removing files and folders: into the Trash, from which the user can take them back, or for good.
// Symbolic links are removed themselves, never what they lead to.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"

// Deletes the item at a path in UTF-8 for good; a folder only when it is empty.
//
// Returns 0, or the status of a path that names no item. If the item cannot be deleted, the result
// is 0 as well.
std::int32_t feDeleteFileAtPath(const char* utf8Path);

// Moves an item into the Trash of its volume under its name, with a number added when the name is
// taken there. Only an item that no Trash can be made for is deleted for good, a folder only when
// it is empty; an item that cannot be moved for another reason, such as a full disk, stays.
//
// Returns 0, or the status of the move or the delete.
std::int32_t feMoveFileToTrash(const FSRef* ref);

// The same for a folder. One whose name is taken in the Trash goes there as "Skallion Folder" with
// the tick count and a random number.
std::int32_t feMoveFolderToTrash(const FSRef* ref);
