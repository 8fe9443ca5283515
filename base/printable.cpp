#include "base/printable.h"

#include "base/utf8.h"

namespace pinorama {
namespace {
constexpr std::string_view kReplacement = "\xef\xbf\xbd";  // U+FFFD

// Replaces each byte that is no part of a character by U+FFFD.
std::string withoutMalformedBytes(std::string_view text)
{
    std::string valid;
    while (!text.empty()) {
        // Four bytes hold the longest character.
        std::size_t length = 1;
        while (length < 4 && length < text.size() && countUnitsOfUTF8(text.substr(0, length)) < 0)
            length++;
        if (countUnitsOfUTF8(text.substr(0, length)) < 0) {
            valid += kReplacement;
            length = 1;
        } else {
            valid += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return valid;
}
}  // namespace

DisplayControl displayControlAt(std::string_view text, std::size_t at)
{
    const auto byteAt = [text](std::size_t place) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[place]));
    };
    const char32_t lead = byteAt(at);
    DisplayControl found{lead, 1};
    // All others that there are have two or three bytes.
    if (lead == 0xc2 && at + 1 < text.size()) {
        found = {byteAt(at + 1), 2};
    } else if (lead == 0xe2 && at + 2 < text.size()) {
        found = {0x2000 | (byteAt(at + 1) & 0x3f) << 6 | (byteAt(at + 2) & 0x3f), 3};
    } else if (lead >= 0x80) {
        return {};
    }
    return isDisplayControl(found.character) ? found : DisplayControl{};
}

void appendPrintable(std::string_view text, std::string* out)
{
    if (countUnitsOfUTF8(text) < 0) return appendPrintable(withoutMalformedBytes(text), out);
    for (std::size_t i = 0; i < text.size(); i++) {
        const DisplayControl control = displayControlAt(text, i);
        if (!control) {
            *out += text[i];
        } else if (text[i] == '\n' || text[i] == '\r' || text[i] == '\t') {
            *out += ' ';
        } else {
            *out += kReplacement;
            i += control.length - 1;
        }
    }
}

std::string printable(std::string_view text)
{
    std::string result;
    appendPrintable(text, &result);
    return result;
}

}  // namespace pinorama
