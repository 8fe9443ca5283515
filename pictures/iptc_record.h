// The application record of IPTC-IIM: the texts that an editor wrote about a picture.

#pragma once

#include "pictures/byte_source.h"
#include "pictures/picture_properties.h"

namespace pinorama {

// Fills the IPTC half of `properties` from the datasets 2:90 (city), 2:95 (province or state),
// 2:101 (country) and 2:120 (caption) in `record`; without a single dataset it stays as it is. Of a
// repeated dataset the first counts. A dataset that is longer than what is left ends the record.
// An empty dataset is an empty text, not an absent one. Texts are UTF-8 after a dataset 1:90 that
// says so, else in what decodeUndeclaredText finds; both end at a zero byte.
// Source: IPTC-IIM 4.2, chapter 3.
void readIptcRecord(const ByteBlock& record, PictureProperties& properties);

}  // namespace pinorama
