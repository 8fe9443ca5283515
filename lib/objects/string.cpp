#include "lib/objects/string.h"

#include "base/alloc.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>

using namespace pinorama;

namespace {
// One block contains the object and, directly after it, its first units.
TovStringRef createWithCapacity(std::int32_t capacity, bool isMutable)
{
    if (capacity < 0 || capacity > kMaxStringLength) return nullptr;
    const std::size_t bytes =
        sizeof(TovString) + static_cast<std::size_t>(capacity) * sizeof(char16_t);
    void* block = baseAllocate(bytes);
    if (block == nullptr) return nullptr;
    auto* string = new (block) TovString{};
    string->kind = TovTypeID::string;
    string->references = 1;
    string->isMutable = isMutable;
    string->capacity = capacity;
    string->units = reinterpret_cast<char16_t*>(string + 1);
    return string;
}

constexpr std::int32_t kFirstCapacity = 16;  // units of a mutable text before it first grows
}  // namespace

TovStringRef pinorama::createString(std::u16string_view units, bool isMutable)
{
    if (units.size() > static_cast<std::size_t>(kMaxStringLength)) return nullptr;
    const auto length = static_cast<std::int32_t>(units.size());
    TovStringRef string =
        createWithCapacity(isMutable ? std::max(length, kFirstCapacity) : length, isMutable);
    if (string == nullptr) return nullptr;
    if (length != 0) std::memcpy(string->units, units.data(), units.size() * sizeof(char16_t));
    string->length = length;
    return string;
}

TovStringRef pinorama::createUnfilledString(std::int32_t length)
{
    TovStringRef string = createWithCapacity(length, false);
    if (string != nullptr) string->length = length;
    return string;
}

bool pinorama::reserveUnits(TovStringRef target, std::int32_t capacity)
{
    if (target == nullptr || !target->isMutable || capacity > kMaxStringLength) return false;
    if (capacity <= target->capacity) return true;

    const bool isInOwnBlock = target->units == reinterpret_cast<char16_t*>(target + 1);
    void* grown = baseReallocate(isInOwnBlock ? nullptr : target->units,
                                 static_cast<std::size_t>(capacity) * sizeof(char16_t));
    if (grown == nullptr) return false;
    if (isInOwnBlock) {
        std::memcpy(grown, target->units,
                    static_cast<std::size_t>(target->length) * sizeof(char16_t));
    }
    target->units = static_cast<char16_t*>(grown);
    target->capacity = capacity;
    return true;
}

char16_t* pinorama::extendUnits(TovStringRef target, std::int32_t added)
{
    if (target == nullptr || !target->isMutable) return nullptr;
    if (added < 0 || added > kMaxStringLength - target->length) return nullptr;

    const std::int32_t needed = target->length + added;
    if (needed > target->capacity) {
        const std::int64_t doubled = std::int64_t{target->capacity} * 2;
        const auto wanted =
            std::min<std::int64_t>(std::max<std::int64_t>(doubled, needed), kMaxStringLength);
        if (!reserveUnits(target, static_cast<std::int32_t>(wanted))) return nullptr;
    }
    char16_t* start = target->units + target->length;
    target->length = needed;
    return start;
}

bool pinorama::appendUnits(TovStringRef target, std::u16string_view units)
{
    if (target == nullptr || !target->isMutable) return false;
    if (units.empty()) return true;
    if (units.size() > static_cast<std::size_t>(kMaxStringLength)) return false;

    // The appended units may be the text's own, which growing moves.
    const std::less_equal<const char16_t*> notAfter;
    const bool isOwn = notAfter(target->units, units.data()) &&
                       notAfter(units.data(), target->units + target->length);
    const std::ptrdiff_t ownStart = isOwn ? units.data() - target->units : 0;
    char16_t* dest = extendUnits(target, static_cast<std::int32_t>(units.size()));
    if (dest == nullptr) return false;
    const char16_t* source = isOwn ? target->units + ownStart : units.data();
    std::memmove(dest, source, units.size() * sizeof(char16_t));
    return true;
}

std::u16string_view pinorama::unitsOf(const TovString* string)
{
    if (string == nullptr) return {};
    return {string->units, static_cast<std::size_t>(string->length)};
}

bool pinorama::equalUnits(const TovString* a, const TovString* b)
{
    if (a == b) return true;
    if (a == nullptr || b == nullptr) return false;
    return unitsOf(a) == unitsOf(b);
}

TovStringRef pinorama::asString(TovTypeRef value)
{
    if (TovGetTypeID(value) != TovTypeID::string) return nullptr;
    return static_cast<TovStringRef>(const_cast<TovObject*>(value));
}
