#include "selection/frame_walk.h"

#include "selection/manager_window.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace pinorama {
namespace {

constexpr std::size_t kMaxPendingCalls = 64;  // that wait for a reply at the same time
constexpr std::size_t kMaxChildren = 200;     // visited in one container
constexpr int kMaxDepth = 40;
constexpr std::size_t kMaxButtons = 64;  // in one row

struct Node {
    Accessible object;
    std::vector<Accessible> ancestors = {};  // from the frame down to its parent
    Accessible tab = {};                     // the innermost of them that is a tab, or null
    int depth = 0;
    bool isUnderStatusBar = false;
    Role container = Role::frame;  // its parent
    Role role = Role::filler;
    States states = 0;
};

// An object, and the innermost tab in which it is.
struct InTab {
    Accessible object;
    Accessible tab;
};

// The first of these objects that is in a tab; null if none is, and without a tab.
Accessible firstIn(const Accessible& tab, const std::vector<InTab>& objects)
{
    const auto found = std::find_if(objects.begin(), objects.end(),
                                    [&](const InTab& each) { return each.tab == tab; });
    return tab.isNull() || found == objects.end() ? Accessible{} : found->object;
}

// Roles that contain neither files nor anything that shows the folder.
bool isSkipped(Role role)
{
    switch (role) {
    case Role::menu:
    case Role::menuBar:
    case Role::popupMenu:
    case Role::comboBox:
    case Role::scrollBar:
    case Role::separator: return true;
    default: return false;
    }
}

// Roles of containers for the layout of others.
bool isLayout(Role role)
{
    switch (role) {
    case Role::filler:
    case Role::frame:
    case Role::pageTab:
    case Role::pageTabList:
    case Role::panel:
    case Role::scrollPane:
    case Role::splitPane:
    case Role::statusBar:
    case Role::toolBar:
    case Role::viewport:
    case Role::window: return true;
    default: return false;
    }
}

bool isButton(Role role)
{
    return role == Role::pushButton || role == Role::toggleButton || role == Role::radioButton ||
           role == Role::checkBox;
}

bool mayBeView(Role role)
{
    switch (role) {
    case Role::label:
    case Role::text:
    case Role::listItem:
    case Role::tableCell: return false;
    default: return !isLayout(role) && !isButton(role) && !isSkipped(role);
    }
}

class Walk {
public:
    using OutlivesItsTasks = void;  // it is a local variable of the task that awaits them

    Walk(DBusQuery& query, Accessible frame, ManagerWindow& window)
        : query_(query), frame_(std::move(frame)), window_(window)
    {
    }

    Task<FrameLayout> run()
    {
        std::vector<Node> level = {Node{.object = frame_, .role = Role::frame}};
        for (int depth = 1; depth <= kMaxDepth && !level.empty(); depth++) {
            std::vector<Node> next;
            for (std::size_t i = 0; i < level.size(); i += kMaxPendingCalls) {
                const std::size_t end = std::min(i + kMaxPendingCalls, level.size());
                const std::vector<Node> some(level.begin() + static_cast<long>(i),
                                             level.begin() + static_cast<long>(end));
                std::vector<Node> children = co_await expand(some);
                std::move(children.begin(), children.end(), std::back_inserter(next));
            }
            level = std::move(next);
        }
        for (View& view : candidates_) {
            view.location = firstIn(view.tab, locations_);
            view.statusBar = firstIn(view.tab, statusBars_);
        }
        layout_.views = chooseViews(std::move(candidates_));
        co_return std::move(layout_);
    }

private:
    // The children of containers that have to be expanded in turn, with their roles and states.
    Task<std::vector<Node>> expand(std::vector<Node> containers)
    {
        std::vector<Node> next;
        const auto calls = callsFor(
            containers, [](const Node& container) { return childrenCall(container.object); });
        const std::vector<QDBusMessage> replies = co_await query_.replies(calls);

        for (std::size_t i = 0; i < containers.size(); i++) {
            const auto children = objectsIn(replies[i], kMaxChildren);
            if (!children || children->empty()) continue;
            std::vector<Node> nodes;
            for (const Accessible& child : *children) {
                if (child.isNull()) continue;
                if (objectCount_++ >= kMaxObjects) break;
                nodes.push_back({.object = child,
                                 .ancestors = containers[i].ancestors,
                                 .tab = containers[i].role == Role::pageTab ? containers[i].object
                                                                            : containers[i].tab,
                                 .depth = containers[i].depth + 1,
                                 .isUnderStatusBar = containers[i].isUnderStatusBar,
                                 .container = containers[i].role});
                nodes.back().ancestors.push_back(containers[i].object);
            }
            nodes = co_await withRolesAndStates(nodes);
            addRows(containers[i].object, children->size(), nodes);
            for (const Node& node : nodes) {
                std::optional<Node> container = co_await nodeToExpand(node);
                if (container) next.push_back(std::move(*container));
            }
        }
        co_return next;
    }

