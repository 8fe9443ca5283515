#include "places/mapped_file.h"

#include "base/descriptor.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

using namespace pinorama;

MappedFile::MappedFile(const std::string& path, std::size_t limit)
{
    const DescriptorHolder file(openDescriptor(path.c_str(), O_RDONLY));
    if (!file) error_ = errno;
    struct stat facts;
    if (!file || fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return;
    if (facts.st_size <= 0 || static_cast<std::uint64_t>(facts.st_size) > limit) return;
    const auto size = static_cast<std::size_t>(facts.st_size);
    void* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0);
    if (start == MAP_FAILED) {
        error_ = errno;
        return;
    }
    start_ = start;
    size_ = size;
}

MappedFile::~MappedFile()
{
    if (start_ != nullptr) munmap(start_, size_);
}
