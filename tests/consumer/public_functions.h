#pragma once

// How many of the library's public functions are linked into this program.
int countPublicFunctions();
