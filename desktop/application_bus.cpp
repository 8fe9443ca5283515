#include "desktop/application_bus.h"

#include "base/file_uri.h"
#include "desktop/application_interfaces.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>

#include <algorithm>

namespace pinorama {
namespace {
const QString kName = QStringLiteral("org.pinorama.Pinorama");
const QString kObject = QStringLiteral("/org/pinorama/Pinorama");
const QString kApplicationInterface = QStringLiteral("org.freedesktop.Application");
const QString kOwnInterface = QStringLiteral("org.pinorama.Pinorama1");
constexpr int kAnswerLimit = 5000;  // milliseconds
constexpr char kTokenVariable[] = "XDG_ACTIVATION_TOKEN";
constexpr char kStartupVariable[] = "DESKTOP_STARTUP_ID";
constexpr qsizetype kLongestToken = 1024;  // bytes

bool isPlausibleToken(const QByteArray& token)
{
    return !token.isEmpty() && token.size() <= kLongestToken &&
           std::all_of(token.begin(), token.end(), [](char c) { return c > ' ' && c <= '~'; });
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
    new OwnAdaptor(this);
}

ApplicationBus::~ApplicationBus()
{
    if (!isOffered_) return;
    connection_.unregisterService(kName);
    connection_.unregisterObject(kObject);
}

ApplicationBus::Claim ApplicationBus::claim()
{
    if (!connection_.isConnected() || connection_.interface() == nullptr) return Claim::noBus;
    // The object comes before the name, so that nobody finds the name without it.
    if (!connection_.registerObject(kObject, this)) return Claim::noBus;
    if (!connection_.registerService(kName)) {
        connection_.unregisterObject(kObject);
        const bool hasOwner = connection_.interface()->isServiceRegistered(kName);
        return hasOwner ? Claim::takenByAnother : Claim::noBus;
    }
    isOffered_ = true;
    return Claim::granted;
}

bool ApplicationBus::activateOther(const QByteArray& token)
{
    return callOther(kApplicationInterface, QStringLiteral("Activate"), {platformDataOf(token)});
}

bool ApplicationBus::openInOther(const std::vector<std::string>& paths, const QByteArray& token)
{
    QStringList uris;
    for (const std::string& path : paths) uris << QString::fromStdString(fileURIOfPath(path));
    return callOther(kApplicationInterface, QStringLiteral("Open"), {uris, platformDataOf(token)});
}

bool ApplicationBus::sendTextToOther(const QString& text)
{
    return callOther(kOwnInterface, QStringLiteral("OpenText"), {text});
}

bool ApplicationBus::runActionInOther(const QString& action, const QByteArray& token)
{
    return callOther(kApplicationInterface, QStringLiteral("ActivateAction"),
                     {action, QVariantList(), platformDataOf(token)});
}

bool ApplicationBus::callOther(const QString& interface, const QString& method,
                               const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kName, kObject, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return connection_.call(call, QDBus::Block, kAnswerLimit).type() == QDBusMessage::ReplyMessage;
}

QByteArray activationTokenOfStarter()
{
    QByteArray token = qgetenv(kTokenVariable);
    if (token.isEmpty()) token = qgetenv(kStartupVariable);
    return isPlausibleToken(token) ? token : QByteArray();
}

void useActivationToken(const QByteArray& token)
{
    // The Wayland side of the toolkit takes it from here when a window is activated.
    if (isPlausibleToken(token)) qputenv(kTokenVariable, token);
}

}  // namespace pinorama
