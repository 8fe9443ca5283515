#include "pictures/xml_references.h"

#include <charconv>
#include <cstddef>
#include <cstdint>

namespace pinorama {
namespace {
void appendUTF8(std::uint32_t character, std::string& out)
{
    const auto put = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xc0 | character >> 6);
        put(0x80 | (character & 0x3f));
    } else if (character < 0x10000) {
        put(0xe0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3f));
        put(0x80 | (character & 0x3f));
    } else {
        put(0xf0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3f));
        put(0x80 | (character >> 6 & 0x3f));
        put(0x80 | (character & 0x3f));
    }
}

// "&#233;" or "&#xe9;", without the ampersand and the semicolon.
bool appendReference(std::string_view digits, std::string& out)
{
    digits.remove_prefix(1);
    const bool isHex = !digits.empty() && digits[0] == 'x';
    if (isHex) digits.remove_prefix(1);
    std::uint32_t character = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, problem] = std::from_chars(digits.data(), end, character, isHex ? 16 : 10);
    const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
    if (problem != std::errc() || stop != end || character == 0 || character > 0x10ffff ||
        isSurrogate) {
        return false;
    }
    appendUTF8(character, out);
    return true;
}
}  // namespace

bool appendXmlText(std::string_view raw, std::string& out)
{
    static constexpr struct {
        std::string_view name;
        char character;
    } kEntities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    while (true) {
        const std::size_t start = raw.find('&');
        out += raw.substr(0, start);
        if (start == raw.npos) return true;
        raw.remove_prefix(start + 1);
        constexpr std::size_t kMaxLength = 12;
        const std::size_t end = raw.substr(0, kMaxLength).find(';');
        if (end == raw.npos || end == 0) return false;
        const std::string_view entity = raw.substr(0, end);
        raw.remove_prefix(end + 1);
        if (entity[0] == '#') {
            if (!appendReference(entity, out)) return false;
            continue;
        }
        bool isKnown = false;
        for (const auto& known : kEntities) {
            if (known.name != entity) continue;
            out += known.character;
            isKnown = true;
        }
        if (!isKnown) return false;
    }
}

}  // namespace pinorama
