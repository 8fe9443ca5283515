// A property source for a program without Qt: a sandboxed copy of the program itself reads the
// pictures, which takes less than a millisecond to start. Sandboxing the whole program instead was
// tried and saves a fifth of its time, but then a picture that crashes the parser ends the program
// without an error message.
//
//     installPropertySource(makeSandboxedPropertySource());  // before any thread or large memory

#pragma once

#include "pictures/picture_properties.h"
#include "reader/reader_process.h"

namespace pinorama {

// Forks a sandboxed process that reads the properties of pictures and nothing else. An empty
// process if that fails. The caller has one thread.
ReaderProcess forkPropertyReader();

// A source that has pictures read by such processes, for installPropertySource. The first one is
// forked at once: it enters its sandbox while the caller gets ready, and copies as little memory as
// possible. A picture that cannot be read has no properties.
PropertySource makeSandboxedPropertySource();

}  // namespace pinorama