    Task<std::vector<Node>> withRolesAndStates(std::vector<Node> nodes)
    {
        for (std::size_t first = 0; first < nodes.size(); first += kMaxPendingCalls / 2) {
            const std::size_t end = std::min(first + kMaxPendingCalls / 2, nodes.size());
            std::vector<QDBusMessage> calls;
            for (std::size_t i = first; i < end; i++) {
                calls.push_back(roleCall(nodes[i].object));
                calls.push_back(statesCall(nodes[i].object));
            }
            const std::vector<QDBusMessage> replies = co_await query_.replies(calls);
            for (std::size_t i = first; i < end; i++) {
                Node& node = nodes[i];
                node.role = static_cast<Role>(numberIn(replies[2 * (i - first)]).value_or(0));
                node.states = statesIn(replies[2 * (i - first) + 1]).value_or(0);
            }
        }
        co_return nodes;
    }

    // Adds a node to the layout if it belongs there by itself; returns it if its children may.
    Task<std::optional<Node>> nodeToExpand(Node node)
    {
        // GTK 4 never sets the state "showing".
        const bool isSeen =
            has(node.states, isGtk4Object(node.object) ? State::visible : State::showing);
        if (!isSeen || isSkipped(node.role) || isButton(node.role)) co_return std::nullopt;
        switch (node.role) {
        case Role::text:
            layout_.locations.push_back(node.object);
            locations_.push_back({node.object, node.tab});
            co_return std::nullopt;
        case Role::label:
            if (node.isUnderStatusBar) layout_.statusTexts.push_back(node.object);
            co_return std::nullopt;
        case Role::statusBar:
            layout_.statusTexts.push_back(node.object);
            statusBars_.push_back({node.object, node.tab});
            node.isUnderStatusBar = true;
            break;
        default: break;
        }
        if (window_.opaqueness(node.role, node.container) != ManagerWindow::Opaqueness::no) {
            co_await addOpaqueView(node);
            co_return node;
        }
        if (mayBeView(node.role) && co_await isView(node)) co_return std::nullopt;
        co_return node;
    }

    // It may contain one panel without items, or a list, which chooseViews() prefers to it.
    Task<Done> addOpaqueView(Node node)
    {
        const std::vector<QDBusMessage> calls =
            callList(childCountCall(node.object), childCall(node.object, 0), sizeCall(node.object));
        const std::vector<QDBusMessage> replies = co_await query_.replies(calls);
        const bool mustBeEmpty =
            window_.opaqueness(node.role, node.container) == ManagerWindow::Opaqueness::ifEmpty;
        const auto size = sizeIn(replies[2]);
        if (!size || (mustBeEmpty && numberIn(replies[0]) != 0U)) co_return {};
        View view = {.object = node.object, .size = *size, .depth = node.depth};
        view.ancestors = node.ancestors;
        view.tab = node.tab;
        view.focusIndicators = {objectIn(replies[1]).value_or(node.object)};
        candidates_.push_back(std::move(view));
        co_return {};
    }

