#include "lib/strings/tov_xml.h"

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"
#include "lib/strings/tov_search.h"
#include "lib/strings/tov_string.h"

namespace {
constexpr std::uint8_t kRespectCase = 1;

// The two tags of a name, and the search for elements between them.
class ElementFinder {
public:
    ElementFinder(TovStringRef text, TovStringRef tag) : text_(text)
    {
        if (text == nullptr || tag == nullptr) return;
        opening_ = StringHolder(tovFormat(u"<%@>", {tag}));
        closing_ = StringHolder(tovFormat(u"</%@>", {tag}));
    }

    // Moves on to the next opening tag; false if there is none.
    bool advance()
    {
        opensAt_ = TovStringPosition(text_, opening_.get(), next_, kRespectCase);
        if (opensAt_ < 0) return false;
        next_ = opensAt_ + TovStringGetLength(opening_.get());
        return true;
    }

    // What stands in the element there; null when it is not closed.
    TovStringRef createContent() const
    {
        // From the opening tag's start: a closing tag cannot lie in an opening one.
        const std::int32_t closesAt =
            TovStringPosition(text_, closing_.get(), opensAt_, kRespectCase);
        if (closesAt < 0) return nullptr;
        return TovStringCreateWithSubstring(text_, next_, closesAt - next_);
    }

private:
    TovStringRef text_;
    StringHolder opening_, closing_;
    std::int32_t opensAt_ = -1;
    std::int32_t next_ = 0;  // where the search for the next opening tag begins
};
}  // namespace

void TovStringAppendStringAsXMLTag(TovStringRef* target, TovStringRef value, TovStringRef tag)
{
    if (tag == nullptr) return;
    if (value == nullptr) {
        (void)tovAppendFormat(target, u"<%@></%@>\n", {tag, tag});
    } else {
        (void)tovAppendFormat(target, u"<%@>%@</%@>\n", {tag, value, tag});
    }
}

void TovStringAppendNumberAsXMLTag(TovStringRef* target, std::uint64_t value, TovStringRef tag)
{
    if (tag == nullptr) return;
    (void)tovAppendFormat(target, u"<%@>%qu</%@>\n", {tag, value, tag});
}

TovStringRef TovStringSimpleXMLParserFindData(TovStringRef text, TovStringRef tag)
{
    return TovStringSimpleXMLParserFindNthData(text, tag, 1);
}

TovStringRef TovStringSimpleXMLParserFindNthData(TovStringRef text, TovStringRef tag,
                                                 std::uint32_t n)
{
    if (n == 0) return nullptr;
    ElementFinder finder(text, tag);
    for (std::uint32_t i = 0; i < n; i++) {
        if (!finder.advance()) return nullptr;
    }
    return finder.createContent();
}

void TovStringSimpleXMLParserForEachItem(TovStringRef text, TovStringRef tag,
                                         void (*callback)(TovStringRef item, void* context),
                                         void* context)
{
    if (callback == nullptr) return;
    ElementFinder finder(text, tag);
    while (finder.advance()) {
        const StringHolder item(finder.createContent());
        if (!item) return;
        callback(item.get(), context);
    }
}
