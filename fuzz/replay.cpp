// Runs a fuzzer over files, for compilers without a fuzzer: fuzz_X FILE_OR_FOLDER...

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {
bool replay(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    const std::vector<char> content(std::istreambuf_iterator<char>(file), {});
    // A block of exactly the right size, so that a sanitizer notices a read past its end.
    const auto block = std::make_unique<std::uint8_t[]>(content.size());
    std::copy(content.begin(), content.end(), block.get());
    LLVMFuzzerTestOneInput(block.get(), content.size());
    return true;
}
}  // namespace

int main(int argc, char** argv)
{
    int count = 0;
    for (int index = 1; index < argc; ++index) {
        const std::filesystem::path path = argv[index];
        if (!std::filesystem::is_directory(path)) {
            count += replay(path) ? 1 : 0;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            count += replay(entry.path()) ? 1 : 0;
        }
    }
    std::printf("%d seeds replayed\n", count);
    return count == 0 ? 1 : 0;
}
