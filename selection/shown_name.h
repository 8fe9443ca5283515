// Finds the name that a file manager shows as some text, among the names in a folder. Mostly the
// two are the same bytes, but a name that is not UTF-8, contains control characters or has a hidden
// extension is shown differently.

#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace pinorama {

// The rules are tried in this order. The first rule that matches any name decides; if it matches
// several, the result is nothing.
//
// - The item has exactly this name.
// - The name differs only in composed and decomposed letters.
// - The name is not UTF-8: each malformed byte, or each run of them, is shown as U+FFFD, possibly
//   with a remark in parentheses after the name.
// - The name contains control characters, which are shown as blanks or as control pictures, or left
//   out.
// - The name is shown without its extension.
//
// Names are taken one by one, so that those of a large folder can come in parts.
class ShownNameFinder {
public:
    explicit ShownNameFinder(const QString& shown);

    // The text in UTF-8, with composed letters.
    const std::string& composedBytes() const { return composedBytes_; }

    // Tries a name, in raw bytes. Each name of the folder is taken once.
    void take(const std::string& name);

    // The result for those that were taken.
    std::optional<std::string> name() const;

private:
    static constexpr std::size_t kRules = 5;
    struct Found {
        std::size_t count = 0;
        std::string name{};  // the first one
    };

    std::string bytes_;
    QString composed_;
    std::string composedBytes_;
    std::array<Found, kRules> found_;  // by rule
};

}  // namespace pinorama
