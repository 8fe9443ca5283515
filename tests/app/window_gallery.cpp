// No test but something to look at: one picture with everything that the program can show besides
// its window, in the language, the theme and the scale of the surroundings. scripts/screenshots
// runs it.
//
// usage: window_gallery FILE.png PICTURE

#include "app/accessibility_notice.h"
#include "app/app_controller.h"
#include "app/drawing.h"
#include "app/export_notice.h"
#include "app/foot_line.h"
#include "app/main_window.h"
#include "app/menu_bar.h"
#include "app/translations.h"
#include "desktop/url_opener.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "selection/accessibility_advice.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
constexpr int kGap = 12;          // points
constexpr int kMaxWidth = 1500;   // points
constexpr int kSettling = 300;    // milliseconds
constexpr int kNoticeStates = 3;  // the offer, and both ends of it

void settle()
{
    const QDeadlineTimer limit(kSettling);
    while (!limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
}

class Gallery {
public:
    void add(QWidget* view)
    {
        if (view == nullptr) return;
        settle();
        views_.push_back(view->grab());
    }

    void addMenu(QMenuBar* bar, QMenu* menu)
    {
        bar->setActiveAction(menu->menuAction());
        add(menu);
        menu->close();
    }

    // In rows, as they come.
    bool save(const QString& file) const
    {
        QPoint at(kGap, kGap);
        int width = 0;
        int below = 0;
        std::vector<QPoint> places;
        for (const QPixmap& view : views_) {
            const QSize size = view.deviceIndependentSize().toSize();
            if (at.x() > kGap && at.x() + size.width() > kMaxWidth) at = {kGap, below + kGap};
            places.push_back(at);
            width = std::max(width, at.x() + size.width() + kGap);
            below = std::max(below, at.y() + size.height());
            at.rx() += size.width() + kGap;
        }
        const qreal scale = views_.front().devicePixelRatioF();
        QPixmap all(QSize(width, below + kGap) * scale);
        all.setDevicePixelRatio(scale);
        all.fill(Qt::gray);
        QPainter painter(&all);
        for (std::size_t i = 0; i < views_.size(); ++i) painter.drawPixmap(places[i], views_[i]);
        painter.end();
        return all.save(file);
    }

private:
    std::vector<QPixmap> views_;
};

void addNotices(Gallery& gallery, AppController& controller)
{
    for (int state = 0; state < kNoticeStates; ++state) {
        AccessibilityAdvice advice;
        controller.syncCheckbox->setChecked(true);
        offerAccessibility(advice, controller);
        Q_EMIT advice.needed(QStringLiteral("PCManFM-Qt"));  // the longest of the names
        auto* notice = controller.myWindow->findChild<AccessibilityNotice*>();
        if (state > 0) notice->showSwitched(state == 1);
        gallery.add(state == 0 ? controller.myWindow : static_cast<QWidget*>(notice));
        delete notice;
    }
    DesktopUrlOpener opener;
    showExportResult(*controller.myWindow, opener, QStringLiteral("/tmp/place.kml"), EACCES);
    FootLine& failure = footLine(*controller.myWindow);
    gallery.add(&failure);
    failure.takeBack(FootLine::Topic::action);
}
}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 3) return std::fputs("usage: window_gallery FILE.png PICTURE\n", stderr), 2;
    QApplication::setApplicationName(QStringLiteral("Pinorama"));
    QApplication::setWindowIcon(drawnIcon(QStringLiteral("icon"), {16, 32, 48, 64}));
    installTranslations();

    AppController controller;
    controller.init();
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();
    controller.showMainWindow();
    const ObjectHolder<TovStringRef> picture(createPathText(argv[2]));
    controller.applicationOpenFile(picture.get());
    settle();

    MainWindow& window = *controller.myWindow;
    Gallery gallery;
    addNotices(gallery, controller);
    gallery.addMenu(window.mainMenu, window.pictureMenu);
    gallery.addMenu(window.mainMenu, window.helpMenu);
    window.webServicesMenu->showPopup();
    gallery.add(window.webServicesMenu->findChild<QFrame*>());
    window.webServicesMenu->hidePopup();
    QContextMenuEvent question(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(window.gpsCoordinateField, &question);
    gallery.add(QApplication::activePopupWidget());
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
    window.aboutAction->trigger();
    gallery.add(window.findChild<QMessageBox*>());
    window.openAction->trigger();
    gallery.add(window.findChild<QFileDialog*>());
    return gallery.save(QFile::decodeName(argv[1])) ? 0 : 1;
}
