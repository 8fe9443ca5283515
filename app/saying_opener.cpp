#include "app/saying_opener.h"

#include "app/foot_line.h"
#include "app/main_window.h"
#include "app/shown_text.h"

#include <QCoreApplication>
#include <QUrl>

namespace pinorama {
namespace {
struct Words {
    Q_DECLARE_TR_FUNCTIONS(pinorama::SayingOpener)
};
}  // namespace

bool SayingOpener::open(const QByteArray& url)
{
    QString words;
    if (!isWellFormed(url)) {
        words = wordsOfNotOpened(url, window_.fontMetrics());
    } else if (!opener_.isTaken(url)) {
        words = wordsOfNoProgram(url);
    } else if (!opener_.open(url)) {
        words = wordsOfNotOpened(url, window_.fontMetrics());
    }
    if (!words.isEmpty()) footLine(window_).say(FootLine::Topic::action, words);
    return words.isEmpty();
}

QString wordsOfNoProgram(const QByteArray& url)
{
    const QByteArray scheme = url.left(url.indexOf(':')).toLower();
    //: The foot of the window; so are the others
    if (scheme == "http" || scheme == "https") return Words::tr("No web browser is installed.");
    if (scheme == "geo")
        //: "geo:" is the beginning of an address; the names are those of programs
        return Words::tr("No program opens geo: addresses. Marble and GNOME Maps do.");
    if (scheme == "file" && url.toLower().endsWith(".kml"))
        //: The foot of the window. KML is a kind of file; the names of programs stay
        return Words::tr("No program opens KML files. Marble and Google Earth do.");
    if (scheme == "file")
        //: The foot of the window. %1 is the name of a file, such as manual.md
        return Words::tr("No program opens %1.").arg(QUrl::fromEncoded(url).fileName());
    //: %1 is the beginning of an address, such as "om"
    return Words::tr("No program opens addresses that begin with %1:.")
        .arg(QString::fromLatin1(scheme));
}

QString wordsOfNotOpened(const QByteArray& url, const QFontMetrics& letters)
{
    const QString shown = shownName(QString::fromUtf8(url), letters);
    //: The foot of the window. %1 is an address that the user has written
    if (!isWellFormed(url)) return Words::tr("%1 is not a valid address.").arg(shown);
    //: The foot of the window. %1 is an address; xdg-utils is the name of a package
    return Words::tr("%1 could not be opened. Is xdg-utils installed?").arg(shown);
}

}  // namespace pinorama
