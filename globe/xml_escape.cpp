#include "globe/xml_escape.h"

#include "base/memory_guard.h"
#include "base/printable.h"

#include <string>

using namespace pinorama;

namespace {
bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

// What stands for a unit that is not a surrogate; empty when the unit stays.
std::u16string_view replacementOf(char16_t unit)
{
    switch (unit) {
    case u'&': return u"&amp;";
    case u'<': return u"&lt;";
    case u'>': return u"&gt;";
    case u'"': return u"&quot;";
    case u'\t': return u"&#9;";
    case u'\n': return u"&#10;";
    case u'\r': return u"&#13;";
    default: break;
    }
    const bool isForbidden = unit < 0x20 || unit == 0xfffe || unit == 0xffff;
    return isForbidden ? std::u16string_view(u"\ufffd") : std::u16string_view();
}
}  // namespace

TovStringRef gpsEscapeForXML(std::u16string_view text)
{
    return baseGuardMemory([&]() -> TovStringRef {
        std::u16string escaped;
        escaped.reserve(text.size());
        for (std::size_t i = 0; i < text.size(); i++) {
            const char16_t unit = text[i];
            if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
                escaped.append(text, i, 2);
                i++;
            } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
                escaped += u'\ufffd';
            } else if (const std::u16string_view other = replacementOf(unit); !other.empty()) {
                escaped += other;
            } else {
                escaped += unit;
            }
        }
        return createString(escaped);
    });
}

namespace pinorama {
namespace {
void appendCharacter(std::string_view text, std::string* out)
{
    switch (text.front()) {
    case '&': *out += "&amp;"; return;
    case '<': *out += "&lt;"; return;
    case '>': *out += "&gt;"; return;
    case '"': *out += "&quot;"; return;
    default: break;
    }
    // The two that no document can hold (XML 1.0, section 2.2).
    const bool isNoCharacter = text == "\xef\xbf\xbe" || text == "\xef\xbf\xbf";
    *out += isNoCharacter ? "\ufffd" : text;
}

std::size_t lengthOfCharacter(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0x80 ? 1 : byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
}
}  // namespace

void appendXmlText(std::string_view text, std::string* out)
{
    for (std::size_t i = 0; i < text.size();) {
        if (const DisplayControl control = displayControlAt(text, i)) {
            const char32_t c = control.character;
            const bool isAllowed = c >= 0x20 || c == '\t' || c == '\n' || c == '\r';
            *out += isAllowed ? "&#" + std::to_string(static_cast<unsigned>(c)) + ';' : "\ufffd";
            i += control.length;
            continue;
        }
        const std::size_t length = lengthOfCharacter(text[i]);
        appendCharacter(text.substr(i, length), out);
        i += length;
    }
}

}  // namespace pinorama
