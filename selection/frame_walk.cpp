#include "selection/frame_walk.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace pinorama {
namespace {

constexpr std::size_t kMostAtOnce = 64;     // questions that wait for an answer
constexpr std::size_t kMostChildren = 200;  // looked at in one container
constexpr int kDeepest = 40;
constexpr std::size_t kMostButtons = 64;  // in one row

struct Node {
    Accessible object;
    std::vector<Accessible> above = {};  // from the frame down to its parent
    int depth = 0;
    bool isUnderStatusBar = false;
    Role role = Role::filler;
    States states = 0;
};

bool isClosed(Role role)
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

// Roles of containers that only lay others out.
bool isStructure(Role role)
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
    default: return !isStructure(role) && !isButton(role) && !isClosed(role);
    }
}

class Walk {
public:
    using OutlivesItsTasks = void;  // it is a part of the one task that they belong to

    Walk(Inquiry& inquiry, Accessible frame) : inquiry_(inquiry), frame_(std::move(frame)) {}

    Task<FrameLayout> run()
    {
        std::vector<Node> level = {Node{.object = frame_, .role = Role::frame}};
        for (int depth = 1; depth <= kDeepest && !level.empty(); depth++) {
            std::vector<Node> next;
            for (std::size_t i = 0; i < level.size(); i += kMostAtOnce) {
                const std::size_t end = std::min(i + kMostAtOnce, level.size());
                const std::vector<Node> some(level.begin() + static_cast<long>(i),
                                             level.begin() + static_cast<long>(end));
                std::vector<Node> opened = co_await open(some);
                std::move(opened.begin(), opened.end(), std::back_inserter(next));
            }
            level = std::move(next);
        }
        layout_.views = chooseViews(std::move(candidates_));
        co_return std::move(layout_);
    }

private:
    // Those children of containers that are worth opening, each with its role and states.
    Task<std::vector<Node>> open(std::vector<Node> containers)
    {
        std::vector<Node> next;
        const auto questions = questionsAbout(
            containers, [](const Node& container) { return childrenQuestion(container.object); });
        const std::vector<QDBusMessage> answers = co_await inquiry_.answers(questions);

        for (std::size_t i = 0; i < containers.size(); i++) {
            const auto children = objectsIn(answers[i], kMostChildren);
            if (!children || children->empty()) continue;
            std::vector<Node> nodes;
            for (const Accessible& child : *children) {
                if (child.isNull()) continue;
                if (objectCount_++ >= kMostObjects) break;
                nodes.push_back({.object = child,
                                 .above = containers[i].above,
                                 .depth = containers[i].depth + 1,
                                 .isUnderStatusBar = containers[i].isUnderStatusBar});
                nodes.back().above.push_back(containers[i].object);
            }
            nodes = co_await described(nodes);
            takeRows(containers[i].object, children->size(), nodes);
            for (const Node& node : nodes) {
                std::optional<Node> taken = co_await worthOpening(node);
                if (taken) next.push_back(std::move(*taken));
            }
        }
        co_return next;
    }

    Task<std::vector<Node>> described(std::vector<Node> nodes)
    {
        for (std::size_t first = 0; first < nodes.size(); first += kMostAtOnce / 2) {
            const std::size_t end = std::min(first + kMostAtOnce / 2, nodes.size());
            std::vector<QDBusMessage> questions;
            for (std::size_t i = first; i < end; i++) {
                questions.push_back(roleQuestion(nodes[i].object));
                questions.push_back(statesQuestion(nodes[i].object));
            }
            const std::vector<QDBusMessage> answers = co_await inquiry_.answers(questions);
            for (std::size_t i = first; i < end; i++) {
                Node& node = nodes[i];
                node.role = static_cast<Role>(numberIn(answers[2 * (i - first)]).value_or(0));
                node.states = statesIn(answers[2 * (i - first) + 1]).value_or(0);
            }
        }
        co_return nodes;
    }

