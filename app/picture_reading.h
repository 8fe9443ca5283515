// The way of one file into the window: it is looked at, opened, its place is read, then its
// preview, each by another process. The first three nearly always come at once. What a slow disk
// does not give in that time arrives through the event loop, as the preview always does, and is
// dropped when another file is shown by then. Meanwhile a line at the foot of the window says what
// is going on. When the preview is there, a larger one follows if the window has room for it; that
// only shows more of what is shown already, so nobody is told of it.
//
// When more kinds of files are read, a picture may have a sidecar as well. That is looked for, and
// opened, after the picture, and read at once or after the preview: nothing else waits for it.
//
//   reading.begin(path);   // nothing of the file before comes any more
//   // when it is opened:
//   const auto status = reading.readPlace(&info);
//   reading.requestPreview();

#pragma once

#include "app/larger_preview.h"
#include "location/file_info_record.h"
#include "pictures/picture_file.h"
#include "pictures/picture_properties.h"
#include "previews/preview_loader.h"
#include "reader/reader_client.h"

#include <QObject>
#include <QPixmap>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace pinorama {

class MainWindow;
class ReadingNotice;

class PictureReading : public QObject {
    Q_OBJECT

public:
    // The window, which has its views, lives longer.
    explicit PictureReading(MainWindow& window);

    // How long the window waits for a file and its place together, before it goes on and shows them
    // when they come. Nearly every picture takes less, and so appears in one step.
    static constexpr std::chrono::milliseconds kPatience{40};
    // How much longer it waits in all, in one turn of its event loop, if it has waited for a file
    // manager before: it has to answer within a tenth of a second, in which it also has to draw.
    static constexpr std::chrono::milliseconds kMoreInATurn{20};
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }

    // Another file is shown: forgets what was to come of the one before, so that nothing waits for
    // it, and has this one opened. `looked` and `opened` come before this returns, or later if the
    // disk takes its time.
    //
    //   path    absolute, in the bytes of the system.
    //   waited  for how long this turn of the event loop has kept the window already.
    void begin(const std::string& path, std::chrono::nanoseconds waited = {});

    // Whether `looked` has come, and whether `opened` is still to come.
    bool hasLooked() const { return hasLooked_; }
    bool isOpening() const { return isOpening_; }

    // Once `opened` has come and until the preview is asked for: the errno of why the file could
    // not be opened; 0 if it is open, and for an item of another kind.
    int openError() const { return picture_.error(); }

    // Whether the window says that the file could not be read.
    bool hasFailed() const;

    // Reads the place of the file that was opened as readInfoRecord does, and returns what it
    // returns. When the place takes its time, that is -1 and an untouched record, and `placeRead`
    // comes later. When only its sidecar does, it is what the picture says by itself, and
    // `placeRead` comes later if the sidecar says more.
    std::int32_t readPlace(fileInfoRecord* info);

    // All that the picture says of where and when it was taken; empty until it has been read.
    const PictureProperties& properties() const { return properties_; }

    // Whether the file is a picture as far as one can tell once nothing is to come any more: it has
    // a preview, or says something.
    bool isPicture() const { return hasPreview_ || properties_ != PictureProperties{}; }

    // Asks for the preview of the file that was opened, in the size of its field. It is not read
    // afterwards.
    void requestPreview();

    const LargerPreview& larger() const { return larger_; }

    // Whether the file, the place, the sidecar or the preview is still to come.
    bool isGoingOn() const;

Q_SIGNALS:
    // Once for each file: it is known what is at the path.
    void looked(const PictureFile& file);
    // Once for each file, after that: it is open, or cannot be opened.
    void opened();
    // Instead of both: files cannot be opened, the program pinorama-opener is missing.
    void openerMissing();
    // The place has come after all.
    void placeRead(const PictureProperties& properties);
    // The preview, else the icon of the file's kind.
    void previewRead(const QPixmap& preview);
    // Pictures cannot be read: the program pinorama-reader is missing.
    void readerMissing();
    // Nothing is to come any more.
    void ended();

public Q_SLOTS:
    // What arrives. A path other than the one of begin(), and a ticket that is not waited for, are
    // dropped.
    void takePlace(std::uint32_t ticket, const PropertyResult& result);
    void takePreview(const std::string& path, const QPixmap& preview, bool isPreview = true);
    void takeReaderMissing(const std::string& path);
    void takeReaderStuck(const std::string& path);

private:
    void takeOpened();
    std::optional<PictureProperties> read(const PictureFile& file,
                                          std::chrono::milliseconds patience);
    std::optional<PictureProperties> readSidecar(std::chrono::milliseconds patience);
    void takeSidecarFile();
    void readLateSidecar();
    void takeLateSidecar(const PropertyResult& result);
    bool isSidecarToCome() const { return isOpeningSidecar_ || sidecar_.isOpen(); }
    void forgetSidecar();
    std::chrono::milliseconds patienceLeft() const;
    void endReading();
    void awaitSlowFile();
    void sayStillReading();
    void sayNotRead();
    ReadingNotice& notice();

    MainWindow& window_;
    PreviewLoader previews_;
    LargerPreview larger_;
    std::string path_;
    std::optional<FileAttributes> item_;  // what is at the path; nothing until it is known
    PictureFile picture_;                 // from `opened` on, until its preview is asked for
    PictureProperties properties_;
    std::chrono::milliseconds patience_ = kPatience;
    std::chrono::steady_clock::time_point begun_{};  // of the file
    std::chrono::steady_clock::time_point asked_{};  // from when on its patience counts
    QTimer stillReading_;                            // runs out when the window has to say so
    bool hasLooked_ = false;
    bool hasPreview_ = false;  // and no icon stands for it
    bool isOpening_ = false;
    QTimer silence_;                  // runs out when a file has not been opened for long
    std::uint32_t awaitedPlace_ = 0;  // the ticket of the place that is to come; 0 for none
    bool isOpeningSidecar_ = false;
    PictureFile sidecar_;              // from when it is opened until it is read
    bool isReadingSidecar_ = false;    // the place that is to come is that of the sidecar
    PictureProperties ofPicture_;      // what the picture says, while its sidecar is to come
    QTimer slowPreview_;               // runs out when a preview has taken long
    ReadingNotice* notice_ = nullptr;  // the window's; null until it is needed
};

}  // namespace pinorama
