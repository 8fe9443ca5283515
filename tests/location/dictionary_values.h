// Values of a dictionary, and a dictionary with one of them.

#pragma once

#include <cstdint>
#include <string_view>

#include "lib/objects/collections.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "tests/support/texts.h"

namespace test {

using Value = ObjectHolder<TovTypeRef>;

inline Value integer(std::int64_t value)
{
    return Value(TovNumberCreateSInt64(value));
}

inline Value floating(double value)
{
    return Value(TovNumberCreateDouble(value));
}

inline Value string(std::string_view utf8)
{
    return Value(text(utf8).take());
}

inline Value boolean(bool value)
{
    return Value(TovBooleanCreate(value));
}

inline Value date(double absoluteTime)
{
    return Value(TovDateCreate(absoluteTime));
}

template <typename... Values>
Value array(const Values&... values)
{
    TovArrayRef result = TovArrayCreate();
    (TovArrayAppend(result, values.get()), ...);
    return Value(result);
}

// A dictionary with one value under "key".
class Holding {
public:
    explicit Holding(const Value& value) : dictionary_(TovDictionaryCreate()), key_(text("key"))
    {
        TovDictionarySetValue(dictionary_.get(), key_.get(), value.get());
    }
    TovDictionaryRef dictionary() const { return dictionary_.get(); }
    TovStringRef key() const { return key_.get(); }

private:
    ObjectHolder<TovDictionaryRef> dictionary_;
    Text key_;
};

}  // namespace test
