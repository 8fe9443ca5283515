#include "tests/support/icu_texts.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {
std::int32_t lengthOf(std::string_view bytes)
{
    return static_cast<std::int32_t>(bytes.size());
}

std::int32_t lengthOf(std::u16string_view units)
{
    return static_cast<std::int32_t>(units.size());
}

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

// Makes a conversion fail at a character that it cannot convert, instead of replacing it.
UConverter* macRoman()
{
    static const std::unique_ptr<UConverter, ConverterCloser> converter = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<UConverter, ConverterCloser> made(ucnv_open("macintosh", &status));
        ucnv_setFromUCallBack(made.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                              &status);
        if (U_FAILURE(status)) std::abort();
        return made;
    }();
    return converter.get();
}

// The result of `convert(dest, room, &length, &status)`, which takes less than `room` elements.
template <typename Element, typename Convert>
std::optional<std::basic_string<Element>> converted(std::size_t room, Convert convert)
{
    std::basic_string<Element> result(room, Element());
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    convert(result.data(), static_cast<std::int32_t>(room), &length, &status);
    if (U_FAILURE(status)) return std::nullopt;
    result.resize(static_cast<std::size_t>(length));
    return result;
}
}  // namespace

std::optional<std::string> test::utf8ByICU(std::u16string_view units)
{
    return converted<char>(units.size() * 3 + 1, [&](auto dest, auto room, auto count, auto error) {
        u_strToUTF8(dest, room, count, units.data(), lengthOf(units), error);
    });
}

std::string test::displayUTF8ByICU(std::u16string_view units)
{
    return converted<char>(units.size() * 3 + 1,
                           [&](auto dest, auto room, auto count, auto error) {
                               u_strToUTF8WithSub(dest, room, count, units.data(), lengthOf(units),
                                                  0xfffd, nullptr, error);
                           })
        .value();
}

std::optional<std::u16string> test::unitsByICU(std::string_view utf8)
{
    return converted<char16_t>(utf8.size() + 1, [&](auto dest, auto room, auto count, auto error) {
        u_strFromUTF8(dest, room, count, utf8.data(), lengthOf(utf8), error);
    });
}

std::optional<std::string> test::macRomanByICU(std::u16string_view units)
{
    auto bytes =
        converted<char>(units.size() + 1, [&](auto dest, auto room, auto count, auto error) {
            *count = ucnv_fromUChars(macRoman(), dest, room, units.data(), lengthOf(units), error);
        });
    // Characters that are mostly invisible are left out without an error; each of the others takes
    // a byte.
    return bytes && bytes->size() == units.size() ? bytes : std::nullopt;
}

std::u16string test::macRomanUnitsByICU(std::string_view bytes)
{
    return converted<char16_t>(bytes.size() + 1,
                               [&](auto dest, auto room, auto count, auto error) {
                                   *count = ucnv_toUChars(macRoman(), dest, room, bytes.data(),
                                                          lengthOf(bytes), error);
                               })
        .value();
}
