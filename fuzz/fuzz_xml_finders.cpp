// Searches for XML elements: the first line of the input is the tag, the rest the document.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_xml.h"

using namespace pinorama;

namespace {
struct Visit {
    TovStringRef document, tag;
    std::uint32_t count = 0;
};

// The walk and the search by number find the same elements.
void visit(TovStringRef item, void* context)
{
    auto* visit = static_cast<Visit*>(context);
    if (++visit->count > 16) return;  // each search by number starts from the beginning
    const StringHolder found(
        TovStringSimpleXMLParserFindNthData(visit->document, visit->tag, visit->count));
    if (!equalUnits(item, found.get())) __builtin_trap();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t line = input.substr(0, input.find('\n')).size();
    const StringHolder tag(TovStringFromUTF8(input.data(), static_cast<std::int32_t>(line)));
    const std::string_view rest = input.substr(line < size ? line + 1 : size);
    const StringHolder document(
        TovStringFromUTF8(rest.data(), static_cast<std::int32_t>(rest.size())));
    Visit context{document.get(), tag.get()};
    TovStringSimpleXMLParserForEachItem(document.get(), tag.get(), visit, &context);
    return 0;
}
