#include "lib/files/path_block.h"

#include "base/memory_guard.h"
#include "base/utf8.h"
#include "lib/files/path_text.h"

#include <cstring>
#include <string>

using namespace pinorama;

PathBlock::PathBlock(const TovString* path)
{
    const std::u16string_view units = unitsOf(path);
    const std::int32_t count = countBytesOfUTF8(units);
    if (count >= 0) {
        const auto size = static_cast<std::size_t>(count);
        block_ = BlockHolder(baseAllocateZeroed(size + 2));
        // Encodes all of it: the block has the counted size, and any rest would be zero bytes.
        if (block_) (void)encodeUTF8(units, {static_cast<char*>(block_.get()), size});
        return;
    }
    block_ = baseGuardMemory([path] {
        const std::string raw = pathBytes(path);
        BlockHolder block(baseAllocateZeroed(raw.size() + 2));
        if (block) std::memcpy(block.get(), raw.data(), raw.size());
        return block;
    });
}
