// What earlier searches have found out: for each folder the names of its pictures, how large they
// were, when they were changed last, and where they were taken. It is a cache in one SQLite file,
// only for the user, that can be removed at any time; a damaged one counts as empty and is made
// anew.
//
// A folder is one row. Its pictures are a block of bytes (nearby/folder_block.h), which takes a
// thousandth of the time that a row for each of them takes.
//
//     PictureIndex index(path);
//     const std::string block = index.read("/home/anna/Pictures/2026");
//     FolderBlockReader pictures(block);
//     while (const auto picture = pictures.next()) use(*picture);

#pragma once

#include <span>
#include <string>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

namespace pinorama {

class PictureIndex {
public:
    // Opens the index for reading; one that is not there or cannot be read is empty.
    //
    //   path  raw bytes of the system.
    explicit PictureIndex(const std::string& path);
    ~PictureIndex();
    PictureIndex(const PictureIndex&) = delete;
    PictureIndex& operator=(const PictureIndex&) = delete;

    // The block of a folder, by its absolute path; empty if nothing is known of it.
    std::string read(const std::string& folder);

    using Change = std::pair<std::string, std::string>;  // a folder and its new block

    // Writes the blocks of folders into the index at `path`, which is made if it is not there, with
    // the folders above it. Waits up to 3 seconds for another program that writes. False if it
    // cannot be written; searches are slower then, and nothing else.
    static bool write(const std::string& path, std::span<const Change> changes);

private:
    sqlite3* database_ = nullptr;
    sqlite3_stmt* query_ = nullptr;
};

// The index of the user: "pinorama/pictures.sqlite" in the cache folder. Empty if that folder is on
// a network, where locks are not reliable and many machines would write the same file.
std::string defaultIndexPath();

}  // namespace pinorama
