#include "selection/file_manager_selection.h"

#include "selection/accessibility_selection.h"
#include "selection/extension_selection.h"

#include <QTimer>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kSleepAfter = 2s;
}  // namespace

struct FileManagerSelection::Parts {
    using OutlivesItsTasks = void;  // selectedPaths() blocks until they end

    FrameTracker tracker;
    ExtensionSelection extension{tracker};
    AccessibilitySelection accessibility{tracker};
    QTimer sleep;

    bool isKnown = false;

    Task<std::optional<std::vector<std::string>>> findPaths(DBusQuery& query)
    {
        std::optional<std::vector<std::string>> paths;
        const SharedFrame frame = co_await tracker.findLatestFrame(query);
        if (!frame) co_return paths;
        paths = co_await extension.pathsIn(query, frame);
        if (!paths) paths = co_await accessibility.pathsIn(query, frame);
        co_return paths;
    }
};

FileManagerSelection::FileManagerSelection() : parts_(std::make_unique<Parts>())
{
    parts_->sleep.setSingleShot(true);
    QObject::connect(&parts_->sleep, &QTimer::timeout,
                     [parts = parts_.get()] { parts->extension.setListening(false); });
}

FileManagerSelection::~FileManagerSelection() = default;

std::vector<std::string> FileManagerSelection::selectedPaths()
{
    parts_->sleep.start(kSleepAfter);
    parts_->extension.setListening(true);
    parts_->isKnown = false;
    if (!parts_->tracker.isReady()) return {};
    DBusQuery query(parts_->tracker.bus(), kSelectionDeadline);
    auto paths = query.valueUntil(parts_->findPaths(query), Clock::now() + kSelectionDeadline);
    if (!paths) {
        for (const QString& service : query.servicesWithoutReply()) parts_->tracker.pause(service);
        return {};
    }
    parts_->isKnown = paths->has_value();
    return std::move(*paths).value_or(std::vector<std::string>());
}

bool FileManagerSelection::isKnown() const
{
    return parts_->isKnown;
}

}  // namespace pinorama
