#include "base/random_bytes.h"

#include <unistd.h>

bool platform::fillWithRandomBytes(void* dest, std::size_t count)
{
    return getentropy(dest, count) == 0;
}
