#include "tests/support/random_texts.h"

#include "base/mac_roman.h"

#include <iterator>
#include <random>

using namespace pinorama;

namespace {
using Random = std::mt19937;

// From `first` to `last`, both included. The standard distributions differ between libraries.
unsigned between(Random& random, unsigned first, unsigned last)
{
    return first + static_cast<unsigned>(random() % (last - first + 1));
}

template <typename Character>
Character oneOf(Random& random, std::basic_string_view<Character> characters)
{
    return characters[random() % characters.size()];
}

constexpr std::u16string_view kHexDigits = u"0123456789ABCDEFabcdef";

// The kinds of characters of a text: one of them at a time, or an escape of an address.
void addUnits(Random& random, unsigned kind, std::u16string* text)
{
    const auto add = [text](unsigned unit) { *text += static_cast<char16_t>(unit); };
    switch (kind) {
    case 0: return add(between(random, 'A', 'z'));
    case 1:
        if (random() % 4 == 0) {
            add(u'%');
            add(oneOf<char16_t>(random, kHexDigits));
            return add(oneOf<char16_t>(random, kHexDigits));
        }
        return add(oneOf<char16_t>(random, u"&<>\"'%+/?#=;:@ ~"));
    case 2: return add(random() % 8 == 0 ? 0x7f : between(random, 0x01, 0x1f));
    case 3: return add(0);
    case 4: return add(between(random, 0x80, 0xff));
    case 5: return add(macRomanUnit(static_cast<std::uint8_t>(between(random, 0x80, 0xff))));
    case 6: return add(between(random, 0x100, 0x7ff));
    case 7:
        return add(random() % 2 == 0 ? between(random, 0x800, 0xd7ff)
                                     : between(random, 0xe000, 0xffff));
    case 8: add(between(random, 0xd800, 0xdbff)); return add(between(random, 0xdc00, 0xdfff));
    default: return add(between(random, 0xd800, 0xdfff));
    }
}
constexpr unsigned kUnitKinds = 10;

void addBytes(Random& random, unsigned kind, std::string* bytes)
{
    constexpr std::string_view kTwo[] = {"\u0080", "\u00e9", "\u07ff"};
    constexpr std::string_view kThree[] = {"\u0800", "\u20ac", "\ud7ff", "\uffff"};
    constexpr std::string_view kFour[] = {"\U00010000", "\U0001f4f7", "\U0010ffff"};
    constexpr std::string_view kCut[] = {"\xc3", "\xe2\x82", "\xf0\x9f\x93", "\xff"};
    constexpr std::string_view kForbidden[] = {"\xc0\x80", "\xe0\x9f\xbf", "\xed\xa0\x80",
                                               "\xf4\x90\x80\x80"};
    switch (kind) {
    case 0: *bytes += static_cast<char>(between(random, 0x01, 0x7f)); return;
    case 1: *bytes += '\0'; return;
    case 2: *bytes += kTwo[random() % std::size(kTwo)]; return;
    case 3: *bytes += kThree[random() % std::size(kThree)]; return;
    case 4: *bytes += kFour[random() % std::size(kFour)]; return;
    case 5: *bytes += static_cast<char>(between(random, 0x80, 0xbf)); return;
    case 6: *bytes += kCut[random() % std::size(kCut)]; return;
    default: *bytes += kForbidden[random() % std::size(kForbidden)]; return;
    }
}
constexpr unsigned kByteKinds = 8;

std::string inHexadecimal(std::basic_string_view<char16_t> units)
{
    std::string text;
    for (const char16_t unit : units) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%04x ", unsigned{unit});
        text += digits;
    }
    return text;
}

std::string inHexadecimal(std::string_view bytes)
{
    return testing::PrintToString(bytes);
}

// At most `length` elements; a letter takes the place of a character that no longer fits.
template <typename Text, typename Add>
Text mixed(Random& random, std::size_t length, const std::vector<unsigned>& kinds, Add add)
{
    Text text;
    while (text.size() < length) {
        add(random, kinds[random() % kinds.size()], &text);
        if (text.size() <= length) continue;
        text.resize(length);
        text.back() = 'e';
    }
    return text;
}

template <typename Text, typename Add>
void forMixes(unsigned kindCount, Add add, const std::function<void(const Text&)>& check,
              std::size_t stride)
{
    Random random(test::kRandomTextSeed);
    const bool hadFailed = testing::Test::HasFailure();
    for (unsigned mix = 1; mix < 1u << kindCount; mix++) {
        std::vector<unsigned> kinds;
        for (unsigned kind = 0; kind < kindCount; kind++) {
            if ((mix >> kind & 1) != 0) kinds.push_back(kind);
        }
        for (std::size_t length = mix % stride; length <= test::kMaxRandomTextLength;
             length += stride) {
            const Text text = mixed<Text>(random, length, kinds, add);
            check(text);
            if (testing::Test::HasFailure() && !hadFailed) {
                FAIL() << "seed " << test::kRandomTextSeed << ", mix " << mix << ", length "
                       << length << ": " << inHexadecimal(text);
            }
        }
    }
}
}  // namespace

void test::forRandomTexts(const std::function<void(const std::u16string& text)>& check,
                          std::size_t stride)
{
    forMixes<std::u16string>(kUnitKinds, addUnits, check, stride);
}

void test::forRandomBytes(const std::function<void(const std::string& bytes)>& check,
                          std::size_t stride)
{
    forMixes<std::string>(kByteKinds, addBytes, check, stride);
}
