#include "selection/open_locations.h"

#include "selection/accessible.h"
#include "selection/folder_choice.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QStringList>

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::size_t kMaxUris = 256;  // of all windows

const QString kService = QStringLiteral("org.freedesktop.FileManager1");

// A call that does not start a file manager.
QDBusMessage callTo(const QString& service, const QString& path, const QString& interface,
                    const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

std::optional<std::vector<QString>> urisIn(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return std::nullopt;
    const QVariant value = reply.arguments().constFirst().value<QDBusVariant>().variant();
    if (!value.canConvert<QDBusArgument>()) return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a{sas}")) return std::nullopt;
    std::vector<QString> uris;
    for (const QStringList& tabs : qdbus_cast<QMap<QString, QStringList>>(argument)) {
        for (const QString& uri : tabs) {
            if (uris.size() < kMaxUris) uris.push_back(uri);
        }
    }
    return uris;
}

bool isNamedIn(const QString& title, const std::string& folder)
{
    const QString name = QString::fromStdString(folder.substr(folder.rfind('/') + 1));
    return !name.isEmpty() && title.contains(name);
}

// Titles of searches quote what is searched for, in every language.
bool hasQuotation(const QString& title)
{
    return std::any_of(title.begin(), title.end(), [](QChar c) {
        return c == u'"' || c == u'\u300c' || c.category() == QChar::Punctuation_InitialQuote;
    });
}
}  // namespace

Task<std::optional<std::vector<QString>>> openLocations(DBusQuery& query, pid_t process)
{
    const std::vector<QDBusMessage> calls = callList(
        callTo(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
               QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"),
               {kService}),
        callTo(kService, QStringLiteral("/org/freedesktop/FileManager1"),
               QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
               {kService, QStringLiteral("OpenWindowsWithLocations")}));
    const auto replies = co_await query.repliesFrom(QDBusConnection::sessionBus(), calls);
    std::optional<std::vector<QString>> uris;
    if (static_cast<pid_t>(numberIn(replies[0]).value_or(0)) == process) uris = urisIn(replies[1]);
    co_return uris;
}

std::vector<std::string> foldersOfWindow(const QString& title, const std::vector<QString>& uris)
{
    FolderHints hints;
    hints.title = title;
    hints.locations = uris;
    std::vector<std::string> folders = foldersShown(hints, {}, {});
    if (uris.size() <= 1) return folders;
    const bool areAllFolders = std::all_of(uris.begin(), uris.end(), [](const QString& uri) {
        return uri.startsWith(QLatin1String("file:"));
    });
    const bool isAnyNamed = std::any_of(folders.begin(), folders.end(), [&](const auto& folder) {
        return isNamedIn(title, folder);
    });
    if (!areAllFolders && (!isAnyNamed || hasQuotation(title))) return {};
    // The title of the home folder is not its name.
    if (isAnyNamed) {
        std::erase_if(folders,
                      [&](const std::string& folder) { return !isNamedIn(title, folder); });
    }
    return folders;
}

}  // namespace pinorama
