// Helpers around the toolkit that have no state of their own: texts of controls, translation of
// windows whose layout carries placeholders, previews as bitmaps, archives and file comments.
//
// A placeholder is a text of three units or more that begins with "##" (table 1100) or "+#" (table
// 1001), followed by the decimal number of its text in that table: "##17" stands for the text
// STR#1100:17. Everything else is an ordinary text.

#pragma once

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

#include <cstdint>

class QImage;
class QPixmap;
class QWidget;

class cocoaUtils {
public:
    cocoaUtils() = delete;

    // The text that `text` stands for. The number is read with white space and a sign before it and
    // ends at the first other character; 0 and no number mean an ordinary text. Its low 16 bits
    // name the text. A text missing from the table comes back as its key.
    //
    // Returns a new text for a placeholder, and otherwise the same handle as `text` without a new
    // reference: release the result only when it differs.
    static TovStringRef translateADialogString(TovStringRef text);

    // Translates the texts of `view` and of everything below it, parents before children.
    //
    //   every view            tool tip
    //   QComboBox, and a      the items, not its own text
    //     button with a menu
    //   fields for text       placeholder, and then like any other control
    //   QGroupBox             title
    //   other buttons         text
    //   QLabel with a picture nothing more
    //   QLabel, fields        text
    //
    // Only what is a placeholder is set: an ordinary text keeps its form, links, selection and
    // undo. Windows that merely have `view` as their parent are not below it. A setter that throws
    // a std::exception leaves its text as it was and never stops the walk, except with a tool tip;
    // every other exception is passed on. A null view does nothing.
    static void translateOneView(QWidget* view);

    // Translates all views of `window`. Its own title stays as it is, whatever `setTitle` says.
    static void translateWindow(QWidget* window, std::uint8_t setTitle);

    // Sets the text of a label, field, button, group box or pop-up; null sets the empty text. Shown
    // as it stands: markup in it is not interpreted.
    static void setStringValue(QWidget* control, TovStringRef myString);

    // Packs a file or folder into a new ZIP archive and waits until that is done.
    //
    //   source          path of a file, link or folder; a folder is packed with everything in it.
    //                   It is in the archive under its own name, whatever that is.
    //   targetPath      path; an existing archive is replaced, but only when packing succeeds.
    //   deleteOriginal  nonzero removes the source once all of it, unchanged, has been read back
    //   out
    //                   of the archive. What removing gives is not reported.
    //
    // Returns the exit status of the archiver `bsdtar`: 0 is success; 127 if there is no
    // archiver. 1 also for an archive that would be put in the source's own place, and with
    // `deleteOriginal` for one inside the source and one that does not hold all of it. Then
    // everything stays as it was.
    static std::int32_t compressToZIPFile(TovStringRef source, TovStringRef targetPath,
                                          std::uint8_t deleteOriginal);

    // Appends to the comment of a file (extended attribute user.xdg.comment): an empty comment is
    // replaced, an existing one gets a carriage return and the new text. Failures are not reported.
    static void addToFinderComment(TovStringRef path, TovStringRef comment);

    // Returns a new text of the reference's path; null for null, for a reference that names
    // nothing or an item that is gone, and for a path of more than 2048 bytes.
    static TovStringRef cuGetPathFromFSRef(const FSRef* ref);

    // The bitmap drawn into an image of the same size in pixels; null for a null bitmap.
    static QPixmap convertCGImageRefToNSImage(const QImage& bitmap);

    // The image as a bitmap; null for a null image.
    static QImage cuConvertNSImageToCGImageRef(const QPixmap& image);

    // Always null: there is no map picture yet.
    static QPixmap earthMapImage(double latitude, double longi);
};

// Starts the toolkit for a host that is no toolkit application itself and returns what
// cocoaUtilsQuit gives back. Without a display the toolkit draws into memory. A second call returns
// the same; in a toolkit application nothing is started.
void* cocoaUtilsLaunch();

// Stops what cocoaUtilsLaunch started.
void cocoaUtilsQuit();
