#include "lib/objects/values.h"

#include "base/alloc.h"
#include "base/truncate.h"

#include <new>

using namespace pinorama;

namespace {
template <typename Kind>
Kind* createValue(TovTypeID kind)
{
    void* block = baseAllocate(sizeof(Kind));
    if (block == nullptr) return nullptr;
    auto* value = new (block) Kind{};
    value->kind = kind;
    value->references = 1;
    return value;
}

}  // namespace

TovNumberRef TovNumberCreateSInt64(std::int64_t value)
{
    auto* number = createValue<TovNumber>(TovTypeID::number);
    if (number == nullptr) return nullptr;
    number->integer = value;
    number->floating = static_cast<double>(value);
    return number;
}

TovNumberRef TovNumberCreateDouble(double value)
{
    auto* number = createValue<TovNumber>(TovTypeID::number);
    if (number == nullptr) return nullptr;
    number->isFloat = true;
    number->integer = baseTruncate(value);
    number->floating = value;
    return number;
}

TovBooleanRef TovBooleanCreate(bool value)
{
    static TovBoolean shared[2] = {{{TovTypeID::boolean, kSharedForever}, false},
                                   {{TovTypeID::boolean, kSharedForever}, true}};
    return &shared[value ? 1 : 0];
}

TovDateRef TovDateCreate(double absoluteTime)
{
    auto* date = createValue<TovDate>(TovTypeID::date);
    if (date != nullptr) date->absoluteTime = absoluteTime;
    return date;
}

double TovDateGetAbsoluteTime(TovDateRef date)
{
    return date == nullptr ? 0.0 : date->absoluteTime;
}

const TovNumber* pinorama::asNumber(TovTypeRef value)
{
    return TovGetTypeID(value) == TovTypeID::number ? static_cast<const TovNumber*>(value)
                                                    : nullptr;
}

const TovBoolean* pinorama::asBoolean(TovTypeRef value)
{
    return TovGetTypeID(value) == TovTypeID::boolean ? static_cast<const TovBoolean*>(value)
                                                     : nullptr;
}

TovDateRef pinorama::asDate(TovTypeRef value)
{
    if (TovGetTypeID(value) != TovTypeID::date) return nullptr;
    return const_cast<TovDateRef>(static_cast<const TovDate*>(value));
}
