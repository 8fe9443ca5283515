#include "selection/extension_selection.h"

#include "selection/accessibility_selection.h"
#include "selection/item_name.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// A push and the accessibility event about the same change arrive in any order, at most this far
// apart. An event that comes later without a push is about a change that the extension did not see,
// such as a switch to another tab.
constexpr auto kMaxSkew = 60ms;

std::string folderOf(std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}
}  // namespace

ExtensionSelection::ExtensionSelection(FrameTracker& tracker)
    : tracker_(tracker),
      pushes_(QDBusConnection::sessionBus(), [&tracker] { return tracker.lastFrame(); })
{
    connect(&tracker_, &FrameTracker::selectionMayHaveChanged, this, [this](pid_t process) {
        const PushedSelection* pushed = pushes_.lastOf(process);
        if (pushed != nullptr && Clock::now() - pushed->at > kMaxSkew) pushes_.forget(process);
    });
    connect(&pushes_, &SelectionPushes::pushed, this, &ExtensionSelection::pushed);
}

std::vector<std::string> ExtensionSelection::selectedPaths()
{
    setListening(true);
    isKnown_ = false;
    if (!tracker_.isReady()) return {};
    DBusQuery query(tracker_.bus(), kSelectionDeadline);
    auto paths = query.valueUntil(findPaths(query), Clock::now() + kSelectionDeadline);
    if (!paths) {
        for (const QString& program : query.servicesWithoutReply()) tracker_.pause(program);
        return {};
    }
    isKnown_ = paths->has_value();
    return std::move(*paths).value_or(std::vector<std::string>());
}

Task<std::optional<std::vector<std::string>>> ExtensionSelection::findPaths(DBusQuery& query)
{
    const SharedFrame frame = co_await tracker_.findLatestFrame(query);
    std::optional<std::vector<std::string>> paths;
    if (frame) paths = co_await pathsIn(query, frame);
    co_return paths;
}

Task<std::optional<std::vector<std::string>>> ExtensionSelection::pathsIn(DBusQuery& query,
                                                                          SharedFrame frame)
{
    const pid_t process = frame->process();
    if (pushes_.lastOf(process) == nullptr) co_return std::nullopt;
    const QDBusMessage getName = nameCall(frame->frame());
    const auto title = textIn(co_await query.reply(getName));

    // Only now, and not before the co_await: pushes arrive and expire during it.
    PushedSelection* pushed = pushes_.lastOf(process);
    if (pushed == nullptr || !title) co_return std::nullopt;
    const bool isOfThisWindow = pushed->frame.lock() == frame;
    // A push that arrives while the user switches windows may come from either of them.
    if (!isOfThisWindow && !pushed->isConfirmed) pushes_.forget(process);
    if (!isOfThisWindow) co_return std::nullopt;
    if (*title != pushed->windowTitle) {
        // The window shows another folder now, and no push said so.
        pushes_.forget(process);
        co_return std::nullopt;
    }
    pushed->isConfirmed = true;
    if (frame->kind().pushesTooEarly) {
        // The folder is right nevertheless.
        if (!pushed->paths.empty()) frame->noteFolder(folderOf(pushed->paths.front()));
        co_return std::nullopt;
    }
    const std::vector<std::string> paths = pushed->paths;
    auto items = co_await existingItems(query, paths);
    pushed = pushes_.lastOf(process);
    if (!items && pushed != nullptr && pushed->paths == paths) pushes_.forget(process);
    co_return items;
}

}  // namespace pinorama
