#include "pictures/packed_part.h"

#include "pictures/xmp_packet.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstddef>

namespace pinorama {
namespace {
// Declared here because nobody needs the libraries to build the program. Both functions stop at the
// end of the room, and say how much of it they have filled.
struct Libraries {
    int (*inflate)(std::uint8_t*, unsigned long*, const std::uint8_t*, unsigned long) = nullptr;
    int (*unbrotli)(std::size_t, const std::uint8_t*, std::size_t*, std::uint8_t*) = nullptr;
};

template <typename Function>
void find(void* library, const char* name, Function* out)
{
    if (library != nullptr) *out = reinterpret_cast<Function>(dlsym(library, name));
}

const Libraries& libraries()
{
    static const Libraries loaded = [] {
        Libraries found;
        find(dlopen("libz.so.1", RTLD_NOW | RTLD_LOCAL), "uncompress", &found.inflate);
        find(dlopen("libbrotlidec.so.1", RTLD_NOW | RTLD_LOCAL), "BrotliDecoderDecompress",
             &found.unbrotli);
        return found;
    }();
    return loaded;
}

constexpr std::size_t kUsualLength = 16 * 1024;

// How many bytes of `room` the data fills.
std::size_t unpackInto(std::vector<std::uint8_t>& room, const std::vector<std::uint8_t>& packed,
                       Packing packing)
{
    if (packing == Packing::deflate) {
        unsigned long length = room.size();
        if (libraries().inflate == nullptr) return 0;
        (void)libraries().inflate(room.data(), &length, packed.data(), packed.size());
        return std::min<std::size_t>(length, room.size());
    }
    std::size_t length = room.size();
    if (libraries().unbrotli == nullptr) return 0;
    (void)libraries().unbrotli(packed.size(), packed.data(), &length, room.data());
    return std::min(length, room.size());
}
}  // namespace

void loadUnpackers()
{
    (void)libraries();
}

std::vector<std::uint8_t> unpacked(const PackedPart& part)
{
    const std::vector<std::uint8_t> packed = copyOf(part.bytes, kMaxXmpLength);
    if (packed.empty()) return {};
    // All of the room is seldom needed, and clearing it takes longer than unpacking.
    for (std::size_t size = kUsualLength;; size = kMaxXmpLength) {
        std::vector<std::uint8_t> room(size);
        const std::size_t filled = unpackInto(room, packed, part.packing);
        if (filled == size && size < kMaxXmpLength) continue;  // there may be more
        room.resize(filled);
        return room;
    }
}

}  // namespace pinorama
