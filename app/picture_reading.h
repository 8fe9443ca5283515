// What is still to come of the picture that is shown: its preview always, and its place when a slow
// disk does not give it within half a second. Each arrives through the event loop, and is dropped
// when another file is shown by then. Meanwhile a line at the foot of the window says what is going
// on.
//
//   reading.begin(path);                              // nothing of the file before comes any more
//   const auto status = reading.readPlace(picture, &info);
//   reading.requestPreview(std::move(picture));

#pragma once

#include "location/file_info_record.h"
#include "pictures/picture_file.h"
#include "previews/preview_loader.h"
#include "reader/reader_client.h"

#include <QObject>
#include <QPixmap>
#include <QTimer>

#include <cstdint>
#include <string>

namespace pinorama {

class MainWindow;
class ReadingNotice;

class PictureReading : public QObject {
    Q_OBJECT

public:
    // The window, which has its views, lives longer.
    explicit PictureReading(MainWindow& window);

    // Another file is shown: forgets what was to come of the one before, so that nothing waits for
    // it.
    //
    //   path  absolute, in the bytes of the system.
    void begin(const std::string& path);

    // Reads the place as readInfoRecord does, and returns what it returns. When the place takes its
    // time, that is -1 and an untouched record, and `placeRead` comes later.
    std::int32_t readPlace(const PictureFile& picture, fileInfoRecord* info);

    // Asks for the preview, in the size of its field.
    void requestPreview(PictureFile picture);

    // Whether the place or the preview is still to come.
    bool isGoingOn() const;

Q_SIGNALS:
    // The place has come after all.
    void placeRead(const PictureProperties& properties);
    // The preview, else the icon of the file's kind.
    void previewRead(const QPixmap& preview);
    // Pictures cannot be read: the program pinorama-reader is missing.
    void readerMissing();

public Q_SLOTS:
    // What arrives. A path other than the one of begin(), and a ticket that is not waited for, are
    // dropped.
    void takePlace(std::uint32_t ticket, const PropertyResult& result);
    void takePreview(const std::string& path, const QPixmap& preview);
    void takeReaderMissing(const std::string& path);
    void takeReaderStuck(const std::string& path);

private:
    void endReading();
    void sayStillReading();
    void sayNotRead();
    ReadingNotice& notice();

    MainWindow& window_;
    PreviewLoader previews_;
    std::string path_;
    std::uint32_t awaitedPlace_ = 0;   // the ticket of the place that is to come; 0 for none
    QTimer slowPreview_;               // runs out when a preview has taken long
    ReadingNotice* notice_ = nullptr;  // the window's; null until it is needed
};

}  // namespace pinorama
