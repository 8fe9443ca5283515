// The window's program: finds out whether it is the one instance of the session, hands its request
// to the other one if it is not, and opens the window if it is.

#include "app/accessibility_notice.h"
#include "app/app_controller.h"
#include "app/column/place_requests.h"
#include "app/command_line.h"
#include "app/drawing.h"
#include "app/main_window.h"
#include "app/more_kinds.h"
#include "app/requests.h"
#include "app/translations.h"
#include "app/window_memory.h"
#include "app/window_report.h"
#include "base/printable.h"
#include "desktop/application_bus.h"
#include "location/picture_source.h"
#include "opener/events/picture_opener.h"
#include "previews/picture_reader.h"
#include "selection/accessibility_advice.h"
#include "selection/file_manager_selection.h"

#include <QApplication>
#include <QDBusObjectPath>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

namespace pinorama {
namespace {
constexpr int kWrongUsage = 2;
constexpr int kFailed = 1;
constexpr std::chrono::seconds kServicePatience{30};  // until somebody asks for the window
constexpr int kReadingPatience = 90000;  // milliseconds, longer than the reader is given
// For saying that a file is missing. A disk that does not answer is left to the window.
constexpr std::chrono::milliseconds kOpenPatience(500);
constexpr int kReadingInterval = 50;  // milliseconds

bool isSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

// Whether a display server can be found.
bool hasServer()
{
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("WAYLAND_SOCKET");
}

// Whether there is anything to open a window on. Without, the toolkit ends the program as if it had
// crashed, and advises to install it anew.
bool hasDisplay(const std::vector<std::string>& arguments)
{
    const auto choosesPlatform = [](const std::string& argument) {
        return argument == "-platform" || argument == "--platform";
    };
    return hasServer() || isSet("QT_QPA_PLATFORM") ||
           std::ranges::any_of(arguments, choosesPlatform);
}

// Prints a line. What was typed, and the name of a file, may be any bytes.
void printDiagnostic(const std::string& what)
{
    std::fprintf(stderr, "pinorama: %s\n", printable(what).c_str());
}

int printUsageError(const std::string& error)
{
    printDiagnostic(error);
    std::fputs(shortUsage().c_str(), stderr);
    return kWrongUsage;
}

// The window shows what is known of a path, whether there is a file or not; a terminal can say it.
void printMissing(const std::string& path)
{
    OpenerClient& opener = cuPictureOpener();
    opener.request(path);
    const bool isMissing = opener.wait(kOpenPatience) == OpenStage::done && !opener.file().item();
    if (isMissing) printDiagnostic(path + ": " + std::strerror(opener.file().error()));
    opener.giveUp();
}

// Prints and saves what the window shows, as soon as the place and the preview are there.
void reportWhenComplete(AppController& controller, const std::string& picture)
{
    auto* timer = new QTimer(&controller);
    QObject::connect(timer, &QTimer::timeout, &controller,
                     [&controller, picture, left = kReadingPatience]() mutable {
                         MainWindow& window = *controller.myWindow;
                         const bool waits = left > 0 && controller.reading().isGoingOn();
                         left -= kReadingInterval;
                         if (waits) return;
                         // What came last may not be laid out yet.
                         QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
                         std::fputs(windowReport(window).c_str(), stdout);
                         const bool isSaved = saveWindowPicture(window, picture);
                         if (!isSaved) printDiagnostic(picture + ": the image cannot be saved");
                         QCoreApplication::exit(isSaved ? 0 : kFailed);
                     });
    timer->start(kReadingInterval);
}

// Task bars take the icon from the desktop file; this one is for those that do not.
void setWindowIcon()
{
    QApplication::setWindowIcon(drawnIcon(QStringLiteral("icon"), {16, 32, 48, 64}));
}

int showInOther(const std::string& path)
{
    // What is made last goes first when the program ends. Qt's thread for the bus goes on until
    // then with the bus's messages, and complains if the list of types is gone, so the list comes
    // first.
    qRegisterMetaType<QDBusObjectPath>();
    ApplicationBus bus(QDBusConnection::sessionBus());
    if (showInOpenWindow(bus, path)) return 0;
    printDiagnostic("the running program does not answer");
    return kFailed;
}

int run(const CommandLine& line)
{
    ApplicationBus bus(QDBusConnection::sessionBus());
    // A report is of a window of its own. What others ask for from now on waits for the event loop.
    if (!line.printAndSave && bus.claim() == ApplicationBus::Claim::takenByAnother) {
        if (handOver(bus, line)) return 0;
        printDiagnostic("the running program does not answer");
        return kFailed;
    }
    std::unique_ptr<MainWindow> window;
    const bool isOfUser = !line.printAndSave && !line.action;  // a report has the usual size
    const auto earlier = isOfUser ? loadWindow() : std::nullopt;
    if (opensWindow(line)) window = MainWindow::showAhead(earlier);
    setReadsMoreKinds(appLoadReadMoreKinds());
    cuReadPicturesElsewhere();  // the reader starts while the window gets its views
    FileManagerSelection selection;
    // A report is of the pictures that it was asked for.
    AppController controller(line.printAndSave ? nullptr : &selection, nullptr, std::move(window));
    if (earlier && !opensWindow(line)) controller.myWindow->restore(*earlier);
    std::optional<WindowMemory> memory;
    if (isOfUser) memory.emplace(*controller.myWindow, earlier);
    controller.init();
    connectRequests(bus, controller);
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();

    carryOut(controller, line);
    if (line.action) return 0;
    AccessibilityAdvice advice;
    PlaceRequests placeRequests(QDBusConnection::sessionBus());
    if (line.printAndSave) {
        reportWhenComplete(controller, *line.printAndSave);
    } else {
        offerAccessibility(advice, controller);
        // The window comes first.
        QTimer::singleShot(0, &placeRequests, &PlaceRequests::listen);
    }
    if (line.service) endUnlessUsed(bus, controller, kServicePatience);
    QTimer::singleShot(0, &setWindowIcon);  // the window comes first
    return QCoreApplication::exec();
}
}  // namespace
}  // namespace pinorama

