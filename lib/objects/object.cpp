#include "lib/objects/object.h"

#include "base/alloc.h"
#include "lib/objects/collections.h"
#include "lib/objects/string.h"

#include <cassert>

using namespace pinorama;

namespace {
void freeString(const TovString* string)
{
    const void* ownUnits = string + 1;
    if (string->units != ownUnits) baseFree(string->units);
}

void freeArray(const TovArray* array)
{
    for (std::int32_t i = 0; i < array->count; i++) releaseObject(array->items[i]);
    baseFree(array->items);
}

void freeDictionary(const TovDictionary* dict)
{
    for (std::int32_t i = 0; i < dict->count; i++) {
        releaseObject(dict->entries[i].key);
        releaseObject(dict->entries[i].value);
    }
    baseFree(dict->entries);
}

void freeObject(TovTypeRef object)
{
    switch (object->kind) {
    case TovTypeID::string: freeString(static_cast<const TovString*>(object)); break;
    case TovTypeID::array: freeArray(static_cast<const TovArray*>(object)); break;
    case TovTypeID::dictionary: freeDictionary(static_cast<const TovDictionary*>(object)); break;
    case TovTypeID::none:
    case TovTypeID::number:
    case TovTypeID::boolean:
    case TovTypeID::date: break;
    }
    baseFree(const_cast<TovObject*>(object));
}
}  // namespace

TovTypeID TovGetTypeID(TovTypeRef value)
{
    return value == nullptr ? TovTypeID::none : value->kind;
}

TovTypeRef uCFRetain(TovTypeRef ref)
{
    if (ref != nullptr && ref->references != kSharedForever) ref->references++;
    return ref;
}

std::int32_t uCFGetRetainCount(TovTypeRef ref)
{
    return ref == nullptr ? 0 : ref->references;
}

void pinorama::releaseObject(TovTypeRef ref)
{
    if (ref == nullptr || ref->references == kSharedForever) return;
    assert(ref->references > 0);
    if (--ref->references == 0) freeObject(ref);
}