    Task<bool> isView(Node node)
    {
        const std::vector<QDBusMessage> calls =
            callList(interfacesCall(node.object), sizeCall(node.object));
        const std::vector<QDBusMessage> replies = co_await query_.replies(calls);
        const auto interfaces = textsIn(replies[0]);
        const auto size = sizeIn(replies[1]);
        if (!interfaces || !size) co_return false;
        const auto offers = [&](const char* name) {
            const QString whole = QStringLiteral("org.a11y.atspi.") + QLatin1String(name);
            return std::find(interfaces->begin(), interfaces->end(), whole) != interfaces->end();
        };
        View view = {.object = node.object, .size = *size, .depth = node.depth};
        view.ancestors = node.ancestors;
        view.tab = node.tab;
        view.focusIndicators = {node.object, node.ancestors.back()};
        if (node.ancestors.size() > 1)
            view.focusIndicators.push_back(node.ancestors[node.ancestors.size() - 2]);
        if (offers("Selection")) {
            view.access = offers("Table") ? ViewAccess::table : ViewAccess::selection;
        } else if (offers("Table")) {
            view.access = ViewAccess::states;
        } else {
            co_return false;
        }
        candidates_.push_back(view);
        co_return true;
    }

    void addRows(const Accessible& parent, std::size_t childCount, const std::vector<Node>& nodes)
    {
        bool isParentOfRow = false;
        for (std::size_t first = 0; first < nodes.size();) {
            std::size_t end = first;
            while (end < nodes.size() && nodes[end].role == nodes[first].role) end++;
            if (isButton(nodes[first].role) && end - first <= kMaxButtons) {
                std::vector<PathButton> row;
                for (std::size_t i = first; i < end; i++)
                    row.push_back({nodes[i].object, nodes[i].role});
                layout_.rows.push_back(std::move(row));
                isParentOfRow = true;
            }
            first = end;
        }
        if (isParentOfRow && childCount < kMaxChildren)
            layout_.rowParents.push_back({parent, static_cast<std::uint32_t>(childCount)});
    }

    DBusQuery& query_;
    Accessible frame_;
    ManagerWindow& window_;
    FrameLayout layout_;
    std::vector<View> candidates_;
    std::vector<InTab> locations_;
    std::vector<InTab> statusBars_;
    std::size_t objectCount_ = 0;
};
}  // namespace

bool isGtk4Object(const Accessible& object)
{
    return !object.path.startsWith(QLatin1String("/org/a11y/"));
}

namespace {
bool isSmaller(const View& a, const View& b)
{
    return a.size.area() < b.size.area();
}

// Chooses among all candidates of one folder, or of neighbour panes.
std::vector<View> chooseNeighbours(const std::vector<View>& candidates)
{
    // Of a directory pane that contains a list, the list is the view.
    const auto isOpaque = [](const View& view) { return view.access == ViewAccess::opaque; };
    std::vector<View> views;
    for (const View& pane : candidates) {
        const auto holdsList = [&](const View& list) {
            return !isOpaque(list) && list.depth > pane.depth && list.depth <= pane.depth + 2 &&
                   list.size.width >= pane.size.width * 9 / 10;
        };
        if (isOpaque(pane) && std::none_of(candidates.begin(), candidates.end(), holdsList))
            views.push_back(pane);
    }
    if (views.empty()) {
        std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(views),
                     [&](const View& view) { return !isOpaque(view); });
    }
    if (views.empty()) return views;
    const View largest = *std::max_element(views.begin(), views.end(), isSmaller);
    std::erase_if(views, [&](const View& view) {
        return view.depth != largest.depth || view.size.area() * 5 < largest.size.area() * 2;
    });
    return views;
}
}  // namespace

std::vector<View> chooseViews(std::vector<View> candidates)
{
    const auto hasLocation = [](const View& view) { return !view.location.isNull(); };
    if (std::none_of(candidates.begin(), candidates.end(), hasLocation))
        return chooseNeighbours(candidates);
    std::vector<View> views;
    while (!candidates.empty()) {
        const Accessible tab = candidates.front().tab;
        const auto end = std::stable_partition(candidates.begin(), candidates.end(),
                                               [&](const View& view) { return view.tab == tab; });
        const std::vector<View> inTab = chooseNeighbours({candidates.begin(), end});
        candidates.erase(candidates.begin(), end);
        if (!tab.isNull() && !inTab.empty())
            views.push_back(*std::max_element(inTab.begin(), inTab.end(), isSmaller));
    }
    return views;
}

Task<FrameLayout> walkFrame(DBusQuery& query, Accessible frame, ManagerWindow& window)
{
    Walk walk(query, std::move(frame), window);
    FrameLayout layout = co_await walk.run();
    co_return layout;
}

}  // namespace pinorama
