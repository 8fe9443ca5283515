#include "base/whole_file.h"

#include "base/descriptor.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace pinorama {

std::optional<std::string> readWholeFile(const std::string& path, std::size_t largest)
{
    const DescriptorHolder file(openDescriptor(path.c_str(), O_RDONLY));
    if (!file) return std::nullopt;
    struct stat facts = {};
    if (fstat(file.get(), &facts) != 0) return std::nullopt;
    if (!S_ISREG(facts.st_mode)) {
        errno = S_ISDIR(facts.st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(facts.st_size);
    if (size > largest) {
        errno = EFBIG;
        return std::nullopt;
    }
    std::string content(size, '\0');
    const std::int64_t read = readAt(file.get(), 0, content.data(), size);
    if (read < 0) return std::nullopt;
    content.resize(static_cast<std::size_t>(read));  // the file may have shrunk meanwhile
    return content;
}

}  // namespace pinorama
