// The desktop's portal for choosing files, in the process of a test.

#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariantMap>

#include <utility>
#include <vector>

namespace test {

// A portal for choosing files, without a user: the test says what is chosen.
class FakePortal : public QDBusVirtualObject {
public:
    explicit FakePortal(QDBusConnection bus) : bus_(std::move(bus))
    {
        bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                                   QDBusConnection::SubPath);
    }

    bool begin() { return bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop")); }
    void end() { bus_.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop")); }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        if (message.member() == QLatin1String("Close")) {
            closed.push_back(message.path());
            return bus_.send(message.createReply());
        }
        if (message.interface() != QLatin1String("org.freedesktop.portal.FileChooser")) {
            return false;
        }
        method = message.member();
        parent = message.arguments().value(0).toString();
        title = message.arguments().value(1).toString();
        options = qdbus_cast<QVariantMap>(message.arguments().value(2));
        QString sender = message.service().mid(1);
        sender.replace(QLatin1Char('.'), QLatin1Char('_'));
        request = isOld ? QStringLiteral("/org/freedesktop/portal/desktop/request/t/%1").arg(calls)
                        : QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                              .arg(sender, options[QStringLiteral("handle_token")].toString());
        calls++;
        if (isSlow) {
            late = message.createReply(QVariant::fromValue(QDBusObjectPath(request)));
            return true;
        }
        return bus_.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    }

    void beginAtLast() { bus_.send(late); }

    void answer(unsigned response, const QStringList& uris = {})
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal << response << QVariantMap{{QStringLiteral("uris"), uris}};
        bus_.send(signal);
    }

    bool isOld = false;
    bool isSlow = false;
    int calls = 0;
    QString method, parent, title, request;
    QVariantMap options;
    std::vector<QString> closed;

private:
    QDBusConnection bus_;
    QDBusMessage late;
};

}  // namespace test
