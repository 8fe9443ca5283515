#include "selection/accessibility_selection.h"

#include "selection/item_name.h"

#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// A window that takes longer to read is read in the event loop, so that our own stays responsive.
constexpr auto kMaxReadTime = 60ms;

// A look lets the event loop run while it waits, but the next call of selectedPaths() cancels it.
constexpr auto kMaxLookTime = 150ms;
}  // namespace

AccessibilitySelection::AccessibilitySelection(FrameTracker& tracker) : tracker_(tracker) {}

std::vector<std::string> AccessibilitySelection::selectedPaths()
{
    isKnown_ = false;
    if (!tracker_.isReady()) return {};
    DBusQuery query(tracker_.bus(), kSelectionDeadline);
    auto paths = query.valueUntil(findPaths(query), Clock::now() + kSelectionDeadline);
    if (!paths) {
        for (const QString& service : query.servicesWithoutReply()) tracker_.pause(service);
        return {};
    }
    isKnown_ = paths->has_value();
    return std::move(*paths).value_or(std::vector<std::string>());
}

Task<std::optional<std::vector<std::string>>> AccessibilitySelection::findPaths(DBusQuery& query)
{
    const SharedFrame frame = co_await tracker_.findLatestFrame(query);
    std::optional<std::vector<std::string>> paths;
    if (frame) paths = co_await pathsIn(query, frame);
    co_return paths;
}

Task<std::optional<std::vector<std::string>>> AccessibilitySelection::pathsIn(DBusQuery& query,
                                                                              SharedFrame frame)
{
    tracker_.revalidateAlong(frame);
    if (!frame->isStale() && !tracker_.hasRevalidated(frame)) co_await frame->revalidate(query);
    if (frame->isStale()) {
        if (frame->cost() > (query.runsInEventLoop() ? kMaxLookTime : kMaxReadTime)) {
            tracker_.readInEventLoop(frame);
            co_return std::nullopt;
        }
        // A reading that began earlier must not overwrite this one.
        tracker_.cancelReading(frame);
        co_await frame->read(query);
        co_return frame->paths();  // which it has looked up
    }
    if (frame->isDue(Clock::now())) {
        // The paths that were just revalidated will do until that reading ends.
        tracker_.readInEventLoop(frame);
    }
    std::optional<std::vector<std::string>> paths = frame->paths();
    // A file may have been deleted since it was selected.
    if (paths) paths = co_await existingItems(query, *paths);
    co_return paths;
}

}  // namespace pinorama
