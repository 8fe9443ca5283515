#include "pictures/xml_scanner.h"

#include "pictures/xml_references.h"

#include <cstdint>
#include <iterator>
#include <list>
#include <optional>
#include <string>
#include <vector>

namespace pinorama {
namespace {
// What a byte of the document is. Packets are read while somebody waits, so that each of their
// bytes is looked up and none is compared with several.
struct ByteKinds {
    bool isBlank[256] = {};
    bool endsName[256] = {};

    constexpr ByteKinds()
    {
        for (const char byte : std::string_view(" \t\r\n")) {
            isBlank[static_cast<std::uint8_t>(byte)] = true;
            endsName[static_cast<std::uint8_t>(byte)] = true;
        }
        // No name has a zero byte in it, and nothing that follows one is read.
        for (const char byte : std::string_view("/>=\"'<&\0", 8)) {
            endsName[static_cast<std::uint8_t>(byte)] = true;
        }
    }
};
constexpr ByteKinds kKinds;
constexpr std::string_view kXmlSpace = "http://www.w3.org/XML/1998/namespace";

struct QualifiedName {
    std::string_view prefix;
    std::string_view local;
};

QualifiedName split(std::string_view name)
{
    const std::size_t colon = name.find(':');
    if (colon == name.npos) return {{}, name};
    return {name.substr(0, colon), name.substr(colon + 1)};
}

// A prefix that stands for a namespace, within the elements at `depth` and below.
struct Binding {
    std::string_view prefix;
    std::string_view space;
    std::size_t depth;
};

struct RawAttribute {
    std::string_view name;
    std::string_view value;
};

class Scanner {
public:
    Scanner(std::string_view document, XmlHandler& handler)
        : rest_(document),
          hasZero_(has(document, '\0')),
          hasReferences_(has(document, '&')),
          handler_(handler)
    {
    }

    bool scan()
    {
        do {
            if (!step()) return false;
        } while ((!open_.empty() || !hasBegun_) && handler_.wants(rest_));
        return true;
    }

private:
    static bool has(std::string_view text, char character)
    {
        return text.find(character) != text.npos;
    }

    // Nearly no document has one anywhere, which is looked up once.
    bool hasZero(std::string_view text) const { return hasZero_ && has(text, '\0'); }

    // Reads one piece: a tag, a text, or something that is passed over.
    bool step()
    {
        const std::size_t tag = rest_.find('<');
        if (tag == rest_.npos || hasZero(rest_.substr(0, tag))) return false;
        if (tag != 0) return takeText(tag);
        if (rest_.starts_with("<?")) return passOver("?>");
        if (rest_.starts_with("<!--")) return passOver("-->");
        if (rest_.starts_with("<![CDATA[")) return takeLiteral();
        if (rest_.starts_with("<!")) return false;  // a document type
        return rest_.starts_with("</") ? takeEnd() : takeStart();
    }

    bool passOver(std::string_view end)
    {
        const std::size_t found = rest_.find(end);
        if (found == rest_.npos) return false;
        rest_.remove_prefix(found + end.size());
        return true;
    }

    bool takeText(std::size_t length)
    {
        const std::string_view raw = rest_.substr(0, length);
        rest_.remove_prefix(length);
        if (open_.empty()) return true;  // a byte-order mark, blanks
        resolved_.clear();
        const std::optional<std::string_view> text = resolve(raw);
        if (text) handler_.text(*text);
        return text.has_value();
    }

    bool takeLiteral()
    {
        constexpr std::size_t kStart = 9;
        const std::size_t end = rest_.find("]]>");
        if (end == rest_.npos || open_.empty()) return false;
        const std::string_view text = rest_.substr(kStart, end - kStart);
        if (hasZero(text)) return false;
        handler_.text(text);
        rest_.remove_prefix(end + 3);
        return true;
    }

    bool takeEnd()
    {
        rest_.remove_prefix(2);
        const std::string_view name = takeName();
        skipBlanks();
        if (open_.empty() || open_.back() != name || !take('>')) return false;
        handler_.endElement();
        closeElement();
        return true;
    }

    bool takeStart()
    {
        rest_.remove_prefix(1);
        const std::string_view name = takeName();
        if (name.empty() || open_.size() >= XmlLimits::kDepth) return false;
        hasBegun_ = true;
        open_.push_back(name);
        if (!takeAttributes()) return false;
        const bool isEmpty = take('/');
        if (!take('>') || !report(name)) return false;
        if (!isEmpty && !handler_.wantsContent() && !passOverContent()) return false;
        if (isEmpty) {
            handler_.endElement();
            closeElement();
        }
        return true;
    }

    // Goes to the end tag of the element that has just been opened.
    bool passOverContent()
    {
        for (std::size_t depth = 0;;) {
            const std::size_t tag = rest_.find('<');
            if (tag == rest_.npos || tag + 1 == rest_.size()) return false;
            rest_.remove_prefix(tag);
            if (rest_[1] == '/') {
                if (depth == 0) return true;
                depth--;
                if (!passOver(">")) return false;
            } else if (rest_[1] == '!' || rest_[1] == '?') {
                if (!handler_.wants(rest_) || !passOverOther()) return false;
            } else {
                const std::size_t end = endOfTag();
                if (end == rest_.npos) return false;
                if (rest_[end - 1] != '/') depth++;
                rest_.remove_prefix(end + 1);
            }
        }
    }

    // Where the start tag at the front ends; npos if it does not. Values may have the same letter.
    std::size_t endOfTag() const
    {
        for (std::size_t i = 1; i < rest_.size(); i++) {
            if (rest_[i] == '>') return i;
            if (rest_[i] != '"' && rest_[i] != '\'') continue;
            i = rest_.find(rest_[i], i + 1);
            if (i == rest_.npos) break;
        }
        return rest_.npos;
    }

