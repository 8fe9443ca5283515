#include "platform/desktop/extension_selection.h"

#include "platform/desktop/accessibility_selection.h"
#include "platform/desktop/item_name.h"
#include "platform/files/file_uri.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <utility>

namespace {
using namespace std::chrono_literals;

constexpr qsizetype kMostUris = 64;
constexpr qsizetype kLongestUri = 3 * 4096 + 16;  // UTF-16 units; every byte of a path escaped
constexpr qsizetype kLongestTitle = 1024;
constexpr std::size_t kMostProcesses = 32;

// A push and what the accessibility bus says about the same change arrive in any order, this far
// apart at most. A change that comes later without a push is one that the extension did not see,
// such as another tab.
constexpr auto kApart = 60ms;

std::string folderOf(std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

QString service()
{
    return QStringLiteral("org.pinorama.Selection1");
}

QString object()
{
    return QStringLiteral("/org/pinorama/Selection");
}
}  // namespace

platform::ExtensionSelection::ExtensionSelection(FrameTracker& tracker) : tracker_(tracker)
{
    connect(&tracker_, &FrameTracker::selectionMayHaveChanged, this, [this](pid_t process) {
        const auto pushed = pushed_.find(process);
        if (pushed != pushed_.end() && Clock::now() - pushed->second.at > kApart) drop(process);
    });
}

platform::ExtensionSelection::~ExtensionSelection()
{
    setListening(false);
}

void platform::ExtensionSelection::setListening(bool isListening)
{
    if (isListening == isListening_) return;
    isListening_ = isListening;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (isListening) {
        bus.registerObject(object(), this, QDBusConnection::ExportScriptableSlots);
        bus.registerService(service());
    } else {
        bus.unregisterService(service());
        bus.unregisterObject(object());
        pushed_.clear();
    }
}

void platform::ExtensionSelection::Push(const QStringList& uris, const QString& windowTitle)
{
    PushedSelection pushed;
    pushed.windowTitle = windowTitle.left(kLongestTitle);
    pushed.at = Clock::now();
    for (const QString& uri : uris.first(std::min(uris.size(), kMostUris))) {
        auto path = uri.size() > kLongestUri ? std::nullopt : pathOfFileURI(uri.toStdString());
        auto item = path ? existingItem(*path) : std::nullopt;
        if (item) pushed.paths.push_back(std::move(*item));
    }
    // A part of a selection is another selection.
    if (static_cast<qsizetype>(pushed.paths.size()) != std::min(uris.size(), kMostUris))
        pushed.paths.clear();

    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
    question.setArguments({message().service()});
    auto* answer = new QDBusPendingCallWatcher(connection().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, answer, pushed = std::move(pushed)] {
                const QDBusPendingReply<uint> process = *answer;
                answer->deleteLater();
                if (process.isValid()) keep(static_cast<pid_t>(process.value()), pushed);
            });
}

void platform::ExtensionSelection::keep(pid_t process, PushedSelection pushed)
{
    if (!isListening_) return;
    if (!pushed_.contains(process) && pushed_.size() >= kMostProcesses) pushed_.clear();
    pushed_[process] = std::move(pushed);
}

void platform::ExtensionSelection::drop(pid_t process)
{
    pushed_.erase(process);
}

std::vector<std::string> platform::ExtensionSelection::selectedPaths()
{
    setListening(true);
    if (!tracker_.isReady()) return {};
    std::vector<std::string> paths;
    Inquiry inquiry(tracker_.bus(), kSelectionDeadline);
    inquiry.begin(answer(inquiry, &paths));
    if (inquiry.finishUntil(Clock::now() + kSelectionDeadline)) return paths;
    for (const QString& program : inquiry.unanswered()) tracker_.pause(program);
    return {};
}

platform::Task<platform::Done> platform::ExtensionSelection::answer(
    Inquiry& inquiry, std::vector<std::string>* outPaths)
{
    const std::shared_ptr<FrameReader> frame = co_await tracker_.askForFrame(inquiry);
    if (!frame) co_return {};
    const auto paths = co_await pathsIn(inquiry, frame);
    if (paths) *outPaths = *paths;
    co_return {};
}

platform::Task<std::optional<std::vector<std::string>>> platform::ExtensionSelection::pathsIn(
    Inquiry& inquiry, std::shared_ptr<FrameReader> frame)
{
    const pid_t process = frame->process();
    if (!pushed_.contains(process)) co_return std::nullopt;
    const QDBusMessage askName = nameQuestion(frame->frame());
    const auto title = textIn(co_await inquiry.answer(askName));
    const auto found = pushed_.find(process);
    if (found == pushed_.end()) co_return std::nullopt;
    PushedSelection& pushed = found->second;

    const bool isOfThisTitle = title == pushed.windowTitle;
    const std::shared_ptr<FrameReader> itsFrame = pushed.frame.lock();
    if (!itsFrame && isOfThisTitle) pushed.frame = frame;
    if ((itsFrame && itsFrame != frame)) co_return std::nullopt;
    if (!isOfThisTitle) {
        // The window has gone on to another folder, which nobody has told about.
        if (itsFrame) drop(process);
        co_return std::nullopt;
    }
    std::vector<std::string> paths = pushed.paths;
    if (frame->kind().manager == FileManager::thunar) {
        // Thunar asks its extensions before it takes a change over, so that they tell the selection
        // of one change ago. The folder is right all the same.
        if (!paths.empty()) frame->noteFolder(folderOf(paths.front()));
        co_return std::nullopt;
    }
    for (const std::string& path : paths) {
        if (existingItem(path)) continue;
        paths.clear();
        break;
    }
    co_return paths;
}
