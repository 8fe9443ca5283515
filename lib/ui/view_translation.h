// Translates the texts of one view; cocoaUtils::translateOneView walks over all of them.

#pragma once

class QWidget;

// Replaces the placeholders among the texts of `view` itself, which must not be null. Which texts
// those are for each class of views, and what an exception does, is in cocoa_utils.h.
void cuTranslateOwnTexts(QWidget* view);
