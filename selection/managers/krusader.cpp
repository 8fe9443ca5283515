#include "selection/managers/krusader.h"

#include "selection/item_name.h"
#include "selection/known_items.h"
#include "selection/managers/kinds.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kMaxParts = 64;       // of a panel, or tabs of one
constexpr std::size_t kMaxCells = 20000;    // of a view that is searched for its cursor
constexpr std::size_t kMaxRowsAsked = 512;  // of such a view

// The items of these names in these folders, without repetition.
std::vector<std::string> itemsIn(KnownItems& items, const std::vector<std::string>& folders,
                                 const std::vector<QString>& names)
{
    std::vector<std::string> found;
    for (const std::string& folder : folders) {
        for (const QString& name : names) {
            const auto path = pathOfShownItem(items, folder, name);
            if (path && std::find(found.begin(), found.end(), *path) == found.end())
                found.push_back(*path);
        }
    }
    return found;
}

QDBusMessage indexCall(const Accessible& object)
{
    return QDBusMessage::createMethodCall(object.service, object.path,
                                          QStringLiteral("org.a11y.atspi.Accessible"),
                                          QStringLiteral("GetIndexInParent"));
}

bool isAmong(const std::vector<QString>& names, const QString& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}
}  // namespace

Task<std::optional<std::vector<std::string>>> KrusaderWindow::publishedFolders(DBusQuery&, QString)
{
    co_return std::vector<std::string>();
}

// The panel that is this object; without tabs if it is none.
Task<KrusaderWindow::Panel> KrusaderWindow::panelAt(DBusQuery& query, Accessible object)
{
    Panel panel = {.object = object, .tabs = {}};
    const QDBusMessage getChildren = childrenCall(object);
    const auto children = objectsIn(co_await query.reply(getChildren), kMaxParts);
    if (!children) co_return panel;
    const auto calls = callsFor(*children, roleCall);
    const auto roles = co_await query.replies(calls);
    for (std::size_t i = 0; i < roles.size(); i++) {
        if (static_cast<Role>(numberIn(roles[i]).value_or(0)) == Role::pageTabList)
            panel.tabs = (*children)[i];
    }
    co_return panel;
}

// Both panels are children of the object around the one with the view.
Task<std::vector<KrusaderWindow::Panel>> KrusaderWindow::findPanels(DBusQuery& query, View view)
{
    std::vector<Panel> panels;
    for (std::size_t i = view.ancestors.size(); i-- > 1;) {
        const Panel panel = co_await panelAt(query, view.ancestors[i]);
        if (panel.tabs.isNull()) continue;
        const QDBusMessage getChildren = childrenCall(view.ancestors[i - 1]);
        const auto children = objectsIn(co_await query.reply(getChildren), kMaxParts);
        if (!children) co_return panels;
        for (const Accessible& child : *children) {
            Panel other = co_await panelAt(query, child);
            if (!other.tabs.isNull()) panels.push_back(std::move(other));
        }
        co_return panels;
    }
    co_return panels;
}

Task<KrusaderWindow::Folders> KrusaderWindow::readFolders(DBusQuery& query,
                                                          std::vector<Panel> panels)
{
    Folders folders;
    const auto listCalls =
        callsFor(panels, [](const Panel& panel) { return childrenCall(panel.tabs); });
    const auto lists = co_await query.replies(listCalls);
    for (const QDBusMessage& list : lists) {
        const auto parts = objectsIn(list, kMaxParts).value_or(std::vector<Accessible>());
        std::vector<QDBusMessage> calls;
        for (const Accessible& part : parts) {
            calls.push_back(statesCall(part));
            calls.push_back(descriptionCall(part));
            calls.push_back(roleCall(part));
        }
        const auto replies = co_await query.replies(calls);
        std::vector<std::string> inFront;
        for (std::size_t i = 0; i < parts.size(); i++) {
            const QDBusMessage* const replyOf = &replies[3 * i];
            if (static_cast<Role>(numberIn(replyOf[2]).value_or(0)) != Role::pageTab) continue;
            const bool isInFront = has(statesIn(replyOf[0]).value_or(0), State::focused);
            folders.validators.push_back({calls[3 * i], [isInFront](const QDBusMessage& reply) {
                                              const auto states = statesIn(reply);
                                              return states &&
                                                     has(*states, State::focused) == isInFront;
                                          }});
            if (!isInFront) continue;
            const QString address = textIn(replyOf[1]).value_or(QString());
            folders.validators.push_back({calls[3 * i + 1], [address](const QDBusMessage& reply) {
                                              return textIn(reply) == address;
                                          }});
            inFront.push_back(address.startsWith(QLatin1Char('/')) ? address.toStdString()
                                                                   : std::string());
        }
        folders.ofPanels.push_back(inFront.size() == 1 ? inFront.front() : std::string());
    }
    co_return folders;
}

// The item of a view that is at its cursor; null if there is none, or too many items.
Task<Accessible> KrusaderWindow::itemAtCursor(DBusQuery& query, View view)
{
    const auto calls = callList(columnCountCall(view.object), childrenCall(view.object));
    const auto replies = co_await query.replies(calls);
    const std::size_t columns = numberIn(replies[0]).value_or(0);
    const auto cells = objectsIn(replies[1], kMaxCells);
    if (columns == 0 || !cells || cells->size() / columns > kMaxRowsAsked) co_return Accessible{};
    // The first of the rows is that of the headers.
    std::vector<Accessible> items;
    for (std::size_t i = columns; i < cells->size(); i += columns) items.push_back((*cells)[i]);
    for (std::size_t first = 0; first < items.size(); first += kMaxParts) {
        const std::size_t end = std::min(first + kMaxParts, items.size());
        std::vector<QDBusMessage> stateCalls;
        for (std::size_t i = first; i < end; i++) stateCalls.push_back(statesCall(items[i]));
        const auto states = co_await query.replies(stateCalls);
        for (std::size_t i = first; i < end; i++) {
            if (has(statesIn(states[i - first]).value_or(0), State::focused)) co_return items[i];
        }
    }
    co_return Accessible{};
}

