// A box for an open file: a socket in which the descriptor waits to be taken out.
//
// A file system in user space is told of every descriptor of its files that a process closes, and
// keeps that process until it has replied; also when the process never used the descriptor, and
// when others have the file open. A box is no such file. Whoever passes files on, and must not wait
// for a disk, has them in boxes: closing one tells nobody, whatever is in it.
//
// Other file systems, such as those of file servers, keep whoever gives a file up last, out of a
// box as well. Whoever made the box spares the others that if it keeps the file itself until its
// other end says that nobody has the box any more.

#pragma once

#include <string>

#include "base/descriptor.h"

namespace pinorama {

// Puts an open file into a box, together with its path, which may be empty. The descriptor stays
// the caller's. None with errno set on failure.
//
//   outOtherEnd  hangs up (POLLHUP) when nobody has the box any more; null if nobody wants to know.
DescriptorHolder boxDescriptor(int descriptor, const std::string& path,
                               DescriptorHolder* outOtherEnd = nullptr);

// Takes a descriptor of the file out of its box, as often as it is wanted: the file is open once,
// and has one position. None if `box` is not a box, above all if it is a file itself.
DescriptorHolder unboxDescriptor(int box);

// The path that is in a box. Empty if none is, and if `box` is not a box.
std::string pathInBox(int box);

}  // namespace pinorama
