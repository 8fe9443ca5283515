#include "desktop/globe_programs.h"

#include "desktop/globe_texts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointF>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

#include <chrono>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kStartLimit = 10s;   // until a started globe counts as lost
constexpr int kCallTimeout = 2000;  // milliseconds
const QString kMarbleService = QStringLiteral("org.kde.marble");

QString firstExecutable(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const QString path = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!path.isEmpty()) return path;
    }
    return {};
}

bool writeWhole(const QString& path, const std::string& text)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write(text.data(), static_cast<qint64>(text.size())) ==
               static_cast<qint64>(text.size()) &&
           file.commit();
}

// A file of the user's own session, written anew for each flight. Empty when it cannot be written.
QString writeLookAtFile(const GlobeView& view)
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    folder += QStringLiteral("/pinorama");
    if (!QDir().mkpath(folder)) return {};
    const QString path = folder + QStringLiteral("/fly-to.kml");
    return writeWhole(path, makeLookAtDocument(view)) ? path : QString();
}

// The settings lie beside the program itself, which the name on the search path may only link to.
QString queryFileOf(const QString& executable)
{
    const QString folder = QFileInfo(QFileInfo(executable).canonicalFilePath()).absolutePath();
    QFile settings(folder + QStringLiteral("/drivers.ini"));
    constexpr qint64 kLongestSettings = 1 << 20;
    if (!settings.open(QIODevice::ReadOnly)) return {};
    return QFile::decodeName(QByteArray::fromStdString(
        queryFileOfDriverSettings(settings.read(kLongestSettings).toStdString())));
}

QDBusPendingCall callMarble(const char* path, const char* interface, const char* method,
                            const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(kMarbleService, QString::fromLatin1(path),
                                       QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().asyncCall(message, kCallTimeout);
}
}  // namespace

GlobePrograms::GlobePrograms(UrlOpener& opener, QObject* parent)
    : QObject(parent), opener_(opener)
{
    startLimit_.setSingleShot(true);
    connect(&startLimit_, &QTimer::timeout, this, [this] { setBusy(false); });
}

GlobePrograms::~GlobePrograms() = default;

void GlobePrograms::show(const GlobeView& view)
{
    if (showInGoogleEarth(view) || showInMarble(view)) return;
    openDocument(view);
}

bool GlobePrograms::showInGoogleEarth(const GlobeView& view)
{
    const QString executable =
        firstExecutable({"google-earth-pro", "googleearth-pro", "googleearth"});
    if (executable.isEmpty()) return false;

    const QString queryFile = queryFileOf(executable);
    if (!queryFile.isEmpty() && writeWhole(queryFile, makeFlyToQuery(view))) {
        // The program has one window: a further start brings the running one to the front.
        return QProcess::startDetached(executable, {});
    }
    const QString document = writeLookAtFile(view);
    return !document.isEmpty() && QProcess::startDetached(executable, {document});
}

bool GlobePrograms::showInMarble(const GlobeView& view)
{
    view_ = view;
    if (isBusy_) return true;  // the one that is starting takes the latest view
    marble_ = firstExecutable({"marble", "marble-qt"});
    if (!QDBusConnection::sessionBus().isConnected()) {
        if (marble_.isEmpty()) return false;
        startMarble();
        return true;
    }

    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question.setArguments({kMarbleService});
    auto* answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(question, kCallTimeout), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<bool> isRunning = *answer;
        answer->deleteLater();
        if (isRunning.isValid() && isRunning.value()) {
            moveMarble();
        } else if (!marble_.isEmpty()) {
            startMarble();
        } else {
            openDocument(view_);
        }
    });
    return true;
}

void GlobePrograms::moveMarble()
{
    constexpr const char* kInterface = "org.kde.marble";
    // Calls to one receiver arrive in their order, so none has to wait for the one before.
    callMarble("/Marble", kInterface, "setCenter", {QPointF(view_.longitude, view_.latitude)});
    callMarble("/Marble", kInterface, "setZoom", {marbleZoom(view_.distance)});
    callMarble("/marble/MainWindow_1", "org.qtproject.Qt.QWidget", "showNormal", {});
    callMarble("/marble/MainWindow_1", "org.qtproject.Qt.QWidget", "raise", {});
}

void GlobePrograms::startMarble()
{
    const auto text = [](double value) { return QString::number(value, 'f', 6); };
    const QStringList arguments = {QStringLiteral("--latlon"),
                                   text(view_.latitude) + QLatin1Char(' ') + text(view_.longitude),
                                   QStringLiteral("--distance"), text(view_.distance / 1000.0)};
    if (!QProcess::startDetached(marble_, arguments)) return;

    setBusy(true);
    startLimit_.start(kStartLimit);
    if (watcher_ != nullptr || !QDBusConnection::sessionBus().isConnected()) return;
    watcher_ = new QDBusServiceWatcher(kMarbleService, QDBusConnection::sessionBus(),
                                       QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher_, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        if (!isBusy_) return;
        setBusy(false);
        moveMarble();  // the user may have gone on to another picture meanwhile
    });
}

void GlobePrograms::openDocument(const GlobeView& view)
{
    const QString path = writeLookAtFile(view);
    if (!path.isEmpty()) opener_.open(QUrl::fromLocalFile(path).toEncoded());
}

void GlobePrograms::setBusy(bool isBusy)
{
    if (isBusy == isBusy_) return;
    isBusy_ = isBusy;
    if (!isBusy) startLimit_.stop();
    Q_EMIT busyChanged(isBusy);
}

}  // namespace pinorama
