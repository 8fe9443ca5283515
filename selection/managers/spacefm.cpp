#include "selection/managers/spacefm.h"

#include "selection/managers/kinds.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace pinorama {
namespace {
constexpr int kWholeText = -1;  // where a text ends, to GTK 2

// The folder that a title or an entry names, without a slash at the end; empty if it names none.
std::string folderIn(const std::optional<QString>& text)
{
    if (!text || !text->startsWith(QLatin1Char('/'))) return {};
    std::string folder = text->toStdString();
    while (folder.size() > 1 && folder.ends_with('/')) folder.pop_back();
    return folder;
}

// Whether an item, with a slash at the end if it is a folder, is directly in that folder.
bool isDirectlyIn(const std::string& folder, const std::string& path)
{
    const std::size_t slash = path.rfind('/', path.size() - 2);
    return slash != path.npos && path.substr(0, slash == 0 ? 1 : slash) == folder;
}
}  // namespace

ManagerWindow::Opaqueness SpaceFMWindow::opaqueness(Role role, Role container) const
{
    const bool isBare = role == Role::panel && container == Role::scrollPane;
    return isBare ? Opaqueness::ifEmpty : Opaqueness::no;
}

Task<std::optional<std::vector<std::string>>> SpaceFMWindow::publishedFolders(DBusQuery&,
                                                                              QString title)
{
    std::vector<std::string> folders;
    std::string folder = folderIn(title);
    if (!folder.empty()) folders.push_back(std::move(folder));
    co_return folders;
}

Task<SelectedItems> SpaceFMWindow::selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                                 std::vector<Accessible> likely)
{
    SelectedItems selected;
    if (view.access == ViewAccess::opaque) {
        selected = co_await readStatusBar(query, reader, view);
    } else {
        selected = co_await ManagerWindow::selectedItems(query, reader, view, std::move(likely));
    }
    if (!selected.isKnown || selected.items.empty()) co_return selected;

    // Asked after the selection, so that both are of the same panel and the same folder.
    const SharedLayout layout = reader.layout();
    const auto calls =
        callList(nameCall(view.ancestors.front()), textCall(view.location, kWholeText));
    const auto replies = co_await query.replies(calls);
    const std::string folder = folderIn(textIn(replies[0]));
    // A panel whose view was not found may be the one in use, and show the same folder.
    const bool isSure = !folder.empty() && folderIn(textIn(replies[1])) == folder &&
                        layout->locations.size() <= layout->views.size();
    for (NamedItem& item : selected.items) {
        if (item.path && !(isSure && isDirectlyIn(folder, *item.path))) item.path.reset();
    }
    const QString entry = textIn(replies[1]).value_or(QString());
    selected.validators.push_back(
        {calls[1], [entry](const QDBusMessage& reply) { return textIn(reply) == entry; }});
    co_return selected;
}

Task<SelectedItems> SpaceFMWindow::readStatusBar(DBusQuery& query, ItemReader& reader, View view)
{
    SelectedItems selected;
    const auto calls = callList(statesCall(view.object), nameCall(view.statusBar));
    const auto replies = co_await query.replies(calls);
    const auto status = textIn(replies[1]);
    if (!status || !has(statesIn(replies[0]).value_or(0), State::showing)) co_return selected;
    selected.isKnown = true;
    selected.validators.push_back(
        {calls[1], [text = *status](const QDBusMessage& reply) { return textIn(reply) == text; }});
    const auto name = nameInStatusOfSpaceFM(*status);
    if (!name) co_return selected;
    NamedItem item;
    item.name = *name;
    item.path = co_await reader.folder().pathOf(query, *name);
    selected.items.push_back(std::move(item));
    co_return selected;
}

namespace {
// Whether text ends with the number 1. German has no blank before it.
bool endsWithOne(const QString& text)
{
    if (!text.endsWith(QLatin1Char('1'))) return false;
    if (text.size() == 1) return true;
    const QChar before = text.at(text.size() - 2);
    return !before.isNumber() && !before.isPunct();
}
}  // namespace

std::optional<QString> nameInStatusOfSpaceFM(const QString& status)
{
    // The first bracket is that before the size: only numbers and units stand before it.
    const qsizetype size = status.indexOf(QLatin1String(" ("));
    const QString counts = status.left(std::max<qsizetype>(size, 0));
    const qsizetype end = status.indexOf(QLatin1String(")   "), size);
    const qsizetype slash = counts.lastIndexOf(QLatin1String(" / "));
    if (size < 0 || end < 0 || slash < 0) return std::nullopt;
    if (!endsWithOne(counts.left(slash))) return std::nullopt;
    QString name = status.mid(end + 4);
    return name.isEmpty() ? std::nullopt : std::optional(std::move(name));
}

constinit const FileManagerKind kSpaceFM = {
    .process = "spacefm",
    .name = "SpaceFM",
    .toolkit = Toolkit::gtk,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<SpaceFMWindow>(process);
    },
    .isDesktop = isNoDesktop,
    // Of the icons a change of the status bar's name is the only event.
    .reportsByNames = true,
};

}  // namespace pinorama
