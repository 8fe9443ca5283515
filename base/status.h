// The status numbers that the library's functions return. 0 is success; negative numbers come from
// the system layer and pass through every caller unchanged; 22001 to 22003 belong to the
// containers.

#pragma once

#include <cstdint>

constexpr std::int32_t kErrNone = 0;
constexpr std::int32_t kErrNothingUsable = -1;  // nothing found, or nothing that can be used
constexpr std::int32_t kErrDiskFull = -34;      // no space left on the volume
constexpr std::int32_t kErrInputOutput =
    -36;                                   // any failure of the system without a number of its own
constexpr std::int32_t kErrBadName = -37;  // a name that is too long or not allowed
constexpr std::int32_t kErrTooManyOpen = -42;     // no descriptor left
constexpr std::int32_t kErrNotFound = -43;        // no such file or folder
constexpr std::int32_t kErrWriteProtected = -44;  // the volume is read-only
constexpr std::int32_t kErrBusy = -47;            // in use, or a folder that is not empty
constexpr std::int32_t kErrExists = -48;          // an item of that name exists already
constexpr std::int32_t kErrBadArgument = -50;     // an argument that makes no sense
constexpr std::int32_t kErrNotOpen = -51;         // not an open file
constexpr std::int32_t kErrNoPermission = -54;    // access denied
constexpr std::int32_t kErrCannotCreate = -68;    // a file that cannot be created
constexpr std::int32_t kErrNoMemory = -108;       // out of memory
constexpr std::int32_t kErrNotAFolder = -120;     // a part of the path is no folder
constexpr std::int32_t kErrShortTransfer = -192;  // fewer bytes were read or written than asked for

constexpr std::int16_t kMemErrNoMemory = 22001;  // an allocation or reallocation failed
constexpr std::int16_t kMemErrNotFound =
    22002;  // index out of range, no data, or an ID that is not there
constexpr std::int16_t kMemErrBadPosition = 22003;  // insertion beyond the end, or a damaged layout
