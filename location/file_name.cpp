#include "location/file_name.h"

using namespace pinorama;

TovStringRef gpsCopyFileName(TovStringRef path)
{
    if (path == nullptr) return nullptr;
    std::u16string_view name = unitsOf(path);
    while (name.size() > 1 && name.back() == u'/') name.remove_suffix(1);
    const std::size_t slash = name.rfind(u'/');
    if (slash != name.npos && name.size() > 1) name.remove_prefix(slash + 1);
    return createString(name);
}
