// The reader of a program without Qt: a sandboxed copy of the program itself, which takes less than
// a millisecond to start. Sandboxing the whole program instead was tried and saves a fifth of its
// time, but then a picture that crashes the parser ends the program without an error message.
//
//     ReaderClient client(forkPropertyReader);
//     client.start();  // before any thread or large memory

#pragma once

#include "reader/reader_process.h"

namespace pinorama {

// Forks a sandboxed process that reads the properties of pictures and nothing else. An empty
// process if that fails. The caller has one thread.
ReaderProcess forkPropertyReader();

}  // namespace pinorama
