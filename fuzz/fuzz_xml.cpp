// The reader of XML, with a handler that checks that what is opened is closed.

#include "pictures/xml_scanner.h"

#include <cstdint>

using namespace pinorama;

namespace {
class Balance final : public XmlHandler {
public:
    void startElement(const XmlName& name, std::span<const XmlAttribute> attributes) override
    {
        if (++depth > XmlLimits::kDepth) __builtin_trap();
        if (name.local.size() > XmlLimits::kNameLength) __builtin_trap();
        if (attributes.size() > XmlLimits::kAttributes) __builtin_trap();
    }
    void text(std::string_view text) override
    {
        if (depth == 0 || text.find('\0') != text.npos) __builtin_trap();
    }
    void endElement() override
    {
        if (depth-- == 0) __builtin_trap();
    }

    std::size_t depth = 0;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Balance balance;
    const std::string_view document(reinterpret_cast<const char*>(data), size);
    const bool isWhole = scanXml(document, balance);
    if (isWhole && balance.depth != 0) __builtin_trap();
    return 0;
}
