// Tables of texts: an entry at the start is found whatever follows it, and every skipped line is
// reported once.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "lib/ui/strings_table.h"

namespace {
void expect(bool isTrue)
{
    if (!isTrue) __builtin_trap();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const StringsTable alone(bytes);
    const auto signs = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '='));
    const auto lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
    expect(alone.size() <= signs);
    expect(alone.damagedLines().size() <= lines);
    expect(std::is_sorted(alone.damagedLines().begin(), alone.damagedLines().end()));
    for (const std::size_t line : alone.damagedLines()) expect(line >= 1 && line <= lines);

    // A byte order mark is one at the start of a table only.
    const std::string_view rest = bytes.starts_with("\xef\xbb\xbf") ? bytes.substr(3) : bytes;
    const StringsTable after("\"first\" = \"entry\";\n" + std::string(rest));
    expect(after.find(u"first").has_value());
    expect(after.size() >= alone.size());
    return 0;
}
