// pinorama-info as a user runs it, and what it printed taken apart.

#pragma once

#include "tests/support/program.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace test {

// Runs pinorama-info to its end.
ProgramResult run(std::vector<std::string> arguments,
                  const std::vector<std::pair<std::string, std::string>>& variables = {});

// The lines of an output without their ends.
std::vector<std::string> linesOf(const std::string& text);

// The objects of JSON output, one in each line.
std::vector<nlohmann::ordered_json> objectsOf(const std::string& out);

// How often `part` stands in `text`.
std::size_t countOf(const std::string& text, const std::string& part);

// False when the document in this file is not well-formed.
bool isXML(const std::string& path);

}  // namespace test