    // Keeps what tells something by itself, and gives back what holds others.
    Task<std::optional<Node>> worthOpening(Node node)
    {
        // GTK 4 does not tell what is showing.
        const bool isSeen =
            has(node.states, isGtk4Object(node.object) ? State::visible : State::showing);
        if (!isSeen || isClosed(node.role) || isButton(node.role)) co_return std::nullopt;
        switch (node.role) {
        case Role::text: layout_.locations.push_back(node.object); co_return std::nullopt;
        case Role::label:
            if (node.isUnderStatusBar) layout_.statusTexts.push_back(node.object);
            co_return std::nullopt;
        case Role::statusBar:
            layout_.statusTexts.push_back(node.object);
            node.isUnderStatusBar = true;
            break;
        default: break;
        }
        if (mayBeView(node.role) && co_await isView(node)) co_return std::nullopt;
        co_return node;
    }

    Task<bool> isView(Node node)
    {
        const std::vector<QDBusMessage> asked =
            together(interfacesQuestion(node.object), sizeQuestion(node.object));
        const std::vector<QDBusMessage> answers = co_await inquiry_.answers(asked);
        const auto interfaces = textsIn(answers[0]);
        const auto size = sizeIn(answers[1]);
        if (!interfaces || !size) co_return false;
        const auto offers = [&](const char* name) {
            const QString whole = QStringLiteral("org.a11y.atspi.") + QLatin1String(name);
            return std::find(interfaces->begin(), interfaces->end(), whole) != interfaces->end();
        };
        View view = {.object = node.object, .size = *size, .depth = node.depth};
        view.above = node.above;
        view.focusMarks = {node.object, node.above.back()};
        if (node.above.size() > 1) view.focusMarks.push_back(node.above[node.above.size() - 2]);
        if (node.role == Role::directoryPane) {
            const QDBusMessage askChild = childQuestion(node.object, 0);
            // Its inside is one panel without items, or a list that goes before it.
            const auto inside = objectIn(co_await inquiry_.answer(askChild));
            if (inside) view.focusMarks = {*inside};
            candidates_.push_back(view);
            co_return false;
        }
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

    void takeRows(const Accessible& parent, std::size_t childCount, const std::vector<Node>& nodes)
    {
        bool isParentOfRow = false;
        for (std::size_t first = 0; first < nodes.size();) {
            std::size_t end = first;
            while (end < nodes.size() && nodes[end].role == nodes[first].role) end++;
            if (isButton(nodes[first].role) && end - first <= kMostButtons) {
                std::vector<PathButton> row;
                for (std::size_t i = first; i < end; i++)
                    row.push_back({nodes[i].object, nodes[i].role});
                layout_.rows.push_back(std::move(row));
                isParentOfRow = true;
            }
            first = end;
        }
        if (isParentOfRow && childCount < kMostChildren)
            layout_.rowParents.push_back({parent, static_cast<std::uint32_t>(childCount)});
    }

    Inquiry& inquiry_;
    Accessible frame_;
    FrameLayout layout_;
    std::vector<View> candidates_;
    std::size_t objectCount_ = 0;
};
}  // namespace

bool isGtk4Object(const Accessible& object)
{
    return !object.path.startsWith(QLatin1String("/org/a11y/"));
}

std::vector<View> chooseViews(std::vector<View> candidates)
{
    // A directory pane that holds a list is the list.
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
    const View largest = *std::max_element(
        views.begin(), views.end(),
        [](const View& a, const View& b) { return a.size.area() < b.size.area(); });
    std::erase_if(views, [&](const View& view) {
        return view.depth != largest.depth || view.size.area() * 5 < largest.size.area() * 2;
    });
    return views;
}

Task<FrameLayout> walkFrame(Inquiry& inquiry, Accessible frame)
{
    Walk walk(inquiry, std::move(frame));
    FrameLayout layout = co_await walk.run();
    co_return layout;
}

}  // namespace pinorama
