#include "app/saying_opener.h"

#include "app/foot_line.h"
#include "app/main_window.h"

#include <QCoreApplication>

namespace pinorama {
namespace {
struct Words {
    Q_DECLARE_TR_FUNCTIONS(pinorama::SayingOpener)
};
}  // namespace

void SayingOpener::open(const QByteArray& url)
{
    if (opener_.isTaken(url)) {
        opener_.open(url);
    } else {
        footLine(window_).say(FootLine::Topic::action, wordsOfNoProgram(url));
    }
}

QString wordsOfNoProgram(const QByteArray& url)
{
    const QByteArray scheme = url.left(url.indexOf(':')).toLower();
    //: The foot of the window; so are the others
    if (scheme == "http" || scheme == "https") return Words::tr("No web browser is installed.");
    if (scheme == "geo")
        //: "geo:" is the beginning of an address; the names are those of programs
        return Words::tr("No program opens geo: addresses. Marble and GNOME Maps do.");
    if (scheme == "file")
        //: The foot of the window. KML is a kind of file; the names of programs stay
        return Words::tr("No program opens KML files. Marble and Google Earth do.");
    //: %1 is the beginning of an address, such as "om"
    return Words::tr("No program opens addresses that begin with %1:.")
        .arg(QString::fromLatin1(scheme));
}

}  // namespace pinorama
