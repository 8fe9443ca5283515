// Which addresses a program of the desktop takes. Asks no other program: it reads the lists that
// the desktop keeps of its programs, which are small and lie on the disk of the system.
//
// Source: freedesktop.org "Association between MIME types and applications" 1.0.1 and Desktop Entry
// Specification 1.5, "Registering MIME types": a scheme is the type x-scheme-handler/<scheme>.

#pragma once

#include <string>

namespace pinorama {

// Whether a program is registered for addresses that begin with `scheme` and a colon. A program
// counts if its desktop entry is there. In a Flatpak, which sees nothing of the desktop's programs,
// the result is always true: the portal asks for them.
//
//   scheme  lower-case ASCII.
bool hasSchemeHandler(const std::string& scheme);

}  // namespace pinorama
