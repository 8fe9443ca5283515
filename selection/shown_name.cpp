#include "selection/shown_name.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr QChar kReplacement = QChar::ReplacementCharacter;

QString composed(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C);
}

// Some toolkits show one U+FFFD for each malformed byte, others one for a run of them.
QString withShortReplacements(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        if (c != kReplacement || !result.endsWith(kReplacement)) result += c;
    }
    return result;
}

bool isControl(QChar c)
{
    return c.unicode() < 0x20 || c.unicode() == 0x7f;
}

QString withoutBlanksAndControls(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        const bool isPicture = c.unicode() >= 0x2400 && c.unicode() <= 0x2426;
        const bool isArrow = c.unicode() == 0x21b5 || c.unicode() == 0x2028;  // ↵, line separator
        if (!isControl(c) && !isPicture && !isArrow && !c.isSpace()) result += c;
    }
    return result;
}

// Both texts have composed letters, here and below.
bool isShownDamaged(const QString& name, const QString& shown)
{
    if (!name.contains(kReplacement)) return false;
    const QString whole = withShortReplacements(name);
    const QString seen = withShortReplacements(shown);
    if (seen == whole) return true;
    // "name (invalid encoding)", in the user's language.
    return seen.startsWith(whole + QStringLiteral(" (")) && seen.endsWith(u')');
}

bool isShownWithoutControls(const QString& name, const QString& shown)
{
    return std::any_of(name.begin(), name.end(), isControl) &&
           withoutBlanksAndControls(name) == withoutBlanksAndControls(shown);
}

bool isShownWithoutExtension(const QString& name, const QString& shown)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 && QStringView(name).left(dot) == shown;
}
}  // namespace

ShownNameFinder::ShownNameFinder(const QString& shown)
    : bytes_(shown.toStdString()),
      composed_(composed(shown)),
      composedBytes_(composed_.toStdString())
{
}

void ShownNameFinder::take(const std::string& name)
{
    const QString text = composed(QString::fromStdString(name));
    const bool matches[kRules] = {
        name == bytes_, text == composed_, isShownDamaged(text, composed_),
        isShownWithoutControls(text, composed_), isShownWithoutExtension(text, composed_)};
    for (std::size_t i = 0; i < kRules; i++) {
        if (matches[i] && found_[i].count++ == 0) found_[i].name = name;
    }
}

std::optional<std::string> ShownNameFinder::name() const
{
    const auto first = std::find_if(found_.begin(), found_.end(),
                                    [](const Found& rule) { return rule.count > 0; });
    if (first == found_.end() || first->count > 1) return std::nullopt;
    return first->name;
}

}  // namespace pinorama
