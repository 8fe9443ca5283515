// Landlock, the kernel's own rule about files, as a second lock beside the filter of system calls.

#pragma once

namespace pinorama {

// Forbids this process and those that it forks, for good, every access to files by name, every
// connection, and signals and abstract sockets of other programs, as far as this kernel's Landlock
// knows of them. Needs no_new_privs.
//
// Returns the version of Landlock's interface that is in force, 0 if there is none: before Linux
// 5.13, or where it is switched off.
int forbidFiles();

}  // namespace pinorama
