// Which addresses and types of files a program of the desktop takes. Asks no other program: it
// reads the lists that the desktop keeps of its programs, which are small and lie on the disk of
// the system.
//
// Source: freedesktop.org "Association between MIME types and applications" 1.0.1 and Desktop Entry
// Specification 1.5, "Registering MIME types": a scheme is the type x-scheme-handler/<scheme>.

#pragma once

#include <string>

namespace pinorama {

// Whether a program is registered for addresses that begin with `scheme` and a colon. A program
// counts if its desktop entry is there. In a Flatpak or a Snap, which sees nothing of the desktop's
// programs, the result is always true: the portal asks for them.
//
//   scheme  lower-case ASCII.
bool hasSchemeHandler(const std::string& scheme);

// The same for files of a type, such as "application/vnd.google-earth.kml+xml". A program that only
// takes a more general type, as text editors take every text, does not count.
bool hasTypeHandler(const std::string& type);

}  // namespace pinorama
