// The text of a KML 2.1 document with one placemark, built from the location of one picture. The
// whole document is a single line without a line feed at its end. The layout of its pieces stands
// in docs/formats.md; the standard is OGC KML (namespace http://earth.google.com/kml/2.1).

#pragma once

#include "lib/strings/tov_string.h"
#include "location/file_info_record.h"

// Returns a new mutable text, the whole document, which the caller releases; null for a null `info`
// and when memory runs out.
//
//   info   read only. Latitude and longitude are rounded to single precision before the sign of
//          the hemisphere is applied, so their last printed digits may differ from the record's.
//          'S' and 'W' make the number negative; any other letter leaves it.
//   name   the picture's file name, or null. It stands three times in the document, as it is:
//          nothing is escaped, so an ampersand in it makes the document ill-formed. Intended;
//          gpsSaveKML (globe/kml_file.h) hands over names that are safe. An empty name is a name.
[[nodiscard]] TovStringRef gpsMakeKMLDocument(const fileInfoRecord* info, TovStringRef name);

// Appends the opening of the document, up to and including the two styles, to the mutable
// `*document`. Without a name the document is called "Pinorama Export.kml".
void gpsInsertKmlHeader(TovStringRef* document, TovStringRef name);

// Appends the placemark of one picture. The name stands in it twice, as it is.
void gpsInsertKmlPlacemark(TovStringRef* document, const fileInfoRecord& info, TovStringRef name);

// Appends the end of the document.
void gpsInsertKmlFooter(TovStringRef* document);
