#include "pictures/xml_scanner.h"

#include <gtest/gtest.h>

using namespace pinorama;

using namespace std::string_literals;

namespace {
// Writes down what is read: "<{space}name {space}attribute=value>text</>".
class Protocol : public XmlHandler {
public:
    void startElement(const XmlName& name, std::span<const XmlAttribute> attributes) override
    {
        written += "<" + nameOf(name);
        for (const XmlAttribute& attribute : attributes) {
            written += " " + nameOf(attribute.name) + "=" + std::string(attribute.value);
        }
        written += ">";
    }
    void text(std::string_view text) override { written += text; }
    void endElement() override { written += "</>"; }

    std::string written;

private:
    static std::string nameOf(const XmlName& name)
    {
        const std::string space = name.space.empty() ? "" : "{" + std::string(name.space) + "}";
        return space + std::string(name.local);
    }
};

std::string nested(std::size_t depth)
{
    std::string document;
    for (std::size_t i = 0; i < depth; i++) document += "<a>";
    for (std::size_t i = 0; i < depth; i++) document += "</a>";
    return document;
}

std::string withAttributes(std::size_t count)
{
    std::string document = "<a";
    for (std::size_t i = 0; i < count; i++) document += " b" + std::to_string(i) + "=''";
    return document + "/>";
}

std::string withPrefixes(std::size_t count)
{
    std::string document = "<a";
    for (std::size_t i = 0; i < count; i++) document += " xmlns:b" + std::to_string(i) + "='c'";
    return document + "/>";
}

std::string withName(std::size_t length)
{
    return "<" + std::string(length, 'a') + "/>";
}
}  // namespace

