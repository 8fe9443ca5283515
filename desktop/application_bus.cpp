#include "desktop/application_bus.h"

#include "base/file_uri.h"
#include "desktop/application_adaptors.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QStringList>

#include <algorithm>
#include <chrono>

namespace pinorama {
namespace {
const QString kName = QStringLiteral("org.pinorama.Pinorama");
const QString kObject = QStringLiteral("/org/pinorama/Pinorama");
const QString kApplicationInterface = QStringLiteral("org.freedesktop.Application");
const QString kOwnInterface = QStringLiteral("org.pinorama.Pinorama1");
const QString kReportInterface = QStringLiteral("org.pinorama.Pinorama");
constexpr std::chrono::milliseconds kReplyTimeout = std::chrono::seconds(5);
constexpr char kTokenVariable[] = "XDG_ACTIVATION_TOKEN";
constexpr char kStartupVariable[] = "DESKTOP_STARTUP_ID";
constexpr qsizetype kMaxTokenLength = 1024;  // bytes

bool isPlausibleToken(const QByteArray& token)
{
    return !token.isEmpty() && token.size() <= kMaxTokenLength &&
           std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c <= '~'; });
}

bool isReply(const QDBusMessage& message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

QVariantMap platformDataOf(const QByteArray& token)
{
    if (!isPlausibleToken(token)) return {};
    const QString text = QString::fromLatin1(token);
    return {{QStringLiteral("activation-token"), text},
            {QStringLiteral("desktop-startup-id"), text}};
}
}  // namespace

ApplicationBus::ApplicationBus(const QDBusConnection& connection, QObject* parent)
    : QObject(parent), connection_(connection)
{
    new ApplicationAdaptor(this);
    new PinoramaAdaptor(this);
    new ReportAdaptor(this, connection_);
}

ApplicationBus::~ApplicationBus()
{
    if (!hasName_) return;
    connection_.unregisterService(kName);
    connection_.unregisterObject(kObject);
}

ApplicationBus::Claim ApplicationBus::claim()
{
    if (!connection_.isConnected() || connection_.interface() == nullptr) return Claim::noBus;
    // The object comes before the name: a caller that finds the name must find the object too.
    if (!connection_.registerObject(kObject, this)) return Claim::noBus;
    if (!connection_.registerService(kName)) {
        connection_.unregisterObject(kObject);
        const bool hasOwner = connection_.interface()->isServiceRegistered(kName);
        return hasOwner ? Claim::takenByAnother : Claim::noBus;
    }
    hasName_ = true;
    return Claim::granted;
}

bool ApplicationBus::activateOther(const QByteArray& token)
{
    return isReply(
        callOther(kApplicationInterface, QStringLiteral("Activate"), {platformDataOf(token)}));
}

bool ApplicationBus::openInOther(const std::vector<std::string>& paths, const QByteArray& token)
{
    QStringList uris;
    for (const std::string& path : paths) uris << QString::fromStdString(fileURIOfPath(path));
    return isReply(
        callOther(kApplicationInterface, QStringLiteral("Open"), {uris, platformDataOf(token)}));
}

bool ApplicationBus::sendTextToOther(const QString& text)
{
    return isReply(callOther(kOwnInterface, QStringLiteral("OpenText"), {text}));
}

bool ApplicationBus::runActionInOther(const QString& action, const QByteArray& token)
{
    return isReply(callOther(kApplicationInterface, QStringLiteral("ActivateAction"),
                             {action, QVariantList(), platformDataOf(token)}));
}

ApplicationBus::Delivery ApplicationBus::showInOther(const std::string& path)
{
    if (!connection_.isConnected()) return Delivery::nobody;
    const QString uri = QString::fromStdString(fileURIOfPath(path));
    const QDBusMessage reply = callOther(kReportInterface, QStringLiteral("Show"), {uri});
    if (isReply(reply)) return Delivery::delivered;
    // The second is the bus's answer to calls that must not start the program.
    const bool hasNoOwner =
        QDBusError(reply).type() == QDBusError::ServiceUnknown ||
        reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
    return hasNoOwner ? Delivery::nobody : Delivery::noReply;
}

QDBusMessage ApplicationBus::callOther(const QString& interface, const QString& method,
                                       const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kName, kObject, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    const auto timeout = static_cast<int>(kReplyTimeout.count());
    return connection_.call(call, QDBus::Block, timeout);
}

QByteArray activationTokenOfStarter()
{
    QByteArray token = qgetenv(kTokenVariable);
    if (token.isEmpty()) token = qgetenv(kStartupVariable);
    return isPlausibleToken(token) ? token : QByteArray();
}

void useActivationToken(const QByteArray& token)
{
    // On Wayland the toolkit reads this variable when it activates a window.
    if (isPlausibleToken(token)) qputenv(kTokenVariable, token);
}

}  // namespace pinorama
