// Which pictures a search prints. The program that searches makes the filter (cli/search); what
// reads and prints pictures only asks it.

#pragma once

#include "cli/file_report.h"

#include <functional>

namespace pinorama {

// True for a report that is printed. A search near a place also fills in its `nearness`. An empty
// filter prints all reports.
using PlaceFilter = std::function<bool(FileReport* report)>;

}  // namespace pinorama
