// Bytes that are kept for later in a file without a name, however many they are. It is gone with
// the program.

#pragma once

#include "base/descriptor.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace pinorama {

class SpoolFile {
public:
    // Adds bytes, at once or later. False with errno set if there is no room for them.
    bool append(std::string_view bytes);

    std::uint64_t size() const { return size_; }

    // Passes all bytes on, in pieces, until `take` returns false. False then, and with errno set if
    // they cannot be read.
    bool copyTo(const std::function<bool(std::string_view bytes)>& take) const;

private:
    bool flush();

    DescriptorHolder file_;   // none while all is in `pending_`
    std::string pending_;     // what comes behind the file
    std::uint64_t size_ = 0;  // bytes in all
};

}  // namespace pinorama
