// The window's program: finds out whether it is the one instance of the session, hands its request
// to the other one if it is not, and opens the window if it is.

#include "app/app_controller.h"
#include "app/command_line.h"
#include "app/main_window.h"
#include "app/translations.h"
#include "app/window_report.h"
#include "lib/strings/string_holder.h"
#include "platform/desktop/application_bus.h"
#include "platform/files/path_text.h"

#include <QApplication>
#include <QIcon>
#include <QMimeData>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {
constexpr int kWrongUsage = 2;
constexpr int kFailed = 1;
constexpr int kServicePatience = 30000;  // milliseconds without a request
constexpr int kPreviewPatience = 3000;   // milliseconds
constexpr int kPreviewInterval = 50;     // milliseconds

void openPath(AppController& controller, const std::string& path)
{
    const StringHolder text(platform::createPathText(path));
    controller.applicationOpenFile(text.get());
}

void openText(AppController& controller, const QString& text)
{
    QMimeData pasteboard;
    pasteboard.setText(text);
    controller.openFile(&pasteboard);
}

void runAction(AppController& controller, const QString& action)
{
    if (action == QLatin1String("home")) controller.poweredBySkallion();
    if (action == QLatin1String("donate")) controller.donate();
    if (action == QLatin1String("quit")) QCoreApplication::quit();
}

// Hands the request to the running instance; the status that this process ends with.
int handOver(platform::ApplicationBus& bus, const app::CommandLine& line)
{
    const QByteArray token = platform::activationTokenOfStarter();
    bool isDone = true;
    if (line.action) {
        isDone = bus.runActionInOther(QString::fromStdString(*line.action), token);
    } else if (line.serviceText) {
        isDone = bus.activateOther(token) &&
                 bus.sendTextToOther(QString::fromStdString(*line.serviceText));
    } else if (!line.paths.empty()) {
        isDone = bus.openInOther(line.paths, token);
    } else if (!line.service) {
        isDone = bus.activateOther(token);
    }
    if (isDone) return 0;
    std::fputs("pinorama: the running program does not answer\n", stderr);
    return kFailed;
}

void connectRequests(platform::ApplicationBus& bus, AppController& controller)
{
    using platform::ApplicationBus;
    QObject::connect(&bus, &ApplicationBus::activated, &controller, [&](const QByteArray& token) {
        platform::useActivationToken(token);
        controller.showMainWindow();
    });
    QObject::connect(&bus, &ApplicationBus::fileOpened, &controller,
                     [&](const QByteArray& path, const QByteArray& token) {
                         platform::useActivationToken(token);
                         openPath(controller, path.toStdString());
                     });
    QObject::connect(&bus, &ApplicationBus::textSent, &controller,
                     [&](const QString& text) { openText(controller, text); });
    QObject::connect(&bus, &ApplicationBus::actionActivated, &controller,
                     [&](const QString& action) { runAction(controller, action); });
}

// Carries out what the command line asks of the first instance.
void carryOut(AppController& controller, const app::CommandLine& line)
{
    if (line.serviceText) {
        openText(controller, QString::fromStdString(*line.serviceText));
    } else if (!line.paths.empty()) {
        openPath(controller, line.paths.back());
    } else if (!line.service) {
        controller.showMainWindow();
    }
}

// Prints and saves what the window shows, as soon as the preview is there.
void reportWhenComplete(AppController& controller, const std::string& picture)
{
    auto* timer = new QTimer(&controller);
    QObject::connect(timer, &QTimer::timeout, &controller,
                     [&controller, picture, left = kPreviewPatience]() mutable {
                         MainWindow& window = *controller.myWindow;
                         const bool waits =
                             controller.lastPath != nullptr && left > 0 &&
                             window.fileIconField->pixmap(Qt::ReturnByValue).isNull();
                         left -= kPreviewInterval;
                         if (waits) return;
                         std::fputs(app::windowReport(window).c_str(), stdout);
                         const bool isSaved = app::saveWindowPicture(window, picture);
                         if (!isSaved)
                             std::fprintf(stderr, "pinorama: cannot write %s\n", picture.c_str());
                         QCoreApplication::exit(isSaved ? 0 : kFailed);
                     });
    timer->start(kPreviewInterval);
}

int run(const app::CommandLine& line)
{
    platform::ApplicationBus bus(QDBusConnection::sessionBus());
    AppController controller;
    if (!controller.init()) {
        std::fputs("pinorama: the texts of the program are missing\n", stderr);
        return kFailed;
    }
    connectRequests(bus, controller);
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();

    // A report is of a window of its own.
    if (!line.printAndSave && bus.claim() == platform::ApplicationBus::Claim::takenByAnother)
        return handOver(bus, line);
    if (line.action) {
        runAction(controller, QString::fromStdString(*line.action));
        return 0;
    }
    carryOut(controller, line);
    if (line.printAndSave) reportWhenComplete(controller, *line.printAndSave);
    if (line.service) {
        QTimer::singleShot(kServicePatience, &controller, [&] {
            if (controller.myWindow->isHidden()) QCoreApplication::quit();
        });
    }
    return QCoreApplication::exec();
}
}  // namespace

int main(int argc, char** argv)
{
    // Help and version need no display.
    std::string error;
    const std::vector<std::string> all(argv + std::min(argc, 1), argv + argc);
    const auto atOnce = app::parseCommandLine(all, &error);
    if (atOnce && atOnce->help) return std::fputs(app::usageText().c_str(), stdout) < 0;
    if (atOnce && atOnce->version) return std::puts("pinorama " PINORAMA_VERSION) < 0;

    QApplication application(argc, argv);  // takes the toolkit's own options out
    QApplication::setApplicationName(QStringLiteral("Pinorama"));
    QApplication::setApplicationVersion(QStringLiteral(PINORAMA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.pinorama.Pinorama"));
    QApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("org.pinorama.Pinorama"),
                         QIcon(QStringLiteral(":/pinorama/org.pinorama.Pinorama.svg"))));
    app::installTranslations();

    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const auto line = app::parseCommandLine(arguments, &error);
    if (!line) {
        std::fprintf(stderr, "pinorama: %s\n%s", error.c_str(), app::usageText().c_str());
        return kWrongUsage;
    }
    return run(*line);
}
