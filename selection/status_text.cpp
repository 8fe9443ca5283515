#include "selection/status_text.h"

namespace pinorama {
namespace {
constexpr qsizetype kMaxTextLength = 4096;  // UTF-16 units

// The quotation marks that may close a quotation. Languages pair them differently (“„a“”, “„a””,
// “»a«”, “«a»”), so each opening mark allows all marks that close it in any language.
QStringView closingMarks(QChar opening)
{
    switch (opening.unicode()) {
    case u'"': return u"\"";
    case u'\'': return u"'";
    case u'`': return u"'`";
    case u'\u201c': return u"\u201d\u201c";        // “a”
    case u'\u201d': return u"\u201d";              // ”a”
    case u'\u201e': return u"\u201c\u201d\u201e";  // „a“ „a”
    case u'\u2018': return u"\u2019\u2018";        // ‘a’
    case u'\u201a': return u"\u2018\u2019";        // ‚a‘
    case u'\u00bb': return u"\u00ab\u00bb";        // »a«
    case u'\u00ab': return u"\u00bb";              // «a»
    case u'\u203a': return u"\u2039";              // ›a‹
    case u'\u2039': return u"\u203a";              // ‹a›
    case u'\u300c': return u"\u300d";              // 「a」
    case u'\u300e': return u"\u300f";              // 『a』
    default: return {};
    }
}

// French typography puts non-breaking spaces inside the quotation marks.
QString withoutInnerBlanks(QString name)
{
    const auto isInnerBlank = [](QChar c) { return c == u'\u00a0' || c == u'\u202f'; };
    while (!name.isEmpty() && isInnerBlank(name.front())) name.remove(0, 1);
    while (!name.isEmpty() && isInnerBlank(name.back())) name.chop(1);
    return name;
}
}  // namespace

std::vector<QString> quotedNames(const QString& text)
{
    std::vector<QString> names;
    if (text.size() < 3 || text.size() > kMaxTextLength) return names;
    const QStringView marks = closingMarks(text.front());
    if (marks.isEmpty()) return names;

    for (qsizetype end = text.size() - 1; end > 1; end--) {
        if (!marks.contains(text.at(end))) continue;
        const QString name = text.mid(1, end - 1);
        names.push_back(name);
        const QString inner = withoutInnerBlanks(name);
        if (inner != name && !inner.isEmpty()) names.push_back(inner);
    }
    return names;
}

}  // namespace pinorama
