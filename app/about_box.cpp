#include "app/about_box.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>

namespace pinorama {
namespace {
struct AboutBox {
    Q_DECLARE_TR_FUNCTIONS(AboutBox)
};
constexpr int kIconSize = 64;  // points

// With a mark, because a name alone in its line would stand at the left edge of every window.
QString nameAndVersion()
{
    constexpr QChar kRightToLeftMark(0x200f);
    const QString name = QStringLiteral("<b>Pinorama " PINORAMA_VERSION "</b>");
    return QGuiApplication::isRightToLeft() ? kRightToLeftMark + name : name;
}

// What the program stands on, and under which licence each comes. Names, in every language.
QString librariesAsLines()
{
    return QStringLiteral(
               "Qt %1 (LGPL-3.0)<br>ICU (Unicode-3.0)<br>GeographicLib (MIT)<br>"
               "LibRaw (LGPL-2.1 / CDDL-1.0)<br>"
               "libjpeg-turbo (IJG / BSD-3-Clause / Zlib)<br>libpng (libpng-2.0)<br>"
               "SQLite (public domain)<br>nlohmann-json (MIT)<br>libseccomp (LGPL-2.1)")
        .arg(QLatin1String(qVersion()));
}

// Where the places come from and what the sources ask for. Names, in every language.
QString sourcesOfPlacesAsLines()
{
    return QStringLiteral(
        "GeoNames (CC BY 4.0), <a href=\"https://www.geonames.org\">www.geonames.org</a><br>"
        "country-coder (ISC)<br>Natural Earth (public domain), world-atlas (ISC)");
}

// A link to the home page; nothing if there is none.
QString homePageAsParagraph()
{
    if constexpr (!PINORAMA_SHOWS_HOME) return {};
    return QStringLiteral("<p><a href=\"" PINORAMA_HOME_URL "\">" PINORAMA_HOME_URL "</a></p>");
}
}  // namespace

void appShowAboutBox(QWidget* parent)
{
    auto* box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(QStringLiteral("aboutBox"));
    //: Title of the dialog. Pinorama stays
    box->setWindowTitle(AboutBox::tr("About Pinorama"));
    box->setIconPixmap(QApplication::windowIcon().pixmap(QSize(kIconSize, kIconSize),
                                                         parent->devicePixelRatioF()));
    box->setTextFormat(Qt::RichText);
    box->setText(nameAndVersion());
    box->setInformativeText(
        QStringLiteral("<p>%1</p>%2<p>%3</p><p>%4<br>%5</p><p>%6<br>%7</p>")
            .arg(
                //: In the dialog "About Pinorama": what the program does
                AboutBox::tr("Shows where the picture selected in the file manager was taken."),
                homePageAsParagraph(),
                //: In the dialog "About Pinorama". The name of the licence stays
                AboutBox::tr("Free software under the GNU General Public License, version 3 or "
                             "later. It comes with no warranty."),
                //: In the dialog "About Pinorama", above a list
                AboutBox::tr("Made with these libraries:"), librariesAsLines(),
                //: In the dialog "About Pinorama", above a list of sources
                AboutBox::tr("Places and map are made from:"), sourcesOfPlacesAsLines()));
    box->setTextInteractionFlags(Qt::TextBrowserInteraction);
    box->setStandardButtons(QMessageBox::Close);
    box->open();
}

}  // namespace pinorama