TEST(scanXml, readsElementsAttributesAndTexts)
{
    const struct {
        const char* name;
        std::string document;
        const char* expected;
    } rows[] = {
        {"an empty element", "<a/>", "<a></>"},
        {"a text", "<a>text</a>", "<a>text</>"},
        {"elements", "<a><b>one</b> <c/>two</a>", "<a><b>one</> <c></>two</>"},
        {"attributes", "<a b='1' c = \"2'\" \n d='3\"'/>", "<a b=1 c=2' d=3\"></>"},
        {"blanks in tags", "<a  ><b /></a\n>", "<a><b></></>"},
        {"what precedes", "\xef\xbb\xbf<?xml version='1.0'?>\n<!-- <b> -->\n<a/>", "<a></>"},
        {"what follows", "<a/><b/>&nonsense;<", "<a></>"},
        {"comments and instructions", "<a>1<!-- <b> -->2<?c?>3</a>", "<a>123</>"},
        {"literal text", "<a>1<![CDATA[<b>&amp;]]>2</a>", "<a>1<b>&amp;2</>"},
        {"entities", "<a b='&lt;&quot;&apos;'>&amp;&gt;</a>", "<a b=<\"'>&></>"},
        {"characters by their number", "<a>&#65;&#xe9;&#x20ac;&#x1F30D;</a>",
         "<a>A\xc3\xa9\xe2\x82\xac\xf0\x9f\x8c\x8d</>"},
        {"namespaces", "<p:a xmlns:p='one' p:b='1' c='2'/>", "<{one}a {one}b=1 c=2></>"},
        {"default namespace", "<a xmlns='one'><b c=''/></a>", "<{one}a><{one}b c=></></>"},
        {"a prefix inside out", "<p:a xmlns:p='1'><p:b xmlns:p='2'/><p:c/></p:a>",
         "<{1}a><{2}b></><{1}c></></>"},
        {"language", "<a xml:lang='de'/>", "<a {http://www.w3.org/XML/1998/namespace}lang=de></>"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Protocol protocol;
        EXPECT_TRUE(scanXml(row.document, protocol));
        EXPECT_EQ(protocol.written, row.expected);
    }
}

TEST(scanXml, refusesMalformedDocumentsAndEntities)
{
    const struct {
        const char* name;
        std::string document;
    } rows[] = {
        {"empty", ""},
        {"text", "text"},
        {"not closed", "<a>"},
        {"another end", "<a></b>"},
        {"an end without start", "</a>"},
        {"cut tag", "<a"},
        {"cut end", "<a></a"},
        {"cut attribute", "<a b='1"},
        {"no quotes", "<a b=1/>"},
        {"no value", "<a b/>"},
        {"a tag in a value", "<a b='<'/>"},
        {"no name", "< a/>"},
        {"a document type", "<!DOCTYPE a><a/>"},
        {"an entity of its own", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"},
        {"an unknown entity", "<a>&nbsp;</a>"},
        {"an unknown entity in a value", "<a b='&nbsp;'/>"},
        {"an entity without end", "<a>&amp</a>"},
        {"a lone ampersand", "<a>&</a>"},
        {"character 0", "<a>&#0;</a>"},
        {"half a character", "<a>&#xd800;</a>"},
        {"no character", "<a>&#x110000;</a>"},
        {"a negative character", "<a>&#-1;</a>"},
        {"no digits", "<a>&#;</a>"},
        {"more digits than there are characters", "<a>&#99999999999999999999;</a>"},
        {"a zero byte in a text", "<a>1\0</a>"s},
        {"a zero byte in a value", "<a b='\0'/>"s},
        {"a zero byte in a name", "<a\0/>"s},
        {"a zero byte in literal text", "<a><![CDATA[\0]]></a>"s},
        {"a comment without end", "<a><!-- </a>"},
        {"literal text without end", "<a><![CDATA[</a>"},
        {"literal text outside", "<![CDATA[]]><a/>"},
        {"an unknown prefix", "<p:a/>"},
        {"an unknown prefix of an attribute", "<a p:b=''/>"},
        {"a prefix from elsewhere", "<a><b xmlns:p='1'/><p:c/></a>"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Protocol protocol;
        EXPECT_FALSE(scanXml(row.document, protocol));
    }
}

TEST(scanXml, hasLimits)
{
    const struct {
        const char* name;
        std::string (*make)(std::size_t);
        std::size_t max;
    } rows[] = {
        {"depth", nested, XmlLimits::kDepth},
        {"attributes", withAttributes, XmlLimits::kAttributes},
        {"prefixes", withPrefixes, XmlLimits::kPrefixes},
        {"name", withName, XmlLimits::kNameLength},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Protocol protocol;
        EXPECT_TRUE(scanXml(row.make(row.max), protocol));
        EXPECT_FALSE(scanXml(row.make(row.max + 1), protocol));
    }
}

TEST(scanXml, handsOverWhatStandsBeforeAFault)
{
    Protocol protocol;
    EXPECT_FALSE(scanXml("<a><b>text</b><c d='", protocol));
    EXPECT_EQ(protocol.written, "<a><b>text</>");
}

namespace {
// Wants no attributes of the prefix "n" and nothing that is in an element "s".
class Chooser final : public Protocol {
public:
    void startElement(const XmlName& name, std::span<const XmlAttribute> attributes) override
    {
        Protocol::startElement(name, attributes);
        isIn_ = name.local == "s";
    }
    bool wantsAttribute(std::string_view name) const override { return !name.starts_with("n:"); }
    bool wantsContent() const override { return !isIn_; }

private:
    bool isIn_ = false;
};
}  // namespace

TEST(scanXml, passesOverWhatNobodyWants)
{
    const struct {
        const char* name;
        std::string document;
        const char* written;
    } rows[] = {
        {"texts", "<a><s>text</s>more</a>", "<a><s></>more</>"},
        {"elements", "<a><s><b><c/></b><d e='f'/></s><b/></a>", "<a><s></><b></></>"},
        {"elements of the same name", "<a><s><s></s><s/></s>more</a>", "<a><s></>more</>"},
        {"an empty one", "<a><s/>more</a>", "<a><s></>more</>"},
        {"ends within values", "<a><s><b c='/>' d=\"'></s>\"/></s>more</a>", "<a><s></>more</>"},
        {"ends within other things", "<a><s><!-- </s> --><![CDATA[</s>]]><?p </s>?></s>more</a>",
         "<a><s></>more</>"},
        {"unknown prefixes and entities", "<a><s><p:b c='&d;'/>&e;</s>more</a>",
         "<a><s></>more</>"},
        {"attributes", "<a xmlns:m='1' n:b='&c;' m:d='e' n:f='g'/>", "<a {1}d=e></>"},
        {"namespaces that come last", "<a m:d='e' n:f='\"' xmlns:m='1'/>", "<a {1}d=e></>"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Chooser chooser;
        EXPECT_TRUE(scanXml(row.document, chooser));
        EXPECT_EQ(chooser.written, row.written);
    }
    for (const char* document :
         {"<a><s>", "<a><s><", "<a><s><b", "<a><s><b c='", "<a><s></", "<a><s><!-- </s></a>",
          "<a><s><b></s></a>", "<a><s><!b></s></a>", "<a><s></b></a>", "<a n:b='", "<a n:b=c/>"}) {
        SCOPED_TRACE(document);
        Chooser chooser;
        EXPECT_FALSE(scanXml(document, chooser));
    }
}
