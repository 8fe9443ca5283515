// ZIP archives of single items, made and read by the archiver `bsdtar`. Names of items reach it in
// a list and never as arguments, where it would take "-Cfolder" for an option and "@a.zip" for an
// archive. Paths are absolute and in the raw bytes of the system.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

// Packs a file, link or folder with everything in it, under its own name, into a new archive and
// waits until that is done.
//
// Returns the exit status of the archiver; 127 if there is none. An archive of 0 may lack what
// the format cannot hold: pipes, sockets and devices.
std::int32_t cuPackIntoZIP(const std::filesystem::path& item, const std::string& archive);

// True when everything that `item` consists of is in the archive and comes out of it with the same
// name, kind and content. Reads both from first to last.
bool cuIsWholeInZIP(const std::filesystem::path& item, const std::string& archive);
