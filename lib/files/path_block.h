// A path as the system calls want it, in a block of the library's own.

#pragma once

#include "base/block_holder.h"
#include "lib/objects/string.h"

// Owns the bytes of a path with a terminator after them. A path ends at its first zero byte.
class PathBlock {
public:
    // A null text gives an empty path.
    explicit PathBlock(const TovString* path);

    // False when memory ran out.
    explicit operator bool() const { return static_cast<bool>(block_); }
    const char* bytes() const { return static_cast<const char*>(block_.get()); }

private:
    pinorama::BlockHolder block_;
};
