// Where the properties of a picture come from. Normally this process reads them itself; a program
// that does not want to touch a picture's bytes installs a source that has them read elsewhere.
// Whoever asks for properties does not know which:
//
//   installPropertySource([&](int descriptor, std::uint64_t) { return reader.read(descriptor); });
//   const PictureFile picture(path);
//   if (const auto properties = propertiesOf(picture)) show(*properties);

#pragma once

#include <optional>

#include "pictures/picture_file.h"
#include "pictures/picture_properties.h"

namespace pinorama {

// Sets the source for all later reads; an empty one brings back reading in this process. Called by
// a program while it starts, and by tests.
void installPropertySource(PropertySource source);

// Whether more kinds of files are to be read, and XMP in all of them (pictures/more_properties.h).
// At first they are not. A source that has pictures read elsewhere looks here itself.
void setReadsMoreKinds(bool isOn);
bool readsMoreKinds();

// Reads the properties of an open picture. Nothing when the file is not open, is no picture or
// cannot be read. Throws std::bad_alloc when memory runs out.
std::optional<PictureProperties> propertiesOf(const PictureFile& picture);

}  // namespace pinorama
