#include "app/requests.h"

#include "app/app_controller.h"
#include "app/command_line.h"
#include "desktop/application_bus.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QTimer>

#include <functional>
#include <utility>

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

// Does what other programs ask for, once for a burst of requests: showing a file takes milliseconds
// and asking for it microseconds, so a program that asks without pause would keep the window busy.
// Of what was asked until the event loop has nothing else to do only the last is looked at.
class LastRequest : public QObject {
public:
    explicit LastRequest(AppController& controller) : QObject(&controller), controller_(controller)
    {
        timer_.setSingleShot(true);
        connect(&timer_, &QTimer::timeout, this, &LastRequest::carryOutLast);
    }

    // A file is reported: the window stays where it is.
    void report(const QByteArray& path)
    {
        reported_ = path;
        timer_.start(0);
    }

    // The window is wanted, with `content` or with what it shows.
    void take(const QByteArray& token, std::function<void()> content)
    {
        if (!token.isEmpty()) token_ = token;
        if (content) content_ = std::move(content);
        isWanted_ = true;
        reported_.clear();  // it came before
        timer_.start(0);
    }

private:
    void carryOutLast()
    {
        const QByteArray reported = std::exchange(reported_, {});
        if (std::exchange(isWanted_, false)) {
            useActivationToken(std::exchange(token_, {}));
            const auto content = std::exchange(content_, {});
            content ? content() : controller_.showMainWindow();
        }
        if (!reported.isEmpty()) controller_.showReported(reported.toStdString());
    }

    AppController& controller_;
    QTimer timer_;
    QByteArray token_;
    std::function<void()> content_;
    bool isWanted_ = false;
    QByteArray reported_;  // empty for none
};
}  // namespace

void connectRequests(ApplicationBus& bus, AppController& controller)
{
    auto* last = new LastRequest(controller);
    QObject::connect(&bus, &ApplicationBus::activated, last,
                     [last](const QByteArray& token) { last->take(token, {}); });
    QObject::connect(
        &bus, &ApplicationBus::fileOpened, last,
        [last, &controller](const QByteArray& path, const QByteArray& token) {
            last->take(token, [&controller, path] { controller.openPath(path.toStdString()); });
        });
    QObject::connect(&bus, &ApplicationBus::fileReported, last,
                     [last](const QByteArray& path) { last->report(path); });
    QObject::connect(&bus, &ApplicationBus::textSent, last,
                     [last, &controller](const QString& text) {
                         last->take({}, [&controller, text] { openText(controller, text); });
                     });
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

bool showInOpenWindow(ApplicationBus& bus, const std::string& path)
{
    return bus.showInOther(path) != ApplicationBus::Delivery::noReply;
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
