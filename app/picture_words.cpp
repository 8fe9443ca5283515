#include "app/picture_words.h"

#include "app/shown_text.h"

#include <QCoreApplication>

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace pinorama {
namespace {
struct PictureWords {
    Q_DECLARE_TR_FUNCTIONS(pinorama::PictureWords)
};
}  // namespace

QString wordsOfKind(const FileAttributes& item, const QString& name, bool isRead)
{
    //: The foot of the window; so are the others. %1 is the name of the file that is shown
    if (S_ISDIR(item.type)) return PictureWords::tr("%1 is a folder.").arg(name);
    //: A pipe or a device
    if (!item.isRegular) return PictureWords::tr("%1 is not a file that can be read.").arg(name);
    if (isRead) return {};
    //: The foot of the window. JPEG stays
    return PictureWords::tr(
        "Files of this type are not read; JPEG and the raw files of cameras are.");
}

QString wordsOfOpenError(int error, const QString& name)
{
    switch (error) {
    case ENOENT:
    //: The foot of the window; %1 is the name of a file
    case ENOTDIR: return PictureWords::tr("There is no file %1.").arg(name);
    case EACCES:
    //: The foot of the window; %1 is the name of a file
    case EPERM: return PictureWords::tr("You are not allowed to read %1.").arg(name);
    default:
        // Both at once: the name may hold a "%2".
        //: %2 is the system's reason, such as "Input/output error"
        return PictureWords::tr("%1 cannot be opened: %2.")
            .arg(name, isolated(QString::fromLocal8Bit(std::strerror(error))));
    }
}

QString wordsOfNoPlace()
{
    //: The foot of the window
    return PictureWords::tr("This picture does not say where it was taken.");
}

QString wordsOfSeveral()
{
    //: The foot of the window
    return PictureWords::tr("Several files are selected; the window shows one at a time.");
}

}  // namespace pinorama
