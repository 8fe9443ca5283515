#include "pictures/extended_xmp.h"

#include "pictures/byte_order.h"
#include "pictures/xml_scanner.h"
#include "pictures/xmp_packet.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace pinorama {
namespace {
// A piece begins with the digest of its document in hexadecimal digits, the document's length and
// the place of the piece in it.
constexpr std::size_t kNameLength = 32;
constexpr std::size_t kHeaderSize = kNameLength + 4 + 4;

// Looks for the name of the further document in a packet.
class NameFinder final : public XmlHandler {
public:
    const std::string& name() const { return name_; }

    void startElement(const XmlName& name, std::span<const XmlAttribute> attributes) override
    {
        isIn_ = name == kProperty;
        for (const XmlAttribute& attribute : attributes) {
            if (attribute.name == kProperty) take(attribute.value);
        }
    }
    void text(std::string_view text) override
    {
        if (isIn_) take(text);
    }
    void endElement() override { isIn_ = false; }
    bool wants(std::string_view /*rest*/) const override { return name_.empty(); }

private:
    static constexpr XmlName kProperty = {"http://ns.adobe.com/xmp/note/", "HasExtendedXMP"};

    void take(std::string_view text)
    {
        if (text.size() == kNameLength) name_ = text;
    }

    bool isIn_ = false;
    std::string name_;
};

struct Piece {
    std::uint64_t offset;
    ByteBlock content;
};

// The pieces of that document whose content is read, in their order.
std::vector<Piece> piecesOf(const std::string& name, const std::vector<ByteBlock>& segments)
{
    std::vector<Piece> pieces;
    for (const ByteBlock& segment : segments) {
        const ByteView header = segment.view(0, kHeaderSize);
        if (header.empty() || !std::equal(name.begin(), name.end(), header.begin(),
                                          [](char letter, std::uint8_t byte) {
                                              return static_cast<std::uint8_t>(letter) == byte;
                                          })) {
            continue;
        }
        const std::uint64_t offset = bigEndian32(&header[kNameLength + 4]);
        if (offset < kMaxXmpLength) pieces.push_back({offset, segment.from(kHeaderSize)});
    }
    std::stable_sort(pieces.begin(), pieces.end(),
                     [](const Piece& a, const Piece& b) { return a.offset < b.offset; });
    return pieces;
}
}  // namespace

std::vector<std::uint8_t> extendedXmp(const JpegXmp& xmp)
{
    if (xmp.pieces.empty()) return {};
    NameFinder finder;
    const std::vector<std::uint8_t> packet =
        copyOf(xmp.packet.part(0, kMaxXmpLength), kMaxXmpLength);
    (void)scanXml({reinterpret_cast<const char*>(packet.data()), packet.size()}, finder);
    if (finder.name().empty()) return {};

    std::vector<std::uint8_t> document;
    for (const Piece& piece : piecesOf(finder.name(), xmp.pieces)) {
        if (piece.offset > document.size()) break;
        const ByteBlock rest = piece.content.from(document.size() - piece.offset);
        const auto length = std::min(rest.length(), kMaxXmpLength - document.size());
        const ByteView bytes = rest.view(0, static_cast<std::size_t>(length));
        document.insert(document.end(), bytes.begin(), bytes.end());
    }
    return document;
}

}  // namespace pinorama
