#include "app/about_box.h"

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>
#include <QMessageBox>

namespace {
struct AboutBox {
    Q_DECLARE_TR_FUNCTIONS(AboutBox)
};
constexpr int kIconSize = 64;  // points
}  // namespace

void appShowAboutBox(QWidget* parent)
{
    auto* box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(QStringLiteral("aboutBox"));
    box->setWindowTitle(AboutBox::tr("About Pinorama"));
    box->setIconPixmap(QApplication::windowIcon().pixmap(QSize(kIconSize, kIconSize),
                                                         parent->devicePixelRatioF()));
    box->setTextFormat(Qt::RichText);
    box->setText(QStringLiteral("<b>Pinorama " PINORAMA_VERSION "</b>"));
    box->setInformativeText(
        QStringLiteral("<p>%1</p><p><a href=\"" PINORAMA_HOME_URL "\">" PINORAMA_HOME_URL
                       "</a></p><p>%2</p>")
            .arg(AboutBox::tr("Tells where the picture selected in the file manager was taken."),
                 AboutBox::tr("Free software under the GNU General Public License, version 3 or "
                              "later. It comes with no warranty.")));
    box->setTextInteractionFlags(Qt::TextBrowserInteraction);
    box->setStandardButtons(QMessageBox::Close);
    box->open();
}
