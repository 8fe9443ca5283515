#include "cli/spool_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kMaxPending = 1u << 20;  // bytes
constexpr std::size_t kPiece = 1u << 16;       // bytes

// A new file that nobody else can open; -1 with errno set.
int openNameless()
{
    const char* set = std::getenv("TMPDIR");
    const std::string folder = set != nullptr && *set == '/' ? set : "/tmp";
    const int nameless = openDescriptor(folder.c_str(), O_TMPFILE | O_RDWR, 0600);
    if (nameless >= 0) return nameless;
    // Some file systems cannot do that.
    std::string path = folder + "/pinorama-XXXXXX";
    const int named = mkostemp(path.data(), O_CLOEXEC);
    if (named >= 0) (void)unlink(path.c_str());
    return named;
}
}  // namespace

bool SpoolFile::append(std::string_view bytes)
{
    pending_.append(bytes);
    size_ += bytes.size();
    return pending_.size() < kMaxPending || flush();
}

bool SpoolFile::flush()
{
    if (!file_) file_ = DescriptorHolder(openNameless());
    if (!file_ || !writeAll(file_.get(), pending_)) return false;
    pending_.clear();
    return true;
}

bool SpoolFile::copyTo(const std::function<bool(std::string_view bytes)>& take) const
{
    const std::uint64_t inFile = size_ - pending_.size();
    std::string piece(kPiece, '\0');
    for (std::uint64_t at = 0; at < inFile;) {
        const std::size_t wanted = std::min<std::uint64_t>(kPiece, inFile - at);
        const std::int64_t count =
            readAt(file_.get(), static_cast<std::int64_t>(at), piece.data(), wanted);
        if (count <= 0) {
            if (count == 0) errno = EIO;
            return false;
        }
        if (!take({piece.data(), static_cast<std::size_t>(count)})) return false;
        at += static_cast<std::uint64_t>(count);
    }
    return pending_.empty() || take(pending_);
}

}  // namespace pinorama
