// Where what belongs to the program lies: texts, icons, sample pictures, and the programs that it
// starts.

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

// The path of a program that this one starts and users do not, `name` being its file: what the
// environment variable `variable` says (null for none), else the file beside the program that runs
// (the build tree), else the one in the folder for such programs under the install prefix
// (<folder of the program>/../libexec/<name>, or what the build calls it).
std::string helperProgram(const std::string& name, const char* variable = nullptr);

// The second and third of these, for programs in `programFolder`.
std::string helperProgramOf(const std::string& programFolder, const std::string& name);

}  // namespace pinorama
