// What the window shows, for places without eyes: as lines of text and as a picture.

#pragma once

#include <string>

namespace pinorama {

class MainWindow;

// One line "name: text" per field, then one per button and check box with its state. Names are the
// English captions in every language, so that scripts can rely on them; texts are whole, as
// appendPrintable has their lines.
std::string windowReport(const MainWindow& window);

// Draws the window as it is into an image file of the type that its name says. False on failure.
bool saveWindowPicture(MainWindow& window, const std::string& path);

}  // namespace pinorama