// Views in tabs that are not in front any more are still there.
Task<std::optional<std::size_t>> KrusaderWindow::viewInUse(DBusQuery& query, Situation situation)
{
    const auto calls = callsFor(situation.views,
                                [](const View& view) { return statesCall(view.ancestors.back()); });
    const auto replies = co_await query.replies(calls);
    for (const QDBusMessage& reply : replies) {
        if (!has(statesIn(reply).value_or(0), State::showing)) co_return std::nullopt;
    }
    co_return co_await ManagerWindow::viewInUse(query, situation);
}

// The panel of the item that got the focus last, if that is the item at the cursor that the status
// bar describes.
Task<std::optional<std::size_t>> KrusaderWindow::panelWithFocus(DBusQuery& query,
                                                                SharedLayout layout,
                                                                std::vector<Panel> panels,
                                                                Accessible item,
                                                                std::vector<QString> names)
{
    std::optional<std::size_t> found;
    for (const View& view : layout->views) {
        if (view.object != item) continue;
        item = co_await itemAtCursor(query, view);
        break;
    }
    if (item.isNull()) co_return found;
    const auto calls =
        callList(parentCall(item), statesCall(item), nameCall(item), indexCall(item));
    const auto replies = co_await query.replies(calls);
    const Accessible holder = objectIn(replies[0]).value_or(Accessible{});
    QString shown = textIn(replies[2]).value_or(QString());
    const auto index = numberIn(replies[3]);
    if (holder.isNull() || !has(statesIn(replies[1]).value_or(0), State::focused)) co_return found;
    if (!isAmong(names, shown) && index) {
        // The ending of the name is in the column beside it.
        const QDBusMessage getBeside = childCall(holder, static_cast<int>(*index) + 1);
        const auto beside = objectIn(co_await query.reply(getBeside));
        if (!beside || beside->isNull()) co_return found;
        const QDBusMessage getEnding = nameCall(*beside);
        const auto ending = textIn(co_await query.reply(getEnding));
        shown += QLatin1Char('.') + ending.value_or(QString());
    }
    if (!isAmong(names, shown)) co_return found;
    for (const View& view : layout->views) {
        if (view.object != holder) continue;
        for (std::size_t i = 0; i < panels.size(); i++) {
            if (std::find(view.ancestors.begin(), view.ancestors.end(), panels[i].object) !=
                view.ancestors.end())
                found = i;
        }
    }
    co_return found;
}

Task<SelectedItems> KrusaderWindow::selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                                  std::vector<Accessible> likely)
{
    SelectedItems selected;
    const SharedLayout layout = reader.layout();
    std::vector<Panel> panels = panels_;
    if (foundIn_ != layout) {
        panels = co_await findPanels(query, view);
        panels_ = panels;
        foundIn_ = layout;
    }
    if (layout->statusTexts.empty()) co_return selected;
    const QDBusMessage getStatus = nameCall(layout->statusTexts.front());
    const auto status = textIn(co_await query.reply(getStatus));
    if (!status) co_return selected;
    selected.isKnown = true;
    selected.validators.push_back(
        {getStatus, [text = *status](const QDBusMessage& reply) { return textIn(reply) == text; }});
    const std::vector<QString> names = namesInStatusOfKrusader(*status);
    if (names.empty()) co_return selected;

    const Folders folders = co_await readFolders(query, panels);
    for (const Validator& validator : folders.validators) selected.validators.push_back(validator);
    const Accessible focused = likely.empty() ? Accessible{} : likely.front();
    const auto panel = co_await panelWithFocus(query, layout, panels, focused, names);
    std::vector<std::string> possible = folders.ofPanels;
    if (panel) possible = {folders.ofPanels[*panel]};
    // An item of that name may be the one in a folder that is not known.
    if (std::find(possible.begin(), possible.end(), std::string()) != possible.end())
        possible.clear();
    const auto find = [possible, names](KnownItems& items) {
        return itemsIn(items, possible, names);
    };
    const std::vector<std::string> found = co_await withItems(query, find);
    NamedItem item;
    item.name = names.front();
    if (found.size() == 1) item.path = found.front();
    selected.items.push_back(std::move(item));
    co_return selected;
}

std::vector<QString> namesInStatusOfKrusader(const QString& status)
{
    std::vector<QString> names;
    // The size, or the target of a link.
    for (const QString& beside : {QStringLiteral("  ("), QStringLiteral(" -> ")}) {
        for (qsizetype end = status.indexOf(beside); end >= 0;
             end = status.indexOf(beside, end + 1)) {
            if (end > 0) names.push_back(status.left(end));
        }
    }
    const qsizetype slash = status.indexOf(QLatin1Char('/'));
    if (slash > 0 && status.mid(slash).startsWith(QLatin1String("/  ")))
        names.push_back(status.left(slash));
    return names;
}

constinit const FileManagerKind kKrusader = {
    .process = "krusader",
    .name = "Krusader",
    .toolkit = Toolkit::qt,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<KrusaderWindow>(process);
    },
    .isDesktop = isNoDesktop,
    // The status bar, which changes when another panel is in use.
    .reportsByNames = true,
};

}  // namespace pinorama
