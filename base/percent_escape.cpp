#include "base/percent_escape.h"

namespace pinorama {

std::string percentEscaped(std::string_view bytes, std::string_view marks)
{
    std::string escaped;
    for (const char byte : bytes) {
        if (isPlainInURI(byte, marks)) {
            escaped += byte;
        } else {
            putPercentEscape(byte, [&](char c) { escaped += c; });
        }
    }
    return escaped;
}

}  // namespace pinorama
