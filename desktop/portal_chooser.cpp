#include "desktop/portal_chooser.h"

#include "base/file_uri.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QRandomGenerator>

#include <optional>
#include <utility>

namespace pinorama {
// A kind of files: its name and the patterns, each with 0 for a glob.
struct PortalPattern {
    unsigned kind = 0;
    QString pattern;
};
struct PortalFilter {
    QString name;
    QList<PortalPattern> patterns;
};
}  // namespace pinorama

Q_DECLARE_METATYPE(pinorama::PortalPattern)
Q_DECLARE_METATYPE(pinorama::PortalFilter)

namespace pinorama {
// The toolkit finds them by their arguments, which are of this namespace.
static QDBusArgument& operator<<(QDBusArgument& out, const PortalPattern& pattern)
{
    out.beginStructure();
    out << pattern.kind << pattern.pattern;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, PortalPattern& pattern)
{
    in.beginStructure();
    in >> pattern.kind >> pattern.pattern;
    in.endStructure();
    return in;
}

static QDBusArgument& operator<<(QDBusArgument& out, const PortalFilter& filter)
{
    out.beginStructure();
    out << filter.name << filter.patterns;
    out.endStructure();
    return out;
}

static const QDBusArgument& operator>>(const QDBusArgument& in, PortalFilter& filter)
{
    in.beginStructure();
    in >> filter.name >> filter.patterns;
    in.endStructure();
    return in;
}

namespace {
const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kChooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
constexpr int kMaxStart = 120'000;  // milliseconds until nobody looks for a late dialog any more
constexpr unsigned kChosen = 0;
constexpr unsigned kCancelled = 1;

void registerTypes()
{
    qDBusRegisterMetaType<PortalPattern>();
    qDBusRegisterMetaType<QList<PortalPattern>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
}

// A folder as the portal takes it: bytes with a zero at the end.
QByteArray folderBytes(const std::string& folder)
{
    return QByteArray(folder.c_str(), static_cast<qsizetype>(folder.size()) + 1);
}

QVariantMap optionsOf(const PortalQuestion& question, const QString& token)
{
    QVariantMap options = {{QStringLiteral("handle_token"), token},
                           {QStringLiteral("modal"), true}};
    if (!question.folder.empty()) {
        options[QStringLiteral("current_folder")] = folderBytes(question.folder);
    }
    if (!question.acceptLabel.isEmpty()) {
        options[QStringLiteral("accept_label")] = question.acceptLabel;
    }
    if (question.isForSaving) options[QStringLiteral("current_name")] = question.name;
    if (!question.filterPattern.isEmpty()) {
        const PortalFilter filter = {question.filterName, {{0, question.filterPattern}}};
        options[QStringLiteral("filters")] = QVariant::fromValue(QList<PortalFilter>{filter});
    }
    return options;
}

// The object that the portal makes for a question with that token.
QString requestOf(const QDBusConnection& bus, const QString& token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return kPortalPath + QStringLiteral("/request/") + sender + QLatin1Char('/') + token;
}
}  // namespace

PortalChooser::PortalChooser(QDBusConnection bus, QObject* parent)
    : QObject(parent), bus_(std::move(bus))
{
    registerTypes();
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &PortalChooser::giveUp);
    portals_.setConnection(bus_);
    portals_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    // Its dialogs are gone with it.
    connect(&portals_, &QDBusServiceWatcher::serviceUnregistered, this,
            &PortalChooser::stopListening);
}

PortalChooser::~PortalChooser()
{
    takeBack();
}

void PortalChooser::ask(const PortalQuestion& question, std::chrono::milliseconds patience)
{
    takeBack();
    if (!bus_.isConnected()) {
        Q_EMIT unavailable();
        return;
    }
    // Other programs of the session cannot guess it.
    const QString token = QStringLiteral("pinorama%1_%2")
                              .arg(++questions_)
                              .arg(QRandomGenerator::system()->generate(), 0, 16);
    listenTo(requestOf(bus_, token));
    QDBusMessage call = QDBusMessage::createMethodCall(
        kPortal, kPortalPath, kChooser,
        question.isForSaving ? QStringLiteral("SaveFile") : QStringLiteral("OpenFile"));
    call << question.parent << question.title << optionsOf(question, token);
    call_ = new QDBusPendingCallWatcher(bus_.asyncCall(call, kMaxStart), this);
    connect(call_, &QDBusPendingCallWatcher::finished, this, &PortalChooser::takeBegin);
    patience_.start(patience);
}

void PortalChooser::takeBegin(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    if (call != call_) {
        // Too late: nobody wants the dialog any more.
        if (!reply.isError()) close(reply.value().path());
        return;
    }
    call_ = nullptr;
    patience_.stop();
    if (reply.isError()) {
        giveUp();
        return;
    }
    // Portals before version 0.9 choose another object.
    if (reply.value().path() != request_) listenTo(reply.value().path());
}

void PortalChooser::takeResponse(unsigned response, const QVariantMap& results)
{
    if (request_.isEmpty()) return;
    if (response > kCancelled) {
        giveUp();
        return;
    }
    stopListening();
    if (response != kChosen) return;
    const QStringList uris = results.value(QStringLiteral("uris")).toStringList();
    if (uris.size() != 1) return;
    const std::optional<std::string> path = pathOfFileURI(uris.constFirst().toStdString());
    if (path && !path->empty()) Q_EMIT chosen(*path);
}

void PortalChooser::giveUp()
{
    takeBack();
    Q_EMIT unavailable();
}

void PortalChooser::takeBack()
{
    // A portal that has not begun is told as soon as it has.
    if (!request_.isEmpty() && call_ == nullptr) close(request_);
    stopListening();
}

void PortalChooser::close(const QString& request)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(kPortal, request, kRequest, QStringLiteral("Close"));
    call.setAutoStartService(false);
    (void)bus_.send(call);
}

void PortalChooser::listenTo(const QString& request)
{
    stopListening();
    request_ = request;
    portals_.addWatchedService(kPortal);
    // With the name of the service the toolkit would wait for the bus to say who has it.
    (void)bus_.connect(QString(), request_, kRequest, QStringLiteral("Response"), this,
                       SLOT(takeResponse(unsigned, QVariantMap)));
}

void PortalChooser::stopListening()
{
    if (request_.isEmpty()) return;
    (void)bus_.disconnect(QString(), request_, kRequest, QStringLiteral("Response"), this,
                          SLOT(takeResponse(unsigned, QVariantMap)));
    portals_.removeWatchedService(kPortal);
    patience_.stop();
    request_.clear();
    call_ = nullptr;
}

QString portalParent(quintptr window)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb")) return {};
    return QStringLiteral("x11:") + QString::number(window, 16);
}

}  // namespace pinorama
