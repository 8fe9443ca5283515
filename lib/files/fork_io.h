// Opens files, reads and writes them. A transfer is complete or an error: fewer bytes than
// requested give -192, never a partial success. Offsets and counts are bytes from the start of the
// file; a ForkRef is the descriptor of an open file and always above 2.
//
// Files have a data fork only. Every status is 0 or a negative number of base/status.h.
//
//     ForkRef ref = 0;
//     if (const std::int32_t status = feOpenExistingFileRef(&file, &ref, 0, 1)) return status;
//     const ForkCloser closer(ref);
//     return feReadFromFile(ref, 0, sizeof header, &header);

#pragma once

#include <cstdint>

#include "base/descriptor.h"
#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Owns an open fork while it is being worked with, and closes it at the end of the scope.
using ForkCloser = pinorama::DescriptorHolder;

// The name of the data fork; empty, as it always is.
extern HFSUniStr255 forkName;

// Fills `forkName`. Opening works with and without. Returns 0.
std::int32_t feInitialize();

// Opens the file at `path` for reading and writing; a missing one is created with all permissions
// that the umask leaves. An existing file keeps its contents: writing over it replaces only as many
// bytes as are written.
//
//   outForkRef  receives the open fork, which the caller closes with feCloseFork; 0 on failure.
//
// Returns 0, -108 if memory runs out, -43 when the folder does not exist, or another status.
std::int32_t feCreateAndOpenTextFile(TovStringRef path, ForkRef* outForkRef);

// Opens an existing file.
//
//   outForkRef       receives the open fork, which the caller closes with feCloseFork; 0 on
//                    failure.
//   writePermission  exactly 1: read and write; any other value: read only.
//   dataFork         exactly 1; any other value means a resource fork, which no file has.
//
// Returns 0, -1 for a resource fork, -36 for a folder, or another status.
std::int32_t feOpenExistingFileRef(const FSRef* ref, ForkRef* outForkRef,
                                   std::uint8_t writePermission, std::uint8_t dataFork);

// Closes an open fork. Returns 0, or -51 for what is not open.
std::int32_t feCloseFork(ForkRef forkRef);

// Reads exactly `count` bytes at `offset`. Returns 0, -192 when the file ends before that, or
// another status.
std::int32_t feReadFromFile(ForkRef forkRef, std::int64_t offset, std::uint32_t count,
                            void* buffer);

// Writes `count` bytes at `offset`; the file grows when it has to and never shrinks. Returns 0,
// -192 when fewer bytes went out, or another status.
std::int32_t feWriteToFile(ForkRef forkRef, std::int64_t offset, std::uint32_t count,
                           const void* buffer);

// Appends `count` bytes at the end that the file has at that moment, wherever it was read or
// written before. Returns the statuses of feWriteToFile.
std::int32_t feAppendToFile(ForkRef forkRef, std::uint32_t count, const void* buffer);

// The length of an open file in bytes; 0 is stored on failure.
std::int32_t feGetEOF(ForkRef forkRef, std::int64_t* outSize);

// Cuts an open file to `size` bytes or fills it up with zero bytes. Returns 0, -50 for a negative
// size or a fork that is open for reading only, or another status.
std::int32_t feSetEOF(ForkRef forkRef, std::int64_t size);

// Copies `count` bytes from one open file into another, through a buffer of at most 16 MiB. A pass
// that cannot be read whole writes nothing; the passes before it stay written.
//
// Returns 0, -108, -192 for a short read or write, or another status.
std::int32_t feCopyFileData(ForkRef sourceFork, std::int64_t sourceOffset, std::uint64_t count,
                            ForkRef destFork, std::int64_t destOffset);
