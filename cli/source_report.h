// Where the values of a picture come from, as pinorama-info names it.

#pragma once

#include "cli/file_report.h"
#include "pictures/picture_properties.h"

namespace pinorama {

// The sources of the values that `properties` have.
SourceReport sourceReportOf(const PictureProperties& properties);

}  // namespace pinorama
