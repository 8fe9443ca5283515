#include "selection/managers/nautilus.h"

#include "selection/bus_process.h"
#include "selection/folder_choice.h"
#include "selection/managers/kinds.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kMaxUris = 256;  // of all windows
constexpr int kMaxItemDepth = 12;      // steps from a part of an item up to the view

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

// The URIs of the folders in all tabs of all windows of a process. Nothing if that process does not
// publish them: another program is the one that shows folders in this session, or it is too old.
Task<std::optional<std::vector<QString>>> openLocations(DBusQuery& query, pid_t process)
{
    const std::vector<QDBusMessage> calls =
        callList(processCall(kService),
                 callTo(kService, QStringLiteral("/org/freedesktop/FileManager1"),
                        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                        {kService, QStringLiteral("OpenWindowsWithLocations")}));
    const auto replies = co_await query.repliesFrom(QDBusConnection::sessionBus(), calls);
    std::optional<std::vector<QString>> uris;
    if (processIn(replies[0]) == process) uris = urisIn(replies[1]);
    co_return uris;
}

// Whether an object is the view or one of the few containers around it that hold nothing else, such
// as its scrolled window. The containers further up hold all tabs.
bool isCloseAround(const View& view, const Accessible& object)
{
    constexpr std::size_t kClose = 4;
    if (view.object == object) return true;
    const std::size_t count = std::min(kClose, view.ancestors.size());
    return std::find(view.ancestors.end() - static_cast<long>(count), view.ancestors.end(),
                     object) != view.ancestors.end();
}

// The index, among the views of all tabs of a GTK 4 window, of the one in front: the view whose
// container still has it as a child, or, in older versions of GTK 4, the one that contains the
// object at some point of the window. `before` if no object is found there; nothing if the tab in
// front has none of the views.
Task<std::optional<std::size_t>> viewInFront(DBusQuery& query, Accessible frame,
                                             std::vector<View> views, std::size_t before)
{
    auto calls =
        callsFor(views, [](const View& view) { return childCountCall(view.ancestors.back()); });
    calls.push_back(statesCall(views.front().object));
    calls.push_back(extentsCall(views.front().object));
    const auto replies = co_await query.replies(calls);
    // Newer versions of GTK 4 say what is showing; older ones say it of the window only. They find
    // no children in the container of a view that is behind another tab, and may find that
    // container at a point where the other tab is.
    if (has(statesIn(replies[views.size()]).value_or(0), State::showing)) {
        for (std::size_t i = 0; i < views.size(); i++) {
            if (numberIn(replies[i]).value_or(0) > 0) co_return i;
        }
        co_return std::nullopt;
    }
    const auto extents = extentsIn(replies.back());
    if (!extents || extents->size.area() == 0) co_return std::nullopt;
    // GTK 4 creates the object of an item only when a client first asks for it, and finds nothing
    // at its place before. The edges of the view are mostly free of items, so they are tried first.
    const int right = extents->left + extents->size.width;
    const int bottom = extents->top + extents->size.height;
    const std::vector<std::pair<int, int>> points = {
        {extents->left + 6, extents->top + 6},
        {right - 6, bottom - 6},
        {(extents->left + right) / 2, bottom - 6},
        {(extents->left + right) / 2, (extents->top + bottom) / 2}};
    for (const auto& [x, y] : points) {
        const QDBusMessage getObjectAtPoint = objectAtPointCall(frame, x, y);
        std::optional<Accessible> object = objectIn(co_await query.reply(getObjectAtPoint));
        if (!object) continue;
        for (int steps = 0; object && steps < kMaxItemDepth; steps++) {
            for (std::size_t i = 0; i < views.size(); i++) {
                if (isCloseAround(views[i], *object)) co_return i;
            }
            const QDBusMessage getParent = parentCall(*object);
            object = objectIn(co_await query.reply(getParent));
        }
        co_return std::nullopt;
    }
    co_return before;
}
}  // namespace

std::vector<std::string> foldersOfWindow(KnownItems& items, const QString& title,
                                         const std::vector<QString>& uris)
{
    FolderHints hints;
    hints.title = title;
    hints.locations = uris;
    std::vector<std::string> folders = foldersShown(items, hints, {}, {});
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

// "a.jpg. File", and "a.jpg. File. Starred", in the user's language.
std::vector<QString> NautilusWindow::namesWithin(const QString& told) const
{
    std::vector<QString> names;
    const QString pause = QStringLiteral(". ");
    qsizetype end = told.size();
    for (int words = 0; words < 2; words++) {
        end = end > 0 ? told.lastIndexOf(pause, end - 1) : -1;
        if (end <= 0) break;
        names.push_back(told.left(end));
    }
    return names;
}

Task<std::optional<std::vector<std::string>>> NautilusWindow::publishedFolders(DBusQuery& query,
                                                                               QString title)
{
    const auto uris = co_await openLocations(query, process());
    if (!uris) co_return std::nullopt;
    const auto find = [title, uris = *uris](KnownItems& items) {
        return foldersOfWindow(items, title, uris);
    };
    std::optional<std::vector<std::string>> folders = co_await withItems(query, find);
    co_return folders;
}

Task<std::optional<std::size_t>> NautilusWindow::viewInUse(DBusQuery& query, Situation situation)
{
    std::optional<std::size_t> place = situation.before;
    if (!isGtk4Object(situation.frame)) {
        place = co_await ManagerWindow::viewInUse(query, situation);
    } else if (situation.hasChanged) {
        place = co_await viewInFront(query, situation.frame, situation.views, situation.before);
    }
    co_return place;
}

constinit const FileManagerKind kNautilus = {
    .process = "nautilus",
    .name = "Nautilus",
    .toolkit = Toolkit::gtk,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<NautilusWindow>(process);
    },
    .isDesktop = isNoDesktop,
    .activatesSilently = true,
};

}  // namespace pinorama
