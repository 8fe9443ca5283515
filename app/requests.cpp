#include "app/requests.h"

#include "app/app_controller.h"
#include "app/command_line.h"
#include "desktop/application_bus.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QTimer>

namespace pinorama {

namespace {
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
}  // namespace

void connectRequests(ApplicationBus& bus, AppController& controller)
{
    QObject::connect(&bus, &ApplicationBus::activated, &controller,
                     [&controller](const QByteArray& token) {
                         useActivationToken(token);
                         controller.showMainWindow();
                     });
    QObject::connect(&bus, &ApplicationBus::fileOpened, &controller,
                     [&controller](const QByteArray& path, const QByteArray& token) {
                         useActivationToken(token);
                         controller.openPath(path.toStdString());
                     });
    QObject::connect(&bus, &ApplicationBus::textSent, &controller,
                     [&controller](const QString& text) { openText(controller, text); });
    QObject::connect(&bus, &ApplicationBus::actionActivated, &controller,
                     [&controller](const QString& action) { runAction(controller, action); });
}

bool opensWindow(const CommandLine& line)
{
    if (line.action) return false;
    return line.serviceText || !line.paths.empty() || !line.service;
}

void carryOut(AppController& controller, const CommandLine& line)
{
    if (line.action) {
        runAction(controller, QString::fromStdString(*line.action));
    } else if (line.serviceText) {
        openText(controller, QString::fromStdString(*line.serviceText));
    } else if (!line.paths.empty()) {
        controller.openPath(line.paths.back());
    } else if (!line.service) {
        controller.showMainWindow();
    }
}

void endUnlessUsed(ApplicationBus& bus, AppController& controller,
                   std::chrono::milliseconds patience)
{
    auto* timer = new QTimer(&controller);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &QCoreApplication::quit);
    QObject::connect(&bus, &ApplicationBus::activated, timer, &QTimer::stop);
    QObject::connect(&bus, &ApplicationBus::fileOpened, timer, &QTimer::stop);
    QObject::connect(&bus, &ApplicationBus::textSent, timer, &QTimer::stop);
    timer->start(patience);
}

bool handOver(ApplicationBus& bus, const CommandLine& line)
{
    const QByteArray token = activationTokenOfStarter();
    if (line.action) return bus.runActionInOther(QString::fromStdString(*line.action), token);
    if (line.serviceText) {
        // The text's own message has no place for the token.
        return bus.activateOther(token) &&
               bus.sendTextToOther(QString::fromStdString(*line.serviceText));
    }
    if (!line.paths.empty()) return bus.openInOther(line.paths, token);
    return line.service || bus.activateOther(token);
}

}  // namespace pinorama
