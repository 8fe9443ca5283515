// What an index remembers of a folder: for each picture its name, how large it was, when it was
// changed last, and where it was taken, in one block of bytes (docs/formats.md). Pictures stand in
// the order in which the folder listed them: most file systems list a folder in the same order as
// long as nothing is added, so that a search can compare both one by one.
//
//     KnownPictures known(block);
//     while (const auto name = nextName()) {
//         if (const auto picture = known.take(*name)) compare(*picture);
//     }
//     if (known.hasMore()) print("something is gone");

#pragma once

#include "nearby/position.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace pinorama {

struct IndexedPicture {
    std::string_view name{};    // in its folder, raw bytes
    std::uint64_t size = 0;     // bytes
    std::int64_t modified = 0;  // nanoseconds since 1970
    std::optional<Position> position{};
};

// Makes the block of a folder.
class FolderBlockWriter {
public:
    FolderBlockWriter();
    // Names are unique, and at most 4096 bytes long.
    void add(const IndexedPicture& picture);
    std::string take() { return std::move(block_); }

private:
    std::string block_{};
};

// Reads such a block, which it borrows. Ends early at what is malformed.
class FolderBlockReader {
public:
    explicit FolderBlockReader(std::string_view block);
    std::optional<IndexedPicture> next();

private:
    std::string_view rest_{};
};

// Finds the pictures of a block by their names. Takes a comparison for each picture as long as they
// are asked for in the order of the block; the first one out of turn makes a table of the rest.
class KnownPictures {
public:
    // Borrows the block, and what take() returns borrows it as well.
    explicit KnownPictures(std::string_view block);

    // The picture of that name, once.
    std::optional<IndexedPicture> take(std::string_view name);

    // Whether there are pictures that have not been taken.
    bool hasMore() const { return next_.has_value() || !rest_.empty(); }

private:
    FolderBlockReader reader_;
    std::optional<IndexedPicture> next_{};
    std::unordered_map<std::string_view, IndexedPicture> rest_{};
};

}  // namespace pinorama
