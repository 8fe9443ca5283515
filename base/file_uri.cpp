#include "base/file_uri.h"

#include <array>
#include <climits>

#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::string_view kDigits = "0123456789ABCDEF";

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lowered(a[i]) != lowered(b[i])) return false;
    }
    return true;
}

bool isThisMachine(std::string_view host)
{
    if (host.empty() || equalIgnoringCase(host, "localhost")) return true;
    std::array<char, HOST_NAME_MAX + 1> name{};
    return gethostname(name.data(), name.size() - 1) == 0 && equalIgnoringCase(host, name.data());
}

int valueOfDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (lowered(c) >= 'a' && lowered(c) <= 'f') return lowered(c) - 'a' + 10;
    return -1;
}

std::optional<std::string> unescaped(std::string_view text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char byte = text[i];
        if (byte == '%') {
            if (text.size() - i < 3) return std::nullopt;
            const int high = valueOfDigit(text[i + 1]);
            const int low = valueOfDigit(text[i + 2]);
            if (high < 0 || low < 0) return std::nullopt;
            byte = static_cast<char>(high * 16 + low);
            i += 2;
        }
        if (byte == '\0') return std::nullopt;
        bytes.push_back(byte);
    }
    return bytes;
}

bool isUnreserved(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~").find(c) != std::string_view::npos;
}
}  // namespace

std::optional<std::string> pathOfFileURI(std::string_view uri)
{
    constexpr std::string_view kScheme = "file:";
    if (uri.size() > 3 * PATH_MAX + kScheme.size() + HOST_NAME_MAX) return std::nullopt;
    if (!equalIgnoringCase(uri.substr(0, kScheme.size()), kScheme)) return std::nullopt;
    uri.remove_prefix(kScheme.size());
    uri = uri.substr(0, uri.find_first_of("?#"));

    if (uri.starts_with("//")) {
        uri.remove_prefix(2);
        const std::size_t end = uri.find('/');
        if (end == std::string_view::npos || !isThisMachine(uri.substr(0, end)))
            return std::nullopt;
        uri.remove_prefix(end);
    }
    if (!uri.starts_with('/')) return std::nullopt;

    std::optional<std::string> path = unescaped(uri);
    if (path && path->size() > PATH_MAX) return std::nullopt;
    return path;
}

std::string escapedPath(std::string_view path)
{
    std::string escaped;
    for (const char c : path) {
        if (isUnreserved(c) || c == '/') {
            escaped.push_back(c);
        } else {
            const auto byte = static_cast<unsigned char>(c);
            escaped += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        }
    }
    return escaped;
}

std::string fileURIOfPath(std::string_view path)
{
    return "file://" + escapedPath(path);
}

std::vector<std::string> pathsOfURIList(std::string_view list)
{
    std::vector<std::string> paths;
    while (!list.empty()) {
        const std::size_t end = list.find_first_of("\r\n");
        const std::string_view line = list.substr(0, end);
        if (!line.starts_with('#')) {
            if (std::optional<std::string> path = pathOfFileURI(line))
                paths.push_back(std::move(*path));
        }
        if (end == std::string_view::npos) break;
        list.remove_prefix(end + 1);
    }
    return paths;
}

}  // namespace pinorama
