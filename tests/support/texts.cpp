#include "tests/support/texts.h"

#include "base/utf8.h"
#include "lib/text/byte_texts.h"

using namespace pinorama;

test::Text test::text(std::string_view utf8)
{
    return Text(createStringFromUTF8(utf8));
}

test::Text test::mutableText(std::string_view utf8)
{
    const Text fixed = text(utf8);
    return Text(createString(unitsOf(fixed.get()), true));
}

std::optional<std::string> test::utf8(const TovString* string)
{
    if (string == nullptr) return std::nullopt;
    return displayUTF8(unitsOf(string));
}

std::optional<std::string> test::takeUTF8(TovStringRef string)
{
    const Text owned(string);
    return utf8(owned.get());
}
