#include "desktop/portal_opener.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

#include <utility>

namespace pinorama {
namespace {
constexpr int kPatience = 10'000;  // milliseconds; the portal may have to be started
}  // namespace

PortalOpener::PortalOpener(QDBusConnection bus, QObject* parent)
    : QObject(parent), bus_(std::move(bus))
{
}

void PortalOpener::openWith(int descriptor, const QString& parent)
{
    if (!bus_.isConnected()) {
        Q_EMIT unavailable();
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenFile"));
    call << parent << QVariant::fromValue(QDBusUnixFileDescriptor(descriptor))
         << QVariantMap{{QStringLiteral("ask"), true}};
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call, kPatience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &PortalOpener::takeReply);
}

// The portal replies as soon as it has begun; what the user chooses concerns nobody here.
void PortalOpener::takeReply(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    if (reply.isError()) Q_EMIT unavailable();
}

}  // namespace pinorama
