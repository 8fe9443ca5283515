#include "base/file_uri.h"

#include "base/percent_escape.h"

#include <array>
#include <climits>

#include <unistd.h>

namespace pinorama {
namespace {
// RFC 3986 lets more stand in a path; not every program that reads one agrees.
constexpr std::string_view kPlainInPath = "-._~/";
static_assert(kPlainInPath.starts_with(kUnreservedRFC3986));

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

std::optional<std::string> unescaped(std::string_view text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char byte = text[i];
        if (byte == '%') {
            const int escaped = percentEscapedByte(text.substr(i));
            if (escaped < 0) return std::nullopt;
            byte = static_cast<char>(escaped);
            i += kPercentEscapeLength - 1;
        }
        if (byte == '\0') return std::nullopt;
        bytes.push_back(byte);
    }
    return bytes;
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
    return percentEscaped(path, kPlainInPath);
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
