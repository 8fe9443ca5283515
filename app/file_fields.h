// The fields of one file in the window: its name, preview, size and dates, and the texts of the
// place where it was taken. They show what they are given and decide nothing.

#pragma once

#include "base/file_attributes.h"
#include "location/file_info_record.h"

#include <optional>
#include <string>

class QPixmap;
class QString;

namespace pinorama {

class MainWindow;

class FileFields {
public:
    // The window, which has its views, lives longer.
    explicit FileFields(MainWindow& window) : window_(window) {}

    // Shows the name, with the whole path as its tool tip, and no preview yet.
    void showName(TovStringRef path);

    // Shows the size and the dates of what is at the path, as they are written for a file that is
    // missing too, and lets the preview be dragged if there is something.
    void showItem(const std::string& path, const std::optional<FileAttributes>& item);

    // Empties size and dates: they are not known yet.
    void clearItem();

    // Shows a preview or, in its place, a few words on why there is none.
    void showPreview(const QPixmap& preview);
    void showInsteadOfPreview(const QString& words);

    // Shows coordinate, direction, altitude and the four place texts; null texts as empty ones.
    void showPlace(const fileInfoRecord& info);

    // Empties coordinate, direction and altitude.
    void clearPosition();
    void clearPlaceTexts();

private:
    MainWindow& window_;
};

}  // namespace pinorama
