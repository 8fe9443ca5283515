#include "reader/byte_device.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace pinorama {

ByteDevice::ByteDevice(ByteSource& source) : source_(source)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 ByteDevice::size() const
{
    return static_cast<qint64>(
        std::min<std::uint64_t>(source_.size(), std::numeric_limits<qint64>::max()));
}

qint64 ByteDevice::readData(char* dest, qint64 wanted)
{
    qint64 done = 0;
    while (done < wanted) {
        const qint64 position = pos() + done;
        const qint64 count =
            std::min({wanted - done, size() - position, static_cast<qint64>(kMaxViewLength)});
        if (count <= 0) break;
        const ByteView bytes =
            source_.view(static_cast<std::uint64_t>(position), static_cast<std::size_t>(count));
        if (bytes.empty()) break;
        std::memcpy(dest + done, bytes.data(), bytes.size());
        done += count;
    }
    return done;
}

}  // namespace pinorama
