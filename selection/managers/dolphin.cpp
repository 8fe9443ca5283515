#include "selection/managers/dolphin.h"

#include "selection/managers/kinds.h"
#include "selection/qt_views.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariant>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr int kMaxWindows = 8;  // of one process

QString serviceOf(pid_t process)
{
    return QStringLiteral("org.kde.dolphin-%1").arg(process);
}

QDBusMessage propertyCall(const QString& service, const QString& path, const char* property)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message.setArguments(
        {QStringLiteral("org.qtproject.Qt.QWidget"), QString::fromLatin1(property)});
    return message;
}
std::optional<bool> boolIn(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return std::nullopt;
    QVariant value = reply.arguments().constFirst();
    if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    if (value.userType() != QMetaType::Bool) return std::nullopt;
    return value.toBool();
}
}  // namespace

// The windows are numbered in the order in which they were opened, with gaps for closed ones. Of
// two windows with the same title one may be active, which tells them apart.
Task<Done> DolphinWindow::prepare(DBusQuery& query, Accessible frame)
{
    service_ = serviceOf(process());
    path_.clear();
    const QDBusMessage getName = nameCall(frame);
    const auto title = textIn(co_await query.reply(getName));
    const QDBusMessage getStates = statesCall(frame);
    const bool isActive = has(statesIn(co_await query.reply(getStates)).value_or(0), State::active);

    std::vector<QString> paths;
    std::vector<QDBusMessage> calls;
    for (int number = 1; number <= kMaxWindows; number++) {
        paths.push_back(QStringLiteral("/dolphin/Dolphin_%1").arg(number));
        calls.push_back(propertyCall(service_, paths.back(), "windowTitle"));
        calls.push_back(propertyCall(service_, paths.back(), "isActiveWindow"));
    }
    const auto replies = co_await query.repliesFrom(QDBusConnection::sessionBus(), calls);
    QString found;
    int count = 0;
    for (std::size_t i = 0; i < paths.size(); i++) {
        if (!title || textIn(replies[2 * i]) != title) continue;
        if (boolIn(replies[2 * i + 1]).value_or(false) != isActive) continue;
        found = paths[i];
        count++;
    }
    if (count == 1) path_ = found;
    co_return {};
}

// Dolphin enables its action that copies the location of an item while exactly one is selected.
std::optional<QDBusMessage> DolphinWindow::isOneSelectedCall() const
{
    if (path_.isEmpty()) return std::nullopt;
    QDBusMessage message = QDBusMessage::createMethodCall(
        service_, path_, QStringLiteral("org.kde.KMainWindow"), QStringLiteral("actionIsEnabled"));
    message.setArguments({QStringLiteral("copy_location")});
    return message;
}

Task<SelectedItems> DolphinWindow::selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                                 std::vector<Accessible> likely)
{
    SelectedItems selected;
    if (view.access == ViewAccess::states) {
        selected = co_await readStates(query, reader, view, likely);
    } else {
        selected = co_await readRowsOrSelection(query, reader, view);
        if (selected.items.size() == 1) {
            NamedItem item = co_await certain(query, reader, view, selected.items.front());
            selected.items = {std::move(item)};
        }
    }
    co_return selected;
}

Task<SelectedItems> DolphinWindow::readStates(DBusQuery& query, ItemReader& reader, View view,
                                              std::vector<Accessible> likely)
{
    SelectedItems selected;
    if (!co_await isQtViewShowing(query, view)) co_return selected;
    selected.isKnown = true;
    const auto getIsOne = isOneSelectedCall();
    if (getIsOne) {
        const std::vector<QDBusMessage> calls = callList(*getIsOne);
        const auto replies = co_await query.repliesFrom(QDBusConnection::sessionBus(), calls);
        const auto isOne = boolIn(replies.front());
        selected.validators.push_back(
            {*getIsOne, [isOne](const QDBusMessage& reply) { return boolIn(reply) == isOne; },
             true});
        if (isOne == false) co_return selected;
        // The selected item nearly always has the focus as well. Dolphin says only a moment after a
        // second one was added that there are several, so the item before it is asked too.
        for (std::size_t i = 0; isOne && i < likely.size(); i++) {
            const Accessible candidate = likely[i];
            if (candidate.isNull() || (i > 0 && candidate == likely.front())) continue;
            const std::vector<QDBusMessage> itsCalls =
                callList(statesCall(candidate), parentCall(candidate));
            const auto itsReplies = co_await query.replies(itsCalls);
            // The focus may be in another window of the same program.
            if (objectIn(itsReplies[1]) != view.object) continue;
            if (!has(statesIn(itsReplies[0]).value_or(0), State::selected)) continue;
            NamedItem item = co_await reader.named(query, candidate);
            selected.items.push_back(std::move(item));
        }
        if (selected.items.size() == 1) {
            NamedItem item = co_await certain(query, reader, view, selected.items.front());
            selected.items = {std::move(item)};
        }
        if (!selected.items.empty()) co_return selected;
    }
    const std::vector<Accessible> found = co_await itemsThatReportSelected(query, view, 1);
    for (const Accessible& object : found) {
        NamedItem item = co_await reader.named(query, object);
        if (found.size() == 1) item = co_await certain(query, reader, view, item);
        selected.items.push_back(std::move(item));
    }
    co_return selected;
}

// Dolphin does not say which items belong to an expanded folder. If the view has not as many items
// as the folder, one that has its name for itself and is in the folder is the right one; of two
// with one name nobody can say.
Task<NamedItem> DolphinWindow::certain(DBusQuery& query, ItemReader& reader, View view,
                                       NamedItem item)
{
    if (!item.path) co_return item;
    const std::optional<FolderCount> folder = co_await reader.folder().itemCount(query);
    const QDBusMessage getCount = childCountCall(view.object);
    const auto count = numberIn(co_await query.reply(getCount));
    if (folder && (count == folder->shown || count == folder->all)) co_return item;

    item.path = co_await reader.folder().pathInFirst(query, item.name);
    const QDBusMessage getChildren = childrenCall(view.object);
    const auto items = objectsIn(co_await query.reply(getChildren), kMaxScanned);
    if (!items) item.path.reset();
    std::size_t namesakes = 0;
    for (std::size_t first = 0; item.path && first < items->size(); first += kMaxPendingCalls) {
        std::vector<QDBusMessage> calls;
        for (std::size_t i = first; i < std::min(first + kMaxPendingCalls, items->size()); i++)
            calls.push_back(nameCall((*items)[i]));
        const auto replies = co_await query.replies(calls);
        for (const QDBusMessage& reply : replies) namesakes += textIn(reply) == item.name ? 1 : 0;
        if (namesakes > 1) item.path.reset();
    }
    co_return item;
}

constinit const FileManagerKind kDolphin = {
    .process = "dolphin",
    .name = "Dolphin",
    .toolkit = Toolkit::qt,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<DolphinWindow>(process);
    },
    .isDesktop = isNoDesktop,
    // If the user selects all items, a change of a name is the only event that Dolphin sends.
    .reportsByNames = true,
};

}  // namespace pinorama
