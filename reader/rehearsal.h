// Reading a picture of our own making before one from a stranger comes: it costs the first picture
// of a process most of its time that the process has its code and memory brought in page by page.

#pragma once

namespace pinorama {

// Reads the properties of a small picture that is part of the program, and makes a reply of them.
// Returns true if they are the ones it has.
bool rehearse();

}  // namespace pinorama
