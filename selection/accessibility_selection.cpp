#include "selection/accessibility_selection.h"

#include "selection/item_name.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// A reading that takes longer is left to the event loop, so that the window stays quick.
constexpr auto kLongestReading = 60ms;
}  // namespace

AccessibilitySelection::AccessibilitySelection(FrameTracker& tracker) : tracker_(tracker) {}

std::vector<std::string> AccessibilitySelection::selectedPaths()
{
    if (!tracker_.isReady()) return {};
    Inquiry inquiry(tracker_.bus(), kSelectionDeadline);
    auto paths = inquiry.valueUntil(answer(inquiry), Clock::now() + kSelectionDeadline);
    if (paths) return std::move(*paths);
    for (const QString& service : inquiry.unanswered()) tracker_.pause(service);
    return {};
}

Task<std::vector<std::string>> AccessibilitySelection::answer(Inquiry& inquiry)
{
    const SharedFrame frame = co_await tracker_.askForFrame(inquiry);
    std::vector<std::string> paths;
    if (frame) paths = co_await pathsIn(inquiry, frame);
    co_return paths;
}

Task<std::vector<std::string>> AccessibilitySelection::pathsIn(Inquiry& inquiry, SharedFrame frame)
{
    tracker_.checkAlong(frame);
    if (!frame->isStale() && !tracker_.hasChecked(frame)) co_await frame->check(inquiry);
    if (frame->isStale()) {
        if (frame->cost() > kLongestReading) {
            tracker_.readInEventLoop(frame);
            co_return std::vector<std::string>();
        }
        tracker_.dropReading(frame);
        co_await frame->read(inquiry);
    } else if (frame->isDue(Clock::now())) {
        // What has just been checked serves until then.
        tracker_.readInEventLoop(frame);
    }
    std::vector<std::string> paths = frame->paths();
    // A file may vanish between its selection and now.
    const auto isGone = [](const std::string& path) { return !existingItem(path).has_value(); };
    if (std::any_of(paths.begin(), paths.end(), isGone)) paths.clear();
    co_return paths;
}

}  // namespace pinorama
