#include "lib/files/file_comment.h"

#include <cerrno>

#include <sys/xattr.h>

using namespace pinorama;

namespace {
constexpr char kAttribute[] = "user.xdg.comment";
constexpr int kAttempts = 3;
}  // namespace

std::optional<std::string> pinorama::readFileComment(const std::string& path)
{
    // The comment may grow between the two calls, for its size and for its bytes.
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const ssize_t size = getxattr(path.c_str(), kAttribute, nullptr, 0);
        if (size < 0) return std::nullopt;
        std::string comment(static_cast<std::size_t>(size), '\0');
        const ssize_t got = getxattr(path.c_str(), kAttribute, comment.data(), comment.size());
        if (got >= 0) {
            comment.resize(static_cast<std::size_t>(got));
            return comment;
        }
        if (errno != ERANGE) return std::nullopt;
    }
    return std::nullopt;
}

bool pinorama::writeFileComment(const std::string& path, std::string_view comment)
{
    return setxattr(path.c_str(), kAttribute, comment.data(), comment.size(), 0) == 0;
}
