#include "pictures/xml_scanner.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

namespace pinorama {
namespace {
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kNameEnds = " \t\r\n/>=\"'<&";
constexpr std::string_view kXmlSpace = "http://www.w3.org/XML/1998/namespace";

void appendUTF8(std::uint32_t character, std::string& out)
{
    const auto put = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xc0 | character >> 6);
        put(0x80 | (character & 0x3f));
    } else if (character < 0x10000) {
        put(0xe0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3f));
        put(0x80 | (character & 0x3f));
    } else {
        put(0xf0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3f));
        put(0x80 | (character >> 6 & 0x3f));
        put(0x80 | (character & 0x3f));
    }
}

// "&#233;" or "&#xe9;", without the ampersand and the semicolon.
bool appendReference(std::string_view digits, std::string& out)
{
    digits.remove_prefix(1);
    const bool isHex = !digits.empty() && digits[0] == 'x';
    if (isHex) digits.remove_prefix(1);
    std::uint32_t character = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, problem] = std::from_chars(digits.data(), end, character, isHex ? 16 : 10);
    const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
    if (problem != std::errc() || stop != end || character == 0 || character > 0x10ffff ||
        isSurrogate) {
        return false;
    }
    appendUTF8(character, out);
    return true;
}

// Appends `raw` with its references resolved. False for an entity that XML itself does not have.
bool appendResolved(std::string_view raw, std::string& out)
{
    static constexpr struct {
        std::string_view name;
        char character;
    } kEntities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    while (true) {
        const std::size_t start = raw.find('&');
        out += raw.substr(0, start);
        if (start == raw.npos) return true;
        raw.remove_prefix(start + 1);
        constexpr std::size_t kMaxLength = 12;
        const std::size_t end = raw.substr(0, kMaxLength).find(';');
        if (end == raw.npos || end == 0) return false;
        const std::string_view entity = raw.substr(0, end);
        raw.remove_prefix(end + 1);
        if (entity[0] == '#') {
            if (!appendReference(entity, out)) return false;
            continue;
        }
        bool isKnown = false;
        for (const auto& known : kEntities) {
            if (known.name != entity) continue;
            out += known.character;
            isKnown = true;
        }
        if (!isKnown) return false;
    }
}

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
    std::string space;
    std::size_t depth;
};

struct RawAttribute {
    std::string_view name;
    std::string value;
};

class Scanner {
public:
    Scanner(std::string_view document, XmlHandler& handler) : rest_(document), handler_(handler) {}

    bool scan()
    {
        do {
            if (!step()) return false;
        } while (!open_.empty() || !hasBegun_);
        return true;
    }

private:
    // Reads one piece: a tag, a text, or something that is passed over.
    bool step()
    {
        const std::size_t tag = rest_.find('<');
        if (tag == rest_.npos || rest_.substr(0, tag).find('\0') != rest_.npos) return false;
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
        std::string text;
        if (!appendResolved(raw, text)) return false;
        handler_.text(text);
        return true;
    }

    bool takeLiteral()
    {
        constexpr std::size_t kStart = 9;
        const std::size_t end = rest_.find("]]>");
        if (end == rest_.npos || open_.empty()) return false;
        const std::string_view text = rest_.substr(kStart, end - kStart);
        if (text.find('\0') != text.npos) return false;
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
        if (isEmpty) {
            handler_.endElement();
            closeElement();
        }
        return true;
    }

    bool takeAttributes()
    {
        attributes_.clear();
        while (true) {
            skipBlanks();
            if (rest_.empty()) return false;
            if (rest_[0] == '/' || rest_[0] == '>') return true;
            const std::string_view name = takeName();
            skipBlanks();
            if (name.empty() || !take('=')) return false;
            skipBlanks();
            std::optional<std::string> value = takeValue();
            if (!value || attributes_.size() >= XmlLimits::kAttributes) return false;
            const bool isDefault = name == "xmlns";
            if (isDefault || name.starts_with("xmlns:")) {
                const std::string_view prefix = isDefault ? std::string_view() : name.substr(6);
                if (value->size() > XmlLimits::kNameLength) return false;
                if (bindings_.size() >= XmlLimits::kPrefixes) return false;
                bindings_.push_back({prefix, *std::move(value), open_.size()});
            } else {
                attributes_.push_back({name, *std::move(value)});
            }
        }
    }

    std::optional<std::string> takeValue()
    {
        if (rest_.empty() || (rest_[0] != '"' && rest_[0] != '\'')) return std::nullopt;
        const std::size_t end = rest_.find(rest_[0], 1);
        if (end == rest_.npos) return std::nullopt;
        const std::string_view raw = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        if (raw.find_first_of(std::string_view("<\0", 2)) != raw.npos) return std::nullopt;
        std::string value;
        if (!appendResolved(raw, value)) return std::nullopt;
        return value;
    }

    // Empty for no name, or one that is too long.
    std::string_view takeName()
    {
        const std::size_t end = rest_.find_first_of(kNameEnds);
        if (end == rest_.npos || end > XmlLimits::kNameLength) return {};
        const std::string_view name = rest_.substr(0, end);
        rest_.remove_prefix(end);
        return name.find('\0') == name.npos ? name : std::string_view();
    }

    bool take(char character)
    {
        if (rest_.empty() || rest_[0] != character) return false;
        rest_.remove_prefix(1);
        return true;
    }

    void skipBlanks()
    {
        const std::size_t end = rest_.find_first_not_of(kBlanks);
        rest_.remove_prefix(end == rest_.npos ? rest_.size() : end);
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
        std::vector<XmlAttribute> attributes;
        for (RawAttribute& raw : attributes_) {
            const QualifiedName attribute = split(raw.name);
            // The default namespace is not that of attributes.
            const auto attributeSpace = attribute.prefix.empty()
                                            ? std::optional<std::string_view>("")
                                            : spaceOf(attribute.prefix);
            if (!attributeSpace) return false;
            attributes.push_back({{*attributeSpace, attribute.local}, std::move(raw.value)});
        }
        handler_.startElement({*space, element.local}, attributes);
        return true;
    }

    void closeElement()
    {
        while (!bindings_.empty() && bindings_.back().depth >= open_.size()) bindings_.pop_back();
        open_.pop_back();
    }

    std::string_view rest_;
    XmlHandler& handler_;
    std::vector<std::string_view> open_;  // the names of the elements around this place
    std::vector<Binding> bindings_;
    std::vector<RawAttribute> attributes_;  // of the tag that is being read
    bool hasBegun_ = false;
};
}  // namespace

bool scanXml(std::string_view document, XmlHandler& handler)
{
    return Scanner(document, handler).scan();
}

}  // namespace pinorama
