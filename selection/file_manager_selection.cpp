#include "selection/file_manager_selection.h"

#include "selection/accessibility_selection.h"
#include "selection/extension_selection.h"
#include "selection/look_pace.h"

#include <QTimer>

#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kSleepAfter = 2s;

// Of one call of a look. A file manager that is busy replies late, and the event loop can wait.
constexpr auto kReplyTimeout = 2s;
}  // namespace

struct FileManagerSelection::Parts {
    using OutlivesItsTasks = void;  // selectedPaths() blocks until they end; a look is a member

    explicit Parts(KindOfProcess kindOfProcess)
        : tracker(std::move(kindOfProcess)), pace([this] { startLook(); })
    {
        sleep.setSingleShot(true);
        QObject::connect(&sleep, &QTimer::timeout, &sleep, [this] {
            cancelLook();
            pace.drop();
            extension.setListening(false);
        });
        const auto onReport = [this] {
            if (listener && sleep.isActive()) pace.request();
        };
        QObject::connect(&tracker, &FrameTracker::changeReported, &sleep, onReport);
        QObject::connect(&extension, &ExtensionSelection::pushed, &sleep, onReport);
    }

    Task<std::optional<std::vector<std::string>>> findPaths(DBusQuery& query)
    {
        std::optional<std::vector<std::string>> paths;
        const SharedFrame frame = co_await tracker.findLatestFrame(query);
        if (!frame) co_return paths;
        paths = co_await extension.pathsIn(query, frame);
        if (!paths) paths = co_await accessibility.pathsIn(query, frame);
        co_return paths;
    }

    Task<Done> findForListener(DBusQuery& query)
    {
        found = co_await findPaths(query);
        co_return {};
    }

    void startLook()
    {
        if (!tracker.isReady()) return pace.end();
        found.reset();
        look = std::make_unique<DBusQuery>(tracker.bus(), kReplyTimeout);
        look->start(findForListener(*look));
        look->continueInEventLoop([this] {
            look.reset();
            pace.end();
            // A copy: the listener may replace itself.
            const Listener receive = listener;
            if (found && receive) receive(std::exchange(found, std::nullopt).value());
        });
    }

    void cancelLook()
    {
        look.reset();
        pace.end();
    }

    FrameTracker tracker;
    ExtensionSelection extension{tracker};
    AccessibilitySelection accessibility{tracker};
    QTimer sleep;

    bool isKnown = false;

    Listener listener;
    LookPace pace;
    std::optional<std::vector<std::string>> found;  // by the look
    std::unique_ptr<DBusQuery> look;                // that waits for replies; null for none
};

FileManagerSelection::FileManagerSelection(KindOfProcess kindOfProcess)
    : parts_(std::make_unique<Parts>(std::move(kindOfProcess)))
{
}

FileManagerSelection::~FileManagerSelection() = default;

std::vector<std::string> FileManagerSelection::selectedPaths()
{
    parts_->sleep.start(kSleepAfter);
    parts_->extension.setListening(true);
    parts_->isKnown = false;
    parts_->cancelLook();
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

void FileManagerSelection::setListener(Listener listener)
{
    if (!listener) {
        parts_->cancelLook();
        parts_->pace.drop();
    }
    parts_->listener = std::move(listener);
}

}  // namespace pinorama
