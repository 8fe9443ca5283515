// One table of localised texts as it stands in a file: UTF-8 lines of the form
//
//     "key" = "value";
//
// with the escapes \" \\ \n \t \r and \UXXXX (one UTF-16 unit in hexadecimal), and with comments of
// both kinds of C++ between the lines. Keys and values are UTF-16.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class StringsTable {
public:
    StringsTable() = default;

    // Reads the text of a table. A damaged line is skipped and the next one is read as if it were
    // not there; a quoted text never goes on into the next line. Of two lines with one key the
    // later one counts.
    explicit StringsTable(std::string_view utf8);

    // The value of a key, borrowed for as long as the table; nothing when the key is missing.
    std::optional<std::u16string_view> find(std::u16string_view key) const;

    std::size_t size() const { return values_.size(); }

    // The lines that were skipped because they are damaged, counted from 1, in ascending order.
    const std::vector<std::size_t>& damagedLines() const { return damagedLines_; }

private:
    struct Hash : std::hash<std::u16string_view> {
        using is_transparent = void;
    };
    std::unordered_map<std::u16string, std::u16string, Hash, std::equal_to<>> values_;
    std::vector<std::size_t> damagedLines_;
};
