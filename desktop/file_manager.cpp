#include "desktop/file_manager.h"

#include "base/file_uri.h"
#include "base/item_path.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QStringList>

namespace pinorama {

void showInFileManager(const std::string& path, UrlOpener& opener, QObject* context)
{
    std::string folder = folderOf(path);
    if (!folder.ends_with('/')) folder += '/';
    const auto openFolder = [&opener, url = QByteArray::fromStdString(fileURIOfPath(folder))] {
        opener.open(url);
    };
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolder();
        return;
    }
    const QString name = QStringLiteral("org.freedesktop.FileManager1");
    QDBusMessage call = QDBusMessage::createMethodCall(
        name, QStringLiteral("/org/freedesktop/FileManager1"), name, QStringLiteral("ShowItems"));
    call << QStringList{QString::fromStdString(fileURIOfPath(path))} << QString();
    constexpr std::chrono::milliseconds kPatience = kFileManagerPatience;
    auto* reply = new QDBusPendingCallWatcher(
        bus.asyncCall(call, static_cast<int>(kPatience.count())), context);
    QObject::connect(reply, &QDBusPendingCallWatcher::finished, context, [reply, openFolder] {
        reply->deleteLater();
        if (reply->isError()) openFolder();
    });
}

}  // namespace pinorama
