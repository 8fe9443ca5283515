// What the window says of a globe program: the pointer is busy while one starts, and the foot of
// the window says why it does not show the place.

#pragma once

#include "desktop/globe_programs.h"

#include <QString>

namespace pinorama {

class MainWindow;

// Says in `window` what becomes of the views that `globes` is to show, until one of the two is
// gone. What was said of a Marble that did not appear in time is taken back when it does.
void sayOfGlobes(GlobePrograms& globes, MainWindow& window);

// A sentence in the user's language for each failure.
QString wordsOfGlobe(GlobePrograms::Failure failure);

}  // namespace pinorama
