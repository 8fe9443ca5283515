// Where the window's dialogs come from if the desktop has no portal (desktop/portal_chooser.h). The
// dialogs of GTK, which the toolkit takes on GNOME, Xfce, Cinnamon and MATE if its theme for them
// is installed, run in the window's process and draw a preview of the selected file there with
// gdk-pixbuf: pictures would be decoded outside the sandbox.

#pragma once

namespace pinorama {

// Lets the toolkit show no dialogs but its own, which have no previews. In a Flatpak or a Snap its
// dialogs are those of the desktop's portal, which is a process of its own, and they stay: only
// they reach the user's files. To be called before the first dialog is made.
void refuseForeignDialogs();

}  // namespace pinorama
