// The edge at which the texts of a window stand, beside their captions: the left one, and in Arabic
// and Hebrew the right one. The toolkit would put a text at the edge where its own direction of
// reading begins, so a coordinate would stand far from its caption.

#pragma once

#include <QWidget>

namespace pinorama {

inline Qt::Alignment leadingEdge(const QWidget& widget)
{
    return Qt::AlignAbsolute | (widget.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

}  // namespace pinorama
