#include "app/nearby/open_with.h"

#include "base/file_uri.h"

namespace pinorama {

OpenWith::OpenWith(UrlOpener& opener, QObject* parent)
    : QObject(parent),
      opener_(opener),
      files_([] { return startOpenerProgram(openerProgram()); }),
      events_(files_)
{
    connect(&events_, &OpenerEvents::advanced, this, &OpenWith::takeOpened);
    connect(&portal_, &PortalOpener::unavailable, this,
            [this] { opener_.open(QByteArray::fromStdString(fileURIOfPath(path_))); });
}

void OpenWith::ask(const std::string& path, const QString& window)
{
    path_ = path;
    window_ = window;
    files_.request(path, OpenTask::reference);
    takeOpened();
}

void OpenWith::takeOpened()
{
    if (files_.stage() != OpenStage::done) return;
    const PictureFile file = files_.take();
    if (file.isOpen()) portal_.openWith(file.descriptor(), window_);
    files_.stop();  // it is not needed for long
}

}  // namespace pinorama
