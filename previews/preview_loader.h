// Previews that arrive through the event loop, so that nobody waits for a large picture or a slow
// disk.
//
//     connect(loader, &PreviewLoader::previewReady, this, &Window::showPreview);
//     loader->request(path, size, ratio);
//
// A request goes through the steps of its PreviewPlan, one at a time. It waits for the timer before
// the first step, then for the reader's reply to the current one, which it recognises by the
// ticket: the reader makes one preview at a time, and a caller that waits for one (file_preview.h)
// takes the place of this one, which starts its step again afterwards. Between the signals anything
// may happen, so a request is moved out before its signal: the receiver may make the next one.

#pragma once

#include <QObject>
#include <QPixmap>
#include <QSizeF>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>

#include "pictures/picture_file.h"

namespace pinorama {

struct PreviewReply;

// What a preview is loaded for.
enum class PreviewUse {
    shown,   // it is what the window shows of a file, so there is an icon if there is no preview
    larger,  // a preview is shown, and this one only shows more of it: no icon stands for it, and
             // it is not kept in the desktop's cache, since packing it would hold the window up
};

class PreviewLoader : public QObject {
    Q_OBJECT

public:
    explicit PreviewLoader(PreviewUse use = PreviewUse::shown, QObject* parent = nullptr);
    ~PreviewLoader() override;

    // Asks for the picture of a file. An earlier request that is still under way is cancelled.
    // Returns at once; the work begins when the event loop runs again.
    //
    //   path     absolute, in the bytes of the system.
    //   picture  the file; one that is not open has its icon. The path is not looked at again.
    //   size     points, as for imageWithPreviewOfFileAtPath.
    //   ratio    device pixels per point.
    void request(const std::string& path, PictureFile picture, QSizeF size, qreal ratio);

    // Gives up the request that is under way: nothing comes of it.
    void cancel();

    // Gives up the request that is under way: previewReady brings the icon. Does nothing without
    // one.
    void settleForIcon();

    // Whether something that was asked for has neither come nor been given up.
    bool isLoading() const { return request_ != nullptr; }

Q_SIGNALS:
    // The picture for the last request: a preview, else the icon of the file's kind; null when
    // memory runs out for a preview. For a larger one the icon is null, too.
    //
    //   isPreview  false for the icon.
    void previewReady(const std::string& path, const QPixmap& picture, bool isPreview);

    // Instead of previewReady: pictures cannot be read, because the program pinorama-reader is
    // missing or cannot start.
    void readerMissing(const std::string& path);

    // Before previewReady, which brings the icon then: the reader got nowhere with the file and was
    // killed.
    void readerStuck(const std::string& path);

private:
    struct Request;
    struct Unstored;

    void startStep();
    void stopReading();
    void takeReply();
    void keepForStoring(PreviewReply& reply);
    void store();
    void finish(const std::optional<QPixmap>& preview);
    void show(const Request& request, const std::optional<QPixmap>& preview);

    PreviewUse use_;
    std::unique_ptr<Request> request_;  // null while nothing is asked for
    QTimer timer_;
    std::unique_ptr<Unstored> unstored_;  // null when all is stored
    QTimer storeTimer_;
};

}  // namespace pinorama
