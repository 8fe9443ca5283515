// Has the user choose the program that opens a picture. Another process opens the file, and the
// desktop's portal gets a reference to it, so that a disk that does not answer keeps nobody, not
// even whoever closes the file; without a portal the picture opens in the program for files of its
// kind.

#pragma once

#include "desktop/portal_opener.h"
#include "desktop/url_opener.h"
#include "opener/events/picture_opener.h"
#include "opener/opener_client.h"

#include <QObject>
#include <QString>

#include <string>

namespace pinorama {

class OpenWith : public QObject {
    Q_OBJECT

public:
    // `opener` opens the picture where there is no portal; it lives longer.
    explicit OpenWith(UrlOpener& opener, QObject* parent = nullptr);

    // Asks for the program for a file. An earlier question for which the file has not been opened
    // is dropped.
    //
    //   path    absolute, in the bytes of the system.
    //   window  that the dialog belongs to, as portalParent has it.
    void ask(const std::string& path, const QString& window);

private:
    void takeOpened();

    UrlOpener& opener_;
    OpenerClient files_;
    OpenerEvents events_;
    PortalOpener portal_;
    std::string path_;
    QString window_;
};

}  // namespace pinorama
