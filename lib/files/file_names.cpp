#include "lib/files/file_names.h"

#include "base/memory_guard.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/objects/object_holder.h"

#include <algorithm>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {
constexpr std::size_t kMaxNameLength = 255;  // units of a counted name
constexpr int kLastNumber = 100;

char16_t safeUnit(char16_t unit)
{
    if (unit == u':') return u';';
    return std::u16string_view(u"/*?<>|\"").find(unit) == std::u16string_view::npos ? unit : u'-';
}

std::u16string_view shown(TovStringRef text)
{
    return text == nullptr ? u"(null)" : unitsOf(text);
}
}  // namespace

std::int32_t feCheckFileNameRef(HFSUniStr255* name)
{
    if (name->length == 0) return kErrNothingUsable;
    const std::size_t length = std::min<std::size_t>(name->length, kMaxNameLength);
    for (std::size_t i = 0; i < length; i++) {
        if (name->unicode[i] == 0) {
            name->length = static_cast<std::uint16_t>(i);
            return kErrNone;
        }
        name->unicode[i] = safeUnit(name->unicode[i]);
    }
    char16_t& first = name->unicode[0];
    char16_t& last = name->unicode[length - 1];
    if (first == u'.') first = u',';
    if (last == u' ' || last == u'.') last = u'-';
    return kErrNone;
}

TovStringRef feGetUniqueFileName(const FSRef* parent, TovStringRef base, TovStringRef suffix)
{
    return baseGuardMemory([&]() -> TovStringRef {
        for (int number = 1;; number++) {
            std::u16string units(shown(base));
            units += u' ';
            const std::string digits = std::to_string(number);
            units.append(digits.begin(), digits.end());
            units += shown(suffix);
            ObjectHolder<TovStringRef> name(createString(units));
            if (!name || number == kLastNumber || !feItemExists(parent, name.get())) {
                return name.take();
            }
        }
    });
}
