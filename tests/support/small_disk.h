// A disk that is soon full.

#pragma once

#include <string>

namespace test {

// Makes what is mounted from now on visible to this process and those that it starts alone. False
// when the machine does not allow it.
bool enterMountNamespace();

// Puts an empty disk of 64 kilobytes in place of a folder, for this process alone: it is gone with
// it, or after leaveSmallDisk. False when the machine does not allow it.
bool mountSmallDisk(const std::string& folder);

// Takes the disk away again.
void leaveSmallDisk(const std::string& folder);

// Writes into the file "filler" on the disk until not one byte more fits.
void fillDisk(const std::string& folder);

}  // namespace test