    // A processing instruction, a comment or a literal text; nothing else that begins like them.
    bool passOverOther()
    {
        if (rest_.starts_with("<?")) return passOver("?>");
        if (rest_.starts_with("<!--")) return passOver("-->");
        return rest_.starts_with("<![CDATA[") && passOver("]]>");
    }

    bool takeAttributes()
    {
        attributes_.clear();
        resolved_.clear();
        while (true) {
            skipBlanks();
            if (rest_.empty()) return false;
            if (rest_[0] == '/' || rest_[0] == '>') return true;
            const std::string_view name = takeName();
            skipBlanks();
            if (name.empty() || !take('=')) return false;
            skipBlanks();
            const bool isBinding = name.starts_with("xmlns");
            if (!isBinding && !handler_.wantsAttribute(name)) {
                if (!passOverValue()) return false;
                continue;
            }
            const std::optional<std::string_view> value = takeValue();
            if (!value || attributes_.size() >= XmlLimits::kAttributes) return false;
            const bool isDefault = name == "xmlns";
            if (isDefault || name.starts_with("xmlns:")) {
                const std::string_view prefix = isDefault ? std::string_view() : name.substr(6);
                if (value->size() > XmlLimits::kNameLength) return false;
                if (bindings_.size() >= XmlLimits::kPrefixes) return false;
                bindings_.push_back({prefix, kept(*value), open_.size()});
            } else {
                attributes_.push_back({name, *value});
            }
        }
    }

    bool passOverValue()
    {
        if (rest_.empty() || (rest_[0] != '"' && rest_[0] != '\'')) return false;
        const std::size_t end = rest_.find(rest_[0], 1);
        if (end == rest_.npos) return false;
        rest_.remove_prefix(end + 1);
        return true;
    }

    std::optional<std::string_view> takeValue()
    {
        if (rest_.empty() || (rest_[0] != '"' && rest_[0] != '\'')) return std::nullopt;
        const std::size_t end = rest_.find(rest_[0], 1);
        if (end == rest_.npos) return std::nullopt;
        const std::string_view raw = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        if (has(raw, '<') || hasZero(raw)) return std::nullopt;
        return resolve(raw);
    }

    // `raw` with its references resolved: itself if there are none, else what stays until the next
    // tag or text.
    std::optional<std::string_view> resolve(std::string_view raw)
    {
        if (!hasReferences_ || !has(raw, '&')) return raw;
        resolved_.emplace_back();
        if (!appendXmlText(raw, resolved_.back())) return std::nullopt;
        return resolved_.back();
    }

    // A value for longer than until the next tag.
    std::string_view kept(std::string_view value)
    {
        const bool isResolved = !resolved_.empty() && value.data() == resolved_.back().data();
        if (!isResolved) return value;  // of the document
        spaces_.splice(spaces_.end(), resolved_, std::prev(resolved_.end()));
        return spaces_.back();
    }

    // Empty for no name, or one that is too long.
    std::string_view takeName()
    {
        std::size_t end = 0;
        while (end < rest_.size() && !kKinds.endsName[static_cast<std::uint8_t>(rest_[end])]) end++;
        if (end == rest_.size() || end > XmlLimits::kNameLength || rest_[end] == '\0') return {};
        const std::string_view name = rest_.substr(0, end);
        rest_.remove_prefix(end);
        return name;
    }

    bool take(char character)
    {
        if (rest_.empty() || rest_[0] != character) return false;
        rest_.remove_prefix(1);
        return true;
    }

    void skipBlanks()
    {
        std::size_t end = 0;
        while (end < rest_.size() && kKinds.isBlank[static_cast<std::uint8_t>(rest_[end])]) end++;
        rest_.remove_prefix(end);
    }

    std::optional<std::string_view> spaceOf(std::string_view prefix) const
    {
        for (auto binding = bindings_.rbegin(); binding != bindings_.rend(); ++binding) {
            if (binding->prefix == prefix) return binding->space;
        }
        if (prefix == "xml") return kXmlSpace;
        return prefix.empty() ? std::optional<std::string_view>("") : std::nullopt;
    }

    // Tells the handler of the element that has just been opened.
    bool report(std::string_view name)
    {
        const QualifiedName element = split(name);
        const auto space = spaceOf(element.prefix);
        if (!space) return false;
        reported_.clear();
        for (const RawAttribute& raw : attributes_) {
            const QualifiedName attribute = split(raw.name);
            // The default namespace is not that of attributes.
            const auto attributeSpace = attribute.prefix.empty()
                                            ? std::optional<std::string_view>("")
                                            : spaceOf(attribute.prefix);
            if (!attributeSpace) return false;
            reported_.push_back({{*attributeSpace, attribute.local}, raw.value});
        }
        handler_.startElement({*space, element.local}, reported_);
        return true;
    }

    void closeElement()
    {
        while (!bindings_.empty() && bindings_.back().depth >= open_.size()) bindings_.pop_back();
        open_.pop_back();
    }

    std::string_view rest_;
    const bool hasZero_;        // somewhere in the document
    const bool hasReferences_;  // the same
    XmlHandler& handler_;
    std::vector<std::string_view> open_;  // the names of the elements around this place
    std::vector<Binding> bindings_;
    std::vector<RawAttribute> attributes_;  // of the tag that is being read
    std::vector<XmlAttribute> reported_;    // the same in their namespaces
    std::list<std::string> spaces_;         // namespaces that had references
    std::list<std::string> resolved_;       // values of them, or a text, that had references
    bool hasBegun_ = false;
};
}  // namespace

bool scanXml(std::string_view document, XmlHandler& handler)
{
    return Scanner(document, handler).scan();
}

}  // namespace pinorama
