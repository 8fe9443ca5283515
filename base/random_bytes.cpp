#include "base/random_bytes.h"

#include <unistd.h>

namespace pinorama {

bool fillWithRandomBytes(void* dest, std::size_t count)
{
    return getentropy(dest, count) == 0;
}

}  // namespace pinorama
