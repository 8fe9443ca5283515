// A small reader of XML for metadata: elements, attributes and texts in namespaces, and no more. A
// document type, and with it every entity of its own, is refused; depth, names and the number of
// attributes have a maximum. All texts are UTF-8.

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace pinorama {

struct XmlLimits {
    static constexpr std::size_t kDepth = 32;        // elements within each other
    static constexpr std::size_t kAttributes = 256;  // of one element
    static constexpr std::size_t kPrefixes = 64;     // that are in force at once
    static constexpr std::size_t kNameLength = 256;  // bytes of a name, or of a namespace
};

// `space` is the namespace, empty for none.
struct XmlName {
    std::string_view space;
    std::string_view local;

    friend bool operator==(const XmlName&, const XmlName&) = default;
};

struct XmlAttribute {
    XmlName name;
    std::string_view value;  // its entities resolved
};

// Receives what is read. Views are borrowed for the call.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void startElement(const XmlName& name, std::span<const XmlAttribute> attributes) = 0;
    virtual void text(std::string_view text) = 0;  // a piece of it; more may follow
    virtual void endElement() = 0;

    // Whether `rest`, all of the document from a tag or text on, is of use; if not, it is not read.
    virtual bool wants(std::string_view /*rest*/) const { return true; }

    // Whether an attribute is of use; if not, it is passed over. The name is as it is written, with
    // its prefix. Declarations of namespaces are always read.
    virtual bool wantsAttribute(std::string_view /*name*/) const { return true; }

    // Asked after startElement: whether what is in the element is of use. If not, its end is looked
    // up by the number of tags, and what stands before that is neither reported nor checked.
    virtual bool wantsContent() const { return true; }
};

// Reads the first element of `document` with everything in it; what is in front of it (declaration,
// processing instructions, comments) is passed over, and what follows is not looked at.
//
// Returns false when the document, as far as it is read, is malformed, goes beyond the limits or is
// refused. The handler has received what stands before that place.
// Source: Extensible Markup Language 1.0; Namespaces in XML 1.0.
bool scanXml(std::string_view document, XmlHandler& handler);

}  // namespace pinorama
