// The texts of the window in the user's language.

#pragma once

namespace pinorama {

// Installs the translations of the window and of the toolkit for the first of the user's languages
// that the window has texts in, and mirrors the windows for languages that are written from right
// to left. Those of English hold only the forms of texts with a number in them: the texts in the
// code are English. Once, after the application object.
void installTranslations();

}  // namespace pinorama
