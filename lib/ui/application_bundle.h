// The bundle of the house's own programs: the identifier that the application is known by, and the
// texts that come with it.

#pragma once

#include "lib/objects/string.h"

constexpr char16_t kApplicationIdentifier[] = u"org.pinorama.Pinorama";

// Makes the application's texts known as the main bundle and selects them for numbered lookups.
// Reads nothing yet; once at start-up. Returns the bundle, null if memory runs out.
void* iuRegisterApplicationBundle();
