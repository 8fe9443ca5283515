// Texts out of metadata bytes, when the character set has to be found from the text itself.

#pragma once

#include <string>

#include "pictures/byte_source.h"

namespace pinorama {

// Decodes the bytes up to the first zero byte. They are UTF-8 when they are valid UTF-8; otherwise
// MacRoman when a byte from 0x80 to 0x9F that is no punctuation mark of Windows-1252 touches a
// letter, because only there such bytes are letters; otherwise Windows-1252.
std::u16string decodeUndeclaredText(ByteView bytes);

// Decodes bytes that are declared to be UTF-8, up to the first zero byte. A last character that was
// cut in the middle is left out; when the rest is no UTF-8 either, the declaration is wrong and the
// text is read as an undeclared one.
std::u16string decodeUTF8Text(ByteView bytes);

}  // namespace pinorama
