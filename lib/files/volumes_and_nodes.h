// The older way to name files: a volume, the node number of a folder on it, and a name. Volumes are
// the system's device numbers, nodes its inode numbers, names Pascal strings in MacRoman; an empty
// name stands for the folder itself.
//
// A node is turned back into a path with the help of what this process has met: the nodes that the
// functions here gave out, the roots of volumes, and what lies near the working folder, the home
// folder and the folder of temporary files. A node that is found in none of these places gives -43.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Fills a specification without asking the system; a name of more than 63 bytes is cut, a null one
// is empty.
void feMakeFastFSSpec(std::uint64_t volume, std::uint64_t parentNode, const std::uint8_t* pName,
                      FSSpec* outSpec);

// The same, and reports whether the item exists. The specification is filled in any case, so that
// the item can be created with it.
//
// Returns 0, -43 when the folder or the item cannot be found, -37 for a name that no item can have,
// or another status.
std::int32_t feMakeFSSpec(std::uint64_t volume, std::uint64_t parentNode, const std::uint8_t* pName,
                          FSSpec* outSpec);

// Makes the specification of an existing item; untouched on failure.
//
// Returns 0, -37 for a name that has no MacRoman form or is longer than 63 bytes, or another
// status.
std::int32_t feMakeFSSpecFromFSRef(const FSRef* ref, FSSpec* outSpec);

// Makes the reference of a node; untouched on failure. Returns 0, -43 when it cannot be found, or
// -108 if memory runs out.
std::int32_t feMakeFSRefFromNodeID(std::uint64_t volume, std::uint64_t node, FSRef* outRef);

// The node number of a folder; untouched on failure. Returns 0, -120 for what is no folder, -43
// when it cannot be found, or another status.
std::int32_t feGetDirID(const FSSpec* spec, std::uint64_t* outNode);

// The volume of an item; 0 for an item that is gone.
std::uint64_t feGetVolumeRefFromFSRef(const FSRef* ref);

// The volume and the node of the item at a path; untouched on failure. Returns as
// feMakeFSRefFromPath does.
std::int32_t feGetVolRefAndDirIDFromPath(TovStringRef path, std::uint64_t* outVolume,
                                         std::uint64_t* outNode);

// The path of a folder as a new text. Null when the node cannot be found or is no folder, and when
// memory runs out. Paths have one style here, POSIX.
[[nodiscard]] TovStringRef feGetPathCFString(std::uint64_t volume, std::uint64_t node);

// The number of mounted volumes on the disk that the item is on, its own included; 0 is stored on
// failure. Returns 0, the status of an item that is gone, or -108 if memory runs out.
std::int32_t feNumberOfVolumesOnDisk(const FSRef* ref, std::uint32_t* outCount);

// Opens an existing file; arguments and statuses are those of feOpenExistingFileRef.
std::int32_t feOpenExistingFile(const FSSpec* spec, ForkRef* outForkRef,
                                std::uint8_t writePermission, std::uint8_t dataFork);

// Makes a file; one that exists already is fine and keeps its contents. The codes of type and
// creator have no place in the file and are not kept.
//
//   openDataFork     nonzero: the file is opened for reading and writing.
//   addResourceFork  no file has a resource fork; without effect.
//   outForkRef       receives the open fork, which the caller closes with feCloseFork, else 0.
//
// Returns 0 or another status.
std::int32_t feCreateNewFile(const FSSpec* spec, std::uint32_t type, std::uint32_t creator,
                             std::uint8_t openDataFork, std::uint8_t addResourceFork,
                             ForkRef* outForkRef);

// Without effect, as no file has a resource fork that version resources could be copied to.
//
// Returns 0, or the status of a file that is not there.
std::int32_t feAddVersRessource(const FSSpec* spec);

// Moves the item to the Trash as feMoveFileToTrash does, with its statuses.
std::int32_t feDeleteFile(const FSSpec* spec);
