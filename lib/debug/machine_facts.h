// What the debug log says about the machine that it was written on.

#pragma once

#include <cstdint>
#include <string_view>

namespace pinorama {

struct MachineFacts {
    std::int32_t systemMajor;  // the release of the running kernel: 6.1.27-amd64 is 6, 1, 27
    std::int32_t systemMinor;
    std::int32_t systemFix;
    std::int32_t memory;      // MiB of physical memory
    std::int32_t processors;  // those that are switched on
    std::int32_t clock;       // MHz of the first processor; 0 if the system does not report it
};

// A fact that the system does not report is 0.
MachineFacts machineFacts();

// The first three numbers of a kernel release; missing ones are 0.
void readRelease(std::string_view release, MachineFacts* facts);

// The clock that the text of /proc/cpuinfo names first, in whole MHz rounded down; 0 when it names
// none, as on many ARM machines.
std::int32_t clockInProcessorList(std::string_view text);

}  // namespace pinorama
