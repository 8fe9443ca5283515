#include "cli/printable.h"

namespace pinorama {
namespace {
constexpr std::string_view kReplacement = "\xef\xbf\xbd";  // U+FFFD

// U+0080 to U+009F, in UTF-8 0xC2 and one more byte. Some terminals obey them.
bool isUpperControl(std::string_view text, std::size_t at)
{
    return text[at] == '\xc2' && at + 1 < text.size() &&
           static_cast<unsigned char>(text[at + 1]) < 0xa0;
}
}  // namespace

void appendPrintable(std::string_view text, std::string* out)
{
    for (std::size_t i = 0; i < text.size(); i++) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte == '\n' || byte == '\r' || byte == '\t') {
            *out += ' ';
        } else if (byte < 0x20 || byte == 0x7f) {
            *out += kReplacement;
        } else if (isUpperControl(text, i)) {
            *out += kReplacement;
            i++;
        } else {
            *out += text[i];
        }
    }
}

}  // namespace pinorama