using namespace pinorama;

int main(int argc, char** argv)
{
    // A write beyond a limit on the size of files fails and is reported; the program goes on.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    // Help and version need no display.
    std::string error;
    const std::vector<std::string> all(argv + std::min(argc, 1), argv + argc);
    const auto atOnce = parseCommandLine(all, &error);
    if (atOnce && atOnce->help) return std::fputs(usageText().c_str(), stdout) < 0;
    if (atOnce && atOnce->version) return std::puts("pinorama " PINORAMA_VERSION) < 0;

    if (atOnce && atOnce->show) {
        // A file manager in a terminal may have no display either.
        const QCoreApplication application(argc, argv);
        return showInOther(*atOnce->show);
    }

    if (!hasDisplay(all)) {
        if (!atOnce) return printUsageError(error);
        printDiagnostic("no display; pinorama-info prints the same in a terminal");
        return kFailed;
    }
    // GTK's theme for the toolkit ends a program that has no display server to draw with.
    if (!hasServer()) unsetenv("QT_QPA_PLATFORMTHEME");
    // From 6.10 on Qt introduces each program to the desktop's portal, and complains at every start
    // if there is none, or if it has introduced the program before.
    QLoggingCategory::setFilterRules(
        QStringLiteral("qt.qpa.services.warning=false\nqt.qpa.theme.gnome.warning=false"));
    QApplication application(argc, argv);  // takes the toolkit's own options out
    QApplication::setApplicationName(QStringLiteral("Pinorama"));
    QApplication::setApplicationVersion(QStringLiteral(PINORAMA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.pinorama.Pinorama"));
    installTranslations();

    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const auto line = parseCommandLine(arguments, &error);
    if (!line) return printUsageError(error);
    if (line->show) return showInOther(*line->show);
    if (!line->paths.empty()) printMissing(line->paths.back());
    return run(*line);
}
