#include "selection/extension_selection.h"

#include "selection/accessibility_selection.h"
#include "selection/item_name.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// A push and what the accessibility bus says about the same change arrive in any order, this far
// apart at most. A change that comes later without a push is one that the extension did not see,
// such as another tab.
constexpr auto kApart = 60ms;

std::string folderOf(std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

// Nothing when one of the items is gone: what is left is another selection.
std::optional<std::vector<std::string>> existingItems(const std::vector<std::string>& paths)
{
    std::vector<std::string> items;
    for (const std::string& path : paths) {
        auto item = existingItem(path);
        if (!item) return std::nullopt;
        items.push_back(std::move(*item));
    }
    return items;
}
}  // namespace

ExtensionSelection::ExtensionSelection(FrameTracker& tracker)
    : tracker_(tracker),
      pushes_(QDBusConnection::sessionBus(), [&tracker] { return tracker.lastFrame(); })
{
    connect(&tracker_, &FrameTracker::selectionMayHaveChanged, this, [this](pid_t process) {
        const PushedSelection* pushed = pushes_.lastOf(process);
        if (pushed != nullptr && Clock::now() - pushed->at > kApart) pushes_.forget(process);
    });
}

std::vector<std::string> ExtensionSelection::selectedPaths()
{
    setListening(true);
    if (!tracker_.isReady()) return {};
    Inquiry inquiry(tracker_.bus(), kSelectionDeadline);
    auto paths = inquiry.valueUntil(answer(inquiry), Clock::now() + kSelectionDeadline);
    if (paths) return std::move(*paths);
    for (const QString& program : inquiry.unanswered()) tracker_.pause(program);
    return {};
}

Task<std::vector<std::string>> ExtensionSelection::answer(Inquiry& inquiry)
{
    const SharedFrame frame = co_await tracker_.askForFrame(inquiry);
    std::optional<std::vector<std::string>> paths;
    if (frame) paths = co_await pathsIn(inquiry, frame);
    co_return paths.value_or(std::vector<std::string>());
}

Task<std::optional<std::vector<std::string>>> ExtensionSelection::pathsIn(Inquiry& inquiry,
                                                                          SharedFrame frame)
{
    const pid_t process = frame->process();
    if (pushes_.lastOf(process) == nullptr) co_return std::nullopt;
    const QDBusMessage askName = nameQuestion(frame->frame());
    const auto title = textIn(co_await inquiry.answer(askName));

    PushedSelection* pushed = pushes_.lastOf(process);
    if (pushed == nullptr || !title) co_return std::nullopt;
    const bool isOfThisWindow = pushed->frame.lock() == frame;
    // A push that comes while the user goes from one window to another can be of either.
    if (!isOfThisWindow && !pushed->isConfirmed) pushes_.forget(process);
    if (!isOfThisWindow) co_return std::nullopt;
    if (*title != pushed->windowTitle) {
        // The window has gone on to another folder, which nobody has told about.
        pushes_.forget(process);
        co_return std::nullopt;
    }
    pushed->isConfirmed = true;
    if (frame->kind().manager == FileManager::thunar) {
        // Thunar asks its extensions before it takes a change over, so that they tell the selection
        // of one change ago. The folder is right all the same.
        if (!pushed->paths.empty()) frame->noteFolder(folderOf(pushed->paths.front()));
        co_return std::nullopt;
    }
    auto items = existingItems(pushed->paths);
    if (!items) pushes_.forget(process);
    co_return items;
}

}  // namespace pinorama
