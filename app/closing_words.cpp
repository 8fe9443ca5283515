#include "app/closing_words.h"

#include "app/foot_line.h"
#include "app/main_window.h"
#include "lib/objects/string.h"
#include "lib/prefs/preferences.h"
#include "lib/strings/string_holder.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QRegularExpression>

#include <cstdint>

namespace pinorama {
namespace {
constexpr std::u16string_view kKey = u"closingExplained";

bool isExplained()
{
    std::uint32_t isSaid = 0;
    (void)prefLoadUInt32(createString(kKey), &isSaid);  // consumes the key; 0 stays without it
    return isSaid != 0;
}

// Without the letters that Alt reaches; "(&F)" goes as a whole.
QString plainTitle(QString title)
{
    static const QRegularExpression mnemonic(QStringLiteral("\\(&.\\)|&"));
    return title.remove(mnemonic);
}
}  // namespace

ClosingWords::ClosingWords(MainWindow& window) : QObject(&window), window_(window)
{
    window.installEventFilter(this);
}

bool ClosingWords::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close) {
        isDue_ = !isExplained();
        if (auto* line = window_.findChild<FootLine*>()) line->takeBack(FootLine::Topic::program);
    } else if (event->type() == QEvent::Show && isDue_) {
        isDue_ = false;
        (void)prefStoreUInt32(createString(kKey), 1);  // consumes the key
        footLine(window_).say(FootLine::Topic::program, words());
    }
    return QObject::eventFilter(watched, event);
}

QString ClosingWords::words() const
{
    //: The foot of the window, once: %1 is the title of a menu, %2 of the entry in it that ends the
    //: program. Pinorama stays
    return tr("Pinorama keeps running when its window is closed. %1 > %2 ends it.")
        .arg(plainTitle(window_.pictureMenu->title()), plainTitle(window_.quitAction->text()));
}

}  // namespace pinorama
