// A property source for a program without Qt: the pictures are read by a copy of the program itself
// that is locked in, which takes less than a millisecond to start. To lock in the whole program and
// read the picture there would save a fifth of its time, but a picture that crashes its reader
// would then end the program without an error message.

#pragma once

#include "pictures/picture_properties.h"
#include "reader/reader_process.h"

namespace pinorama {

// Splits off a process that is locked in and reads the properties of pictures, nothing else. An
// empty process when that fails. The caller has one thread.
ReaderProcess forkPropertyReader();

// A source that has pictures read by such processes, for installPropertySource. The first one
// starts at once, so that it locks itself in while the caller gets ready, and is a copy of as
// little as possible. What could not be read counts as no picture.
PropertySource makeSandboxedPropertySource();

}  // namespace pinorama
