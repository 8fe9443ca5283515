// The box that says what the program is, its version, its licence and its libraries.

#pragma once

class QWidget;

namespace pinorama {

// Shows the box over `parent` and returns at once; it goes away by itself.
void appShowAboutBox(QWidget* parent);

}  // namespace pinorama
