// A disk that is full soon.

#pragma once

#include <string>

namespace test {

// Makes later mounts visible only to this process and those that it starts. False if the machine
// does not allow it.
bool enterMountNamespace();

// Mounts an empty disk of 64 kilobytes over a folder, for this process only, until it ends or calls
// leaveSmallDisk. False if the machine does not allow it.
bool mountSmallDisk(const std::string& folder);

// Unmounts the disk.
void leaveSmallDisk(const std::string& folder);

// Writes to the file "filler" on the disk until it is full to the last byte.
void fillDisk(const std::string& folder);

}  // namespace test
