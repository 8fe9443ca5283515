// The preferences of one application: texts and whole numbers by key, in one JSON object
// (docs/formats.md, "Preferences"). Every call looks at the file anew, so programs that share it
// see what the others have stored, and two that store different keys both keep their value.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace pinorama {

// A value of another kind than those that are written here, such as a list.
struct ForeignPreference {
    friend bool operator==(ForeignPreference, ForeignPreference) { return true; }
};

// A text in UTF-16 units, a number, or something else. Of a number in the file that has a fraction
// or more than 32 bits the whole part's low 32 bits are read.
using PreferenceValue = std::variant<std::u16string, std::int32_t, ForeignPreference>;

class PreferenceFile {
public:
    // `folder` is the application's own below the folder of all settings; empty: nothing is stored.
    explicit PreferenceFile(std::string folder) : folder_(std::move(folder)) {}

    // The value of a key; nothing if there is none, or no file that can be read.
    std::optional<PreferenceValue> load(std::u16string_view key) const;

    // Sets a key to a text or a number, or removes it if there is none. Everything else in the
    // file stays. The file is replaced in one step and flushed; a half surrogate pair in a text
    // becomes U+FFFD.
    //
    // A file that holds no such object is set aside as preferences.json.damaged and a new one
    // begun. One that exists but cannot be read is left alone, and nothing is stored.
    //
    // False when the value could not be stored.
    bool store(std::u16string_view key, const std::optional<PreferenceValue>& value) const;

private:
    std::string path() const;

    std::string folder_;
};

}  // namespace pinorama
