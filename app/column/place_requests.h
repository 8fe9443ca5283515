// Tells file managers where pictures were taken, for the column and the emblem of the extension in
// packaging/extensions.
//
// Service org.pinorama.Pinorama.Places, object /org/pinorama/Places, interface
// org.pinorama.Pinorama.Places:
//
//     Endings(out as endings)                  of the names of pictures: "jpg", in lower case
//     PlacesOf(in as uris, out as places)      the place of each in words, empty if it has none
//
// Every program of the session can call this, and a sandboxed one may not be allowed to read the
// pictures itself. So PlacesOf replies to file managers only (push_sender.h). The replies are
// delayed; nothing here waits, and no file is opened here (place_look_up.h).
//
//     PlaceRequests requests(QDBusConnection::sessionBus());
//     requests.listen();

#pragma once

#include "app/column/place_look_up.h"
#include "selection/push_sender.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pinorama {

class PlaceRequests : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.pinorama.Pinorama.Places")

public:
    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;
    static constexpr qsizetype kMaxUris = 256;       // of one call; more are refused
    static constexpr std::size_t kMaxRequests = 16;  // that wait; more are refused
    // UTF-16 units of all URIs of one call together; more are refused. A call that waits is kept
    // whole, because a reply is made from it.
    static constexpr qsizetype kMaxLength = 1 << 19;
    static constexpr std::chrono::milliseconds kPatience{10'000};

    //   patience  after which a request gets empty places instead of waiting for those before it.
    explicit PlaceRequests(const QDBusConnection& bus,
                           KindOfProcess kindOfProcess = fileManagerKindOfSender,
                           std::chrono::milliseconds patience = kPatience,
                           std::chrono::milliseconds patienceOfLookUp = PlaceLookUp::kPatience);
    ~PlaceRequests() override;

    // From now on the extensions find this program on the bus.
    void listen();

    // For tests: the process that reads pictures; 0 for none.
    qint64 processID() const { return lookUp_.processID(); }

public Q_SLOTS:
    Q_SCRIPTABLE QStringList Endings();
    Q_SCRIPTABLE QStringList PlacesOf(const QStringList& uris);

private:
    struct Request {
        QDBusMessage call;
        std::vector<std::string> paths;  // of the URIs; empty for one that names no local file
        std::uint64_t number;            // one for each request
    };

    void askWhoCalls(Request request);
    void take(Request request);
    void beginNext();
    void replyTo(const Request& request, const QStringList& places);
    void giveUp(std::uint64_t number);

    QDBusConnection bus_;
    KindOfProcess kindOfProcess_;
    const std::chrono::milliseconds patience_;
    bool isListening_ = false;
    std::uint64_t requests_ = 0;  // so far
    std::size_t unknown_ = 0;     // requests whose sender the bus has not named yet
    std::deque<Request> waiting_;
    std::optional<Request> current_;  // the one that is looked up
    PlaceLookUp lookUp_;
};

}  // namespace pinorama
