#include "app/column/place_requests.h"

#include "base/file_uri.h"
#include "location/accepted_types.h"
#include "location/picture_source.h"
#include "selection/bus_process.h"

#include <QDBusError>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr qsizetype kMaxUriLength = 3 * 4096 + 256;  // UTF-16 units; every byte of a path escaped

const QString kService = QStringLiteral("org.pinorama.Pinorama.Places");
const QString kObject = QStringLiteral("/org/pinorama/Places");

qsizetype lengthOf(const QStringList& uris)
{
    qsizetype length = 0;
    for (const QString& uri : uris) length += uri.size();
    return length;
}

std::string pathOf(const QString& uri)
{
    if (uri.size() > kMaxUriLength) return {};
    return pathOfFileURI(uri.toStdString()).value_or(std::string());
}
}  // namespace

PlaceRequests::PlaceRequests(const QDBusConnection& bus, KindOfProcess kindOfProcess,
                             std::chrono::milliseconds patience,
                             std::chrono::milliseconds patienceOfLookUp)
    : bus_(bus),
      kindOfProcess_(std::move(kindOfProcess)),
      patience_(patience),
      lookUp_(patienceOfLookUp)
{
    connect(&lookUp_, &PlaceLookUp::finished, this, [this](const QStringList& places) {
        const auto request = std::exchange(current_, std::nullopt);
        if (request) replyTo(*request, places);
    });
    connect(&lookUp_, &PlaceLookUp::idle, this, &PlaceRequests::beginNext);
}

PlaceRequests::~PlaceRequests()
{
    if (!isListening_) return;
    bus_.unregisterService(kService);
    bus_.unregisterObject(kObject);
    // Without a reply the callers would wait until their time is over.
    if (current_) replyTo(*current_, {});
    for (const Request& request : waiting_) replyTo(request, {});
}

void PlaceRequests::listen()
{
    isListening_ = bus_.registerObject(kObject, this, QDBusConnection::ExportScriptableSlots) &&
                   bus_.registerService(kService);
}

QStringList PlaceRequests::Endings()
{
    QStringList endings;
    for (const std::string& extension : acceptedExtensions(readsMoreKinds())) {
        endings.append(QString::fromStdString(extension));
    }
    return endings;
}

QStringList PlaceRequests::PlacesOf(const QStringList& uris)
{
    if (!calledFromDBus()) return {};
    if (uris.size() > kMaxUris || lengthOf(uris) > kMaxLength) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("too many URIs, or too long ones"));
        return {};
    }
    if (unknown_ + waiting_.size() >= kMaxRequests) {
        sendErrorReply(QDBusError::LimitsExceeded, QStringLiteral("too many calls"));
        return {};
    }
    setDelayedReply(true);
    Request request{message(), {}, ++requests_};
    for (const QString& uri : uris) request.paths.push_back(pathOf(uri));
    askWhoCalls(std::move(request));
    return {};
}

void PlaceRequests::askWhoCalls(Request request)
{
    unknown_++;
    const QString caller = request.call.service();
    askForProcess(bus_, caller, this,
                  [this, request = std::move(request)](std::optional<pid_t> process) {
                      unknown_--;
                      if (process && kindOfProcess_(*process) != nullptr) {
                          take(request);
                      } else {
                          bus_.send(request.call.createErrorReply(
                              QDBusError::AccessDenied, QStringLiteral("no file manager")));
                      }
                  });
}

void PlaceRequests::take(Request request)
{
    request.call.setArguments({});  // the paths are all that is wanted of them
    const auto isNone = [](const std::string& path) { return path.empty(); };
    if (std::ranges::all_of(request.paths, isNone)) return replyTo(request, {});
    // A process that a disk keeps must not keep the callers.
    QTimer::singleShot(patience_, this, [this, number = request.number] { giveUp(number); });
    waiting_.push_back(std::move(request));
    if (lookUp_.isIdle()) beginNext();
}

void PlaceRequests::beginNext()
{
    if (waiting_.empty()) return;
    current_ = std::move(waiting_.front());
    waiting_.pop_front();
    lookUp_.begin(current_->paths);
}

void PlaceRequests::replyTo(const Request& request, const QStringList& places)
{
    QStringList all = places;
    all.resize(static_cast<qsizetype>(request.paths.size()));
    bus_.send(request.call.createReply(all));
}

void PlaceRequests::giveUp(std::uint64_t number)
{
    const auto late = std::ranges::find(waiting_, number, &Request::number);
    if (late == waiting_.end()) return;  // it has its reply, or gets it from the look-up
    replyTo(*late, {});
    waiting_.erase(late);
}

}  // namespace pinorama
