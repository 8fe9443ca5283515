#include "app/translations.h"

#include "lib/text/locale.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <string>

namespace pinorama {

void installTranslations()
{
    // The same languages as the string tables, so that a window never mixes two.
    for (const std::string& language : textLanguages()) {
        const QString name = QString::fromStdString(language);
        auto* window = new QTranslator(QCoreApplication::instance());
        if (!window->load(QStringLiteral(":/i18n/pinorama_%1.qm").arg(name))) {
            delete window;
            continue;
        }
        QCoreApplication::installTranslator(window);
        auto* toolkit = new QTranslator(QCoreApplication::instance());
        if (toolkit->load(QStringLiteral("qtbase_%1").arg(name),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            QCoreApplication::installTranslator(toolkit);
        }
        // The toolkit's own translation, which may be missing, would say it as well.
        QGuiApplication::setLayoutDirection(QLocale(name).textDirection());
        return;
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace pinorama
