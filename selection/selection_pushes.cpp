#include "selection/selection_pushes.h"

#include "base/file_uri.h"
#include "selection/bus_process.h"

#include <QDBusMessage>

#include <algorithm>
#include <optional>
#include <utility>

namespace pinorama {
namespace {
constexpr qsizetype kMaxUris = 64;
constexpr qsizetype kMaxUriLength = 3 * 4096 + 256;  // UTF-16 units; every byte of a path escaped
constexpr qsizetype kMaxTitleLength = 4096;          // UTF-16 units
constexpr std::size_t kMaxProcesses = 32;
constexpr std::size_t kMaxPendingPushes = 256;

const QString kService = QStringLiteral("org.pinorama.Pinorama.Selection");
const QString kObject = QStringLiteral("/org/pinorama/Selection");

std::vector<std::string> pathsOf(const QStringList& uris)
{
    std::vector<std::string> paths;
    for (const QString& uri : uris.first(std::min(uris.size(), kMaxUris))) {
        auto path = uri.size() > kMaxUriLength ? std::nullopt : pathOfFileURI(uri.toStdString());
        if (!path) return {};  // the other paths would be a selection that nobody made
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
    if (pending_ >= kMaxPendingPushes) {
        // No file manager pushes that much. A lost push may be the latest of its file manager, so
        // none of the earlier ones can be trusted any more.
        pushed_.clear();
        return;
    }
    PushedSelection pushed;
    pushed.windowTitle = windowTitle.size() > kMaxTitleLength ? QString() : windowTitle;
    pushed.paths = pathsOf(uris);
    pushed.at = Clock::now();
    pushed.frame = frameInFront_();

    pending_++;
    askForProcess(bus_, message().service(), this,
                  [this, pushed = std::move(pushed)](std::optional<pid_t> process) {
                      pending_--;
                      if (process) keep(*process, pushed);
                  });
}

void SelectionPushes::keep(pid_t process, PushedSelection pushed)
{
    if (!isListening_ || kindOfProcess_(process) == nullptr) return;
    pushed_.erase(process);
    if (pushed_.size() >= kMaxProcesses) pushed_.clear();
    if (!pushed.windowTitle.isEmpty()) pushed_.emplace(process, std::move(pushed));
    Q_EMIT this->pushed();
}

}  // namespace pinorama
