// What is in a folder.

#pragma once

#include <string>
#include <vector>

namespace pinorama {

// The names of a folder's items in no particular order, without "." and "..". Empty for what is no
// folder or cannot be read.
std::vector<std::string> namesInFolder(const std::string& path);

}  // namespace pinorama
