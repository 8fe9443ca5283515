#include "tests/support/texts.h"

#include "base/utf8.h"
#include "lib/text/byte_texts.h"

test::Text test::text(std::string_view utf8)
{
    return Text(platform::createStringFromUTF8(utf8));
}

test::Text test::mutableText(std::string_view utf8)
{
    const Text fixed = text(utf8);
    return Text(platform::createString(platform::unitsOf(fixed.get()), true));
}

std::optional<std::string> test::utf8(const TovString* string)
{
    if (string == nullptr) return std::nullopt;
    return platform::displayUTF8(platform::unitsOf(string));
}

std::optional<std::string> test::takeUTF8(TovStringRef string)
{
    const Text owned(string);
    return utf8(owned.get());
}
