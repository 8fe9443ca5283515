// A JSON object (RFC 8259) that is written member by member, on one line. Texts are UTF-8; what
// would control a terminal is escaped, so that it keeps its value.
//
//     JsonObject object(&line);
//     object.add("name", std::string_view("a.jpg"));
//     object.close();

#pragma once

#include "base/ascii.h"
#include "base/printable.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pinorama {

// Writes the members of one object; every value is preceded by its key.
class JsonObject {
public:
    explicit JsonObject(std::string* out) : out_(out) { *out_ += '{'; }
    void close()
    {
        *out_ += '}';
        isFirst_ = false;
    }

    // The members that follow belong to an object of that name; close() ends it.
    void open(std::string_view key)
    {
        addKey(key);
        *out_ += '{';
        isFirst_ = true;
    }
    // A member whose value is JSON already.
    void addWritten(std::string_view key, std::string_view value)
    {
        addKey(key);
        *out_ += value;
    }
    void add(std::string_view key, std::string_view text)
    {
        addKey(key);
        addText(text);
    }
    void add(std::string_view key, const std::optional<std::string>& text)
    {
        text ? add(key, std::string_view(*text)) : addNothing(key);
    }
    void add(std::string_view key, bool value)
    {
        addKey(key);
        *out_ += value ? "true" : "false";
    }
    void add(std::string_view key, std::int32_t value)
    {
        addKey(key);
        addNumber(value);
    }
    void add(std::string_view key, const std::optional<std::uint64_t>& value)
    {
        if (!value) return addNothing(key);
        addKey(key);
        addNumber(*value);
    }
    void add(std::string_view key, const std::optional<double>& value)
    {
        if (!value || !std::isfinite(*value)) return addNothing(key);
        addKey(key);
        const std::size_t start = out_->size();
        addNumber(*value);
        // A whole number keeps its fraction, so that readers see the same type in every line.
        if (out_->find_first_of(".e", start) == std::string::npos) *out_ += ".0";
    }
    void addNothing(std::string_view key)
    {
        addKey(key);
        *out_ += "null";
    }

private:
    void addKey(std::string_view key)
    {
        *out_ += isFirst_ ? "\"" : ",\"";
        isFirst_ = false;
        out_->append(key).append("\":");
    }
    template <typename Number>
    void addNumber(Number value)
    {
        char digits[32];
        const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        out_->append(digits, end);
    }
    void addText(std::string_view text)
    {
        *out_ += '"';
        std::size_t plain = 0;  // where what is not yet written begins
        for (std::size_t i = 0; i < text.size(); i++) {
            const DisplayControl control = displayControlAt(text, i);
            if (!control && text[i] != '"' && text[i] != '\\') continue;
            out_->append(text.substr(plain, i - plain));
            addEscape(control ? control.character : static_cast<unsigned char>(text[i]));
            i += control ? control.length - 1 : 0;
            plain = i + 1;
        }
        out_->append(text.substr(plain));
        *out_ += '"';
    }
    void addEscape(char32_t character)
    {
        switch (character) {
        case '"': *out_ += "\\\""; return;
        case '\\': *out_ += "\\\\"; return;
        case '\n': *out_ += "\\n"; return;
        case '\r': *out_ += "\\r"; return;
        case '\t': *out_ += "\\t"; return;
        default: break;
        }
        *out_ += "\\u";
        for (const int shift : {12, 8, 4, 0}) *out_ += kLowerHexDigits[character >> shift & 0x0f];
    }

    std::string* out_;
    bool isFirst_ = true;
};

}  // namespace pinorama
