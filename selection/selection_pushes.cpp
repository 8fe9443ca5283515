#include "selection/selection_pushes.h"

#include "base/file_uri.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <optional>
#include <utility>

namespace pinorama {
namespace {
constexpr qsizetype kMostUris = 64;
constexpr qsizetype kLongestUri = 3 * 4096 + 256;  // UTF-16 units; every byte of a path escaped
constexpr qsizetype kLongestTitle = 4096;          // UTF-16 units
constexpr std::size_t kMostProcesses = 32;
constexpr std::size_t kMostUnanswered = 256;

const QString kService = QStringLiteral("org.pinorama.Selection1");
const QString kObject = QStringLiteral("/org/pinorama/Selection");

std::vector<std::string> pathsOf(const QStringList& uris)
{
    std::vector<std::string> paths;
    for (const QString& uri : uris.first(std::min(uris.size(), kMostUris))) {
        auto path = uri.size() > kLongestUri ? std::nullopt : pathOfFileURI(uri.toStdString());
        if (!path) return {};  // a part of a selection is another selection
        paths.push_back(std::move(*path));
    }
    return paths;
}
}  // namespace

SelectionPushes::SelectionPushes(const QDBusConnection& bus, FrameInFront frameInFront,
                                 KindOfProcess kindOfProcess)
    : bus_(bus), frameInFront_(std::move(frameInFront)), kindOfProcess_(std::move(kindOfProcess))
{
}

SelectionPushes::~SelectionPushes()
{
    setListening(false);
}

void SelectionPushes::setListening(bool isListening)
{
    if (isListening == isListening_) return;
    isListening_ = isListening;
    if (isListening) {
        bus_.registerObject(kObject, this, QDBusConnection::ExportScriptableSlots);
        bus_.registerService(kService);
    } else {
        bus_.unregisterService(kService);
        bus_.unregisterObject(kObject);
        pushed_.clear();
    }
}

PushedSelection* SelectionPushes::lastOf(pid_t process)
{
    const auto pushed = pushed_.find(process);
    return pushed == pushed_.end() ? nullptr : &pushed->second;
}

void SelectionPushes::Push(const QStringList& uris, const QString& windowTitle)
{
    if (!calledFromDBus()) return;
    if (unanswered_ >= kMostUnanswered) {
        // No file manager tells that much. The last push of one may be among those that are lost.
        pushed_.clear();
        return;
    }
    PushedSelection pushed;
    pushed.windowTitle = windowTitle.size() > kLongestTitle ? QString() : windowTitle;
    pushed.paths = pathsOf(uris);
    pushed.at = Clock::now();
    pushed.frame = frameInFront_();

    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID"));
    question.setArguments({message().service()});
    unanswered_++;
    auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, answer, pushed = std::move(pushed)] {
                const QDBusPendingReply<uint> process = *answer;
                answer->deleteLater();
                unanswered_--;
                if (process.isValid()) keep(static_cast<pid_t>(process.value()), pushed);
            });
}

void SelectionPushes::keep(pid_t process, PushedSelection pushed)
{
    if (!isListening_ || kindOfProcess_(process) == nullptr) return;
    pushed_.erase(process);
    if (pushed.windowTitle.isEmpty()) return;
    if (pushed_.size() >= kMostProcesses) pushed_.clear();
    pushed_.emplace(process, std::move(pushed));
}

}  // namespace pinorama
