// One baseline for a caption and the first line of its text. A line is as high as the fonts in it,
// and a caption in Japanese has other fonts than a text of digits.

#pragma once

class QLabel;

namespace pinorama {

class WrappedField;

// Moves the one of the two whose baseline is higher down to that of the other. Both stand at the
// top of one row.
void alignBaselines(QLabel& caption, WrappedField& field);

}  // namespace pinorama
