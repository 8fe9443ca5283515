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

// A program that has not replied to a look by then is left alone for a while.
constexpr auto kLookDeadline = 300ms;
}  // namespace

struct FileManagerSelection::Parts {
    using OutlivesItsTasks = void;  // selectedPaths() blocks until they end; a look is a member

    Parts(KindOfProcess kindOfProcess, std::chrono::milliseconds longestWait)
        : patience(longestWait), tracker(std::move(kindOfProcess)), pace([this] { startLook(); })
    {
        sleep.setSingleShot(true);
        lookDeadline.setSingleShot(true);
        QObject::connect(&lookDeadline, &QTimer::timeout, &lookDeadline, [this] { pauseSilent(); });
        QObject::connect(&sleep, &QTimer::timeout, &sleep, [this] {
            cancelLook();
            pace.drop();
            isSlow = false;
            late.reset();
            extension.setListening(false);
        });
        const auto onReport = [this] {
            if (!listener || !sleep.isActive()) return;
            // What has changed may be on another disk than the one that keeps this look.
            if (look && Clock::now() - lookBegan > kLookDeadline) cancelLook();
            pace.request();
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

    Task<Done> findForLook(DBusQuery& query)
    {
        found = co_await findPaths(query);
        co_return {};
    }

    void startLook()
    {
        if (!tracker.isReady()) return pace.end();
        found.reset();
        lookBegan = Clock::now();
        look = std::make_unique<DBusQuery>(tracker.bus(), kReplyTimeout);
        look->start(findForLook(*look));
        lookDeadline.start(kLookDeadline);
        look->continueInEventLoop([this] { endLook(); });
    }

    void endLook()
    {
        lookDeadline.stop();
        look.reset();
        pace.end();
        if (Clock::now() - lookBegan < patience / 2) isSlow = false;
        // A copy: the listener may replace itself.
        const Listener receive = listener;
        if (found && receive) return receive(std::exchange(found, std::nullopt).value());
        if (isSlow) late = std::exchange(found, std::nullopt);
    }

    void cancelLook()
    {
        lookDeadline.stop();
        look.reset();
        pace.end();
    }

    // Pauses the programs that keep the look waiting. If it waits for a disk instead, that has a
    // deadline of its own.
    void pauseSilent()
    {
        if (!look) return;
        const std::vector<QString> silent = look->servicesWithoutReply();
        if (silent.empty()) return;
        cancelLook();
        for (const QString& service : silent) tracker.pause(service);
    }

    // The answer of now. Nothing if it takes too long.
    std::optional<std::optional<std::vector<std::string>>> waitForPaths()
    {
        DBusQuery query(tracker.bus(), patience);
        auto paths = query.valueUntil(findPaths(query), Clock::now() + patience);
        // A reading that ends half way leaves the window as if it had been read.
        if (!paths && tracker.lastFrame()) tracker.lastFrame()->markStale();
        return paths;
    }

    std::chrono::milliseconds patience;
    FrameTracker tracker;
    ExtensionSelection extension{tracker};
    AccessibilitySelection accessibility{tracker};
    QTimer sleep;

    bool isKnown = false;
    bool isSlow = false;                           // the file manager, so that nobody waits for it
    std::optional<std::vector<std::string>> late;  // found by a look, for the next call

    Listener listener;
    LookPace pace;
    QTimer lookDeadline;
    Clock::time_point lookBegan;
    std::optional<std::vector<std::string>> found;  // by the look
    std::unique_ptr<DBusQuery> look;                // that waits for replies; null for none
};

FileManagerSelection::FileManagerSelection(KindOfProcess kindOfProcess,
                                           std::chrono::milliseconds patience)
    : parts_(std::make_unique<Parts>(std::move(kindOfProcess), patience))
{
}

FileManagerSelection::~FileManagerSelection() = default;

std::vector<std::string> FileManagerSelection::selectedPaths()
{
    parts_->sleep.start(kSleepAfter);
    parts_->extension.setListening(true);
    parts_->isKnown = false;
    std::optional<std::vector<std::string>> paths = std::exchange(parts_->late, std::nullopt);
    if (!parts_->isSlow) {
        parts_->cancelLook();
        if (!parts_->tracker.isReady()) return {};
        auto answer = parts_->waitForPaths();
        parts_->isSlow = !answer;
        paths = std::move(answer).value_or(std::nullopt);
    }
    if (parts_->isSlow) parts_->pace.request();
    parts_->isKnown = paths.has_value();
    return std::move(paths).value_or(std::vector<std::string>());
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
        parts_->late.reset();
    }
    parts_->listener = std::move(listener);
}

}  // namespace pinorama
