// Where the program's own resources lie: texts, icons, sample pictures.

#pragma once

#include <string>

namespace pinorama {

// The folder of the resources, without a slash at the end: what the environment variable
// PINORAMA_RESOURCES says, else the folder beside the build tree's programs
// (<folder of the program>/../resources), else the one under the install prefix
// (<folder of the program>/../share/pinorama).
std::string resourceFolder();

// The second and third of these, for programs in `programFolder`.
std::string resourceFolderOf(const std::string& programFolder);

// The folder of the documents for users, without a slash at the end: beside the build tree's
// programs (<folder of the program>/../docs), else under the install prefix
// (<folder of the program>/../share/doc/pinorama).
std::string documentFolder();

// The folder of the program that runs, without a slash at the end; empty when the system does not
// tell.
std::string programFolder();

}  // namespace pinorama
