#include "app/baselines.h"

#include "app/wrapped_field.h"

#include <QLabel>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace pinorama {
namespace {
constexpr qsizetype kMaxLength = 200;  // units that are looked at

// The distance of the baseline to the top of the first line of a text.
int ascentOf(const QString& text, const QFont& font)
{
    QTextLayout layout(text.left(kMaxLength).section(QLatin1Char('\n'), 0, 0), font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? static_cast<int>(std::ceil(line.ascent()))
                          : QFontMetrics(font).ascent();
}
}  // namespace

void alignBaselines(QLabel& caption, WrappedField& field)
{
    const int captionAscent = ascentOf(caption.text(), caption.font());
    const int fieldAscent = ascentOf(field.toPlainText(), field.font());
    const int baseline = std::max(captionAscent, fieldAscent);
    caption.setContentsMargins(0, baseline - captionAscent, 0, 0);
    field.setTopMargin(baseline - fieldAscent);
}

}  // namespace pinorama
