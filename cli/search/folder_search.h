// A search through folders that remembers what it finds out: a picture whose size and time of
// change are those of an earlier search is read again only if it is printed. Folders are listed and
// looked up in the workers, and the parent hands out the subfolders that they find.
//
//     const int status = searchPictures(options, std::move(serviceTemplate));

#pragma once

#include "cli/batch_work.h"
#include "cli/search/search_filter.h"
#include "lib/strings/string_holder.h"
#include "nearby/folder_block.h"
#include "nearby/picture_index.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct stat;

namespace pinorama {

// The part of a worker.
class FolderSearch {
public:
    // The index is opened for the first folder, in the process that reads it.
    FolderSearch(ReportOptions options, std::shared_ptr<const SearchFilter> filter,
                 std::string indexPath);

    void warmUp() { work_.warmUp(); }

    // Searches folders; see startItem and folderItem. The result has their subfolders as further
    // items, and the blocks of the index that have changed.
    BatchResult process(std::span<const std::string> items);

private:
    struct Item {
        std::string_view name{};
        std::uint64_t size = 0;
        std::int64_t modified = 0;  // nanoseconds since 1970
        bool isWanted = false;      // has to be read
        bool isStored = false;      // its position is known now
        std::optional<Position> position{};
    };

    // The pictures of the folder that is searched.
    struct Listing {
        std::vector<Item> items{};
        std::deque<std::string> newNames{};  // those that the index does not know
        bool isChanged = false;              // since the index was written
    };

    void searchFolder(const std::string& path, bool isStart, BatchResult* result);
    bool list(const std::string& path, bool isStart, KnownPictures* known, BatchResult* result);
    void add(const char* name, const struct stat& status, KnownPictures* known);
    void read(const std::string& path, BatchResult* result);

    std::shared_ptr<const SearchFilter> filter_;
    const std::string indexPath_;
    std::unique_ptr<PictureIndex> index_{};
    AcceptedNames accepted_{};
    Listing listing_{};
    std::vector<Item*> reading_{};  // what the reports that come next are about
    std::size_t nextRead_ = 0;
    BatchWork work_;
};

// An item of the search: a start as it was given, or a folder below one, where links to folders are
// not followed.
std::string startItem(const std::string& path);
std::string folderItem(const std::string& path);

// Does the whole search that the options ask for: through folders as above, through files one by
// one. The arguments and the result are those of reportOnFiles; the status is also kWrongUsage,
// after an error message, for a place or an area that is malformed or cannot be read.
int searchPictures(const Options& options, StringHolder serviceTemplate);

}  // namespace pinorama
