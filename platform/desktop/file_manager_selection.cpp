#include "platform/desktop/file_manager_selection.h"

#include "platform/desktop/accessibility_selection.h"
#include "platform/desktop/extension_selection.h"

#include <QTimer>

namespace {
using namespace std::chrono_literals;

constexpr auto kSleepAfter = 2s;
}  // namespace

struct platform::FileManagerSelection::Parts {
    FrameTracker tracker;
    ExtensionSelection extension{tracker};
    AccessibilitySelection accessibility{tracker};
    QTimer sleep;

    Task<Done> answer(Inquiry& inquiry, std::vector<std::string>* outPaths)
    {
        const std::shared_ptr<FrameReader> frame = co_await tracker.askForFrame(inquiry);
        if (!frame) co_return {};
        auto pushed = co_await extension.pathsIn(inquiry, frame);
        if (pushed) {
            *outPaths = std::move(*pushed);
        } else {
            *outPaths = co_await accessibility.pathsIn(inquiry, frame);
        }
        co_return {};
    }
};

platform::FileManagerSelection::FileManagerSelection() : parts_(std::make_unique<Parts>())
{
    parts_->sleep.setSingleShot(true);
    QObject::connect(&parts_->sleep, &QTimer::timeout,
                     [parts = parts_.get()] { parts->extension.setListening(false); });
}

platform::FileManagerSelection::~FileManagerSelection() = default;

std::vector<std::string> platform::FileManagerSelection::selectedPaths()
{
    parts_->sleep.start(kSleepAfter);
    parts_->extension.setListening(true);
    if (!parts_->tracker.isReady()) return {};
    std::vector<std::string> paths;
    Inquiry inquiry(parts_->tracker.bus(), kSelectionDeadline);
    inquiry.begin(parts_->answer(inquiry, &paths));
    if (inquiry.finishUntil(Clock::now() + kSelectionDeadline)) return paths;
    for (const QString& service : inquiry.unanswered()) parts_->tracker.pause(service);
    return {};
}
