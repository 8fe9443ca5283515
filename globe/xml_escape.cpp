#include "globe/xml_escape.h"

#include "base/memory_guard.h"

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
