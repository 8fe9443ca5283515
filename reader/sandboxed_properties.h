// The reader of a program without Qt: a sandboxed copy of the program itself, which takes less than
// a millisecond to start. Sandboxing the whole program instead was tried and saves a fifth of its
// time, but then a picture that crashes the parser ends the program without an error message.
//
//     ReaderClient client(forkPropertyReader);
//     client.start();  // before any thread or large memory
//
// For many pictures the program is started once more instead, so that nothing that a picture learns
// about the memory of its reader holds for another one:
//
//     if (isPropertyReader(argc, argv)) servePropertyReader(argc, argv);  // main begins with that
//     ReaderClient client([] { return startPropertyReader(false); });

#pragma once

#include "reader/reader_process.h"

namespace pinorama {

// Forks a sandboxed process that reads the properties of pictures and nothing else. An empty
// process if that fails. The caller has one thread.
ReaderProcess forkPropertyReader();

// Starts the running program anew as such a process, with the environment of startReaderProgram and
// with a layout of its addresses of its own, where the system gives a program one. Its main
// function has to begin as above. Where it cannot be started again, because there is no /proc, it
// is forked.
//
//   readsMore  whether more kinds of files will be read (pictures/more_properties.h).
ReaderProcess startPropertyReader(bool readsMore);

// Whether this process was started to be that reader, by the arguments of main.
bool isPropertyReader(int argc, const char* const* argv);

// Does what such a process is for, and ends it.
[[noreturn]] void servePropertyReader(int argc, const char* const* argv);

}  // namespace pinorama
