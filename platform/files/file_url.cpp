#include "platform/files/file_url.h"

#include <charconv>

namespace {
// Compares ASCII text with lower-case `prefix`, whatever the case of the text.
bool startsWith(std::string_view text, std::string_view prefix)
{
    if (text.size() < prefix.size()) return false;
    for (std::size_t i = 0; i < prefix.size(); i++) {
        const char c = text[i];
        if ((c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c) != prefix[i]) return false;
    }
    return true;
}

bool removePrefix(std::string_view* text, std::string_view prefix)
{
    if (!startsWith(*text, prefix)) return false;
    text->remove_prefix(prefix.size());
    return true;
}

// The value of two hexadecimal digits at the start of `text`; 0 for a damaged escape, as no path
// holds a zero byte.
unsigned char escapedByte(std::string_view text)
{
    unsigned value = 0;
    if (text.size() < 2) return 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + 2, value, 16);
    return error == std::errc() && end == text.data() + 2 ? static_cast<unsigned char>(value) : 0;
}
}  // namespace

std::string platform::pathOfFileURL(std::string_view url)
{
    if (!removePrefix(&url, "file:")) return {};
    if (removePrefix(&url, "//")) removePrefix(&url, "localhost");
    url = url.substr(0, url.find_first_of("?#"));
    if (!url.starts_with('/')) return {};  // another host, or a relative path

    std::string path;
    while (!url.empty()) {
        char byte = url.front();
        url.remove_prefix(1);
        if (byte == '%') {
            byte = static_cast<char>(escapedByte(url));
            if (byte == '\0') return {};
            url.remove_prefix(2);
        }
        path += byte;
    }
    return path;
}
