#include "lib/objects/collections.h"

#include "base/alloc.h"

#include <limits>
#include <new>

using namespace pinorama;

namespace {
constexpr std::int32_t kFirstCapacity = 8;  // items; doubled whenever they are used up

// Ensures capacity for one more item in the block of a collection.
template <typename Item>
bool makeRoom(Item*& items, std::int32_t count, std::int32_t& capacity)
{
    if (count < capacity) return true;
    if (capacity > std::numeric_limits<std::int32_t>::max() / 2) return false;
    const std::int32_t wanted = capacity == 0 ? kFirstCapacity : capacity * 2;
    void* grown = baseReallocate(items, static_cast<std::size_t>(wanted) * sizeof(Item));
    if (grown == nullptr) return false;
    items = static_cast<Item*>(grown);
    capacity = wanted;
    return true;
}

template <typename Kind>
Kind* createCollection(TovTypeID kind)
{
    void* block = baseAllocate(sizeof(Kind));
    if (block == nullptr) return nullptr;
    auto* collection = new (block) Kind{};
    collection->kind = kind;
    collection->references = 1;
    return collection;
}

TovDictionaryEntry* findEntry(TovDictionaryRef dict, TovStringRef key)
{
    for (std::int32_t i = 0; i < dict->count; i++) {
        if (equalUnits(dict->entries[i].key, key)) return &dict->entries[i];
    }
    return nullptr;
}

void removeEntry(TovDictionaryRef dict, TovDictionaryEntry* entry)
{
    const TovDictionaryEntry removed = *entry;
    TovDictionaryEntry* const end = dict->entries + dict->count;
    for (TovDictionaryEntry* next = entry + 1; next < end; next++) *(next - 1) = *next;
    dict->count--;
    releaseObject(removed.key);
    releaseObject(removed.value);
}
}  // namespace

TovArrayRef TovArrayCreate()
{
    return createCollection<TovArray>(TovTypeID::array);
}

void TovArrayAppend(TovArrayRef array, TovTypeRef value)
{
    if (array == nullptr || !makeRoom(array->items, array->count, array->capacity)) return;
    array->items[array->count++] = uCFRetain(value);
}

std::int32_t TovArrayGetCount(TovArrayRef array)
{
    return array == nullptr ? 0 : array->count;
}

TovTypeRef TovArrayGetValue(TovArrayRef array, std::int32_t index)
{
    if (array == nullptr || index < 0 || index >= array->count) return nullptr;
    return array->items[index];
}

TovDictionaryRef TovDictionaryCreate()
{
    return createCollection<TovDictionary>(TovTypeID::dictionary);
}

void TovDictionarySetValue(TovDictionaryRef dict, TovStringRef key, TovTypeRef value)
{
    if (dict == nullptr || key == nullptr) return;
    TovDictionaryEntry* entry = findEntry(dict, key);
    if (value == nullptr) {
        if (entry != nullptr) removeEntry(dict, entry);
        return;
    }
    if (entry != nullptr) {
        TovTypeRef earlier = entry->value;
        entry->value = uCFRetain(value);
        releaseObject(earlier);
        return;
    }
    if (!makeRoom(dict->entries, dict->count, dict->capacity)) return;
    TovStringRef ownKey = key->isMutable ? createString(unitsOf(key)) : asString(uCFRetain(key));
    if (ownKey == nullptr) return;
    dict->entries[dict->count++] = {ownKey, uCFRetain(value)};
}

TovTypeRef TovDictionaryGetValue(TovDictionaryRef dict, TovStringRef key)
{
    if (dict == nullptr || key == nullptr) return nullptr;
    const TovDictionaryEntry* entry = findEntry(dict, key);
    return entry == nullptr ? nullptr : entry->value;
}

TovArrayRef pinorama::asArray(TovTypeRef value)
{
    if (TovGetTypeID(value) != TovTypeID::array) return nullptr;
    return static_cast<TovArrayRef>(const_cast<TovObject*>(value));
}

TovDictionaryRef pinorama::asDictionary(TovTypeRef value)
{
    if (TovGetTypeID(value) != TovTypeID::dictionary) return nullptr;
    return static_cast<TovDictionaryRef>(const_cast<TovObject*>(value));
}
