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
#include <QTemporaryFile>
#include <QUrl>

#include <cerrno>
#include <csignal>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kQuestionTimeout = 2s;  // for the bus itself
constexpr std::chrono::milliseconds kMarbleTimeout = 20s;   // it may be loading maps
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

QString googleEarth()
{
    return firstExecutable({"google-earth-pro", "googleearth-pro", "googleearth"});
}

QString marble()
{
    return firstExecutable({"marble", "marble-qt"});
}

// A folder that only this user can read; empty if there is none.
QString viewFolder()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    folder += QStringLiteral("/pinorama");
    return QDir().mkpath(folder) ? folder : QString();
}

// Writes the document into a file, the same one every time. Returns its path, or nothing if it
// cannot be written.
QString writeViewFile(const std::string& document)
{
    const QString folder = viewFolder();
    const QString path = folder + QStringLiteral("/fly-to.kml");
    return !folder.isEmpty() && writeWhole(path, document) ? path : QString();
}

// The same with a new file every time: a program that has a file open already, as GNOME Maps has
// all that it was given, does not read it again. Only `earlier` stays, which the program that was
// to open it may still be starting to read.
QString writePlaceFile(const std::string& document, const QString& earlier)
{
    const QString folder = viewFolder();
    if (folder.isEmpty()) return {};
    const QStringList old = QDir(folder).entryList({QStringLiteral("place-*.kml")}, QDir::Files);
    for (const QString& name : old) {
        const QString path = folder + QLatin1Char('/') + name;
        if (path != earlier) (void)QFile::remove(path);
    }
    QTemporaryFile file(folder + QStringLiteral("/place-XXXXXX.kml"));
    const auto size = static_cast<qint64>(document.size());
    if (!file.open() || file.write(document.data(), size) != size || !file.flush()) return {};
    file.setAutoRemove(false);
    return file.fileName();
}

// The settings lie beside the program itself; the name on the search path may be a symbolic link.
QString queryFileOf(const QString& executable)
{
    const QString folder = QFileInfo(QFileInfo(executable).canonicalFilePath()).absolutePath();
    QFile settings(folder + QStringLiteral("/drivers.ini"));
    constexpr qint64 kMaxSettingsSize = 1 << 20;
    if (!settings.open(QIODevice::ReadOnly)) return {};
    return QFile::decodeName(QByteArray::fromStdString(
        queryFileOfDriverSettings(settings.read(kMaxSettingsSize).toStdString())));
}

QDBusPendingCall callOnSessionBus(const QDBusMessage& call, std::chrono::milliseconds timeout)
{
    return QDBusConnection::sessionBus().asyncCall(call, static_cast<int>(timeout.count()));
}

QDBusPendingCall callMarble(const char* path, const char* interface, const char* method,
                            const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(kMarbleService, QString::fromLatin1(path),
                                       QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    return callOnSessionBus(message, kMarbleTimeout);
}

bool isRunning(qint64 process)
{
    return kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
}
}  // namespace

GlobePrograms::GlobePrograms(UrlOpener& opener, QObject* parent) : QObject(parent), opener_(opener)
{
    startTimeout_.setSingleShot(true);
    connect(&startTimeout_, &QTimer::timeout, this, &GlobePrograms::giveUpWaiting);
}

GlobePrograms::~GlobePrograms() = default;

void GlobePrograms::show(const GlobeView& view)
{
    if (showInGoogleEarth(view) || showInMarble(view)) return;
    openDocument(view);
}

bool GlobePrograms::areInstalled() const
{
    return !googleEarth().isEmpty() || !marble().isEmpty() ||
           opener_.isTaken(QByteArrayLiteral("file:///place.kml"));
}

bool GlobePrograms::showInGoogleEarth(const GlobeView& view)
{
    const QString executable = googleEarth();
    if (executable.isEmpty()) return false;

    const QString queryFile = queryFileOf(executable);
    if (!queryFile.isEmpty() && writeWhole(queryFile, makeFlyToQuery(view))) {
        // The program has one instance: starting it again raises the window of that one.
        return QProcess::startDetached(executable, {});
    }
    const QString document = writeViewFile(makeLookAtDocument(view));
    return !document.isEmpty() && QProcess::startDetached(executable, {document});
}

bool GlobePrograms::showInMarble(const GlobeView& view)
{
    view_ = view;
    if (isBusy_) return true;  // the starting Marble will show the latest view
    marble_ = marble();
    if (!QDBusConnection::sessionBus().isConnected()) {
        if (marble_.isEmpty()) return false;
        startMarble();
        return true;
    }

    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    call.setArguments({kMarbleService});
    auto* watcher = new QDBusPendingCallWatcher(callOnSessionBus(call, kQuestionTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<bool> isRunning = *watcher;
        watcher->deleteLater();
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
    // The bus delivers calls to one receiver in order, so none has to wait for a reply.
    auto* moved = new QDBusPendingCallWatcher(
        callMarble("/Marble", kInterface, "setCenter", {QPointF(view_.longitude, view_.latitude)}),
        this);
    connect(moved, &QDBusPendingCallWatcher::finished, this, [this, moved] {
        moved->deleteLater();
        if (moved->isError()) Q_EMIT failed(Failure::notAnswering);
    });
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
    if (!QProcess::startDetached(marble_, arguments, {}, &process_)) {
        Q_EMIT failed(Failure::notStarted);
        return;
    }
    isMissed_ = false;
    setBusy(true);
    startTimeout_.start(patience_);
    if (watcher_ != nullptr || !QDBusConnection::sessionBus().isConnected()) return;
    watcher_ = new QDBusServiceWatcher(kMarbleService, QDBusConnection::sessionBus(),
                                       QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher_, &QDBusServiceWatcher::serviceRegistered, this,
            &GlobePrograms::takeAppearance);
}

void GlobePrograms::takeAppearance()
{
    const bool wasMissed = std::exchange(isMissed_, false);
    if (!isBusy_ && !wasMissed) return;
    setBusy(false);
    moveMarble();  // the user may have selected another picture while Marble started
    if (wasMissed) Q_EMIT appeared();
}

// Without a session bus nobody hears of a Marble that is there; of one that has ended one does.
void GlobePrograms::giveUpWaiting()
{
    setBusy(false);
    if (!QDBusConnection::sessionBus().isConnected() && isRunning(process_)) return;
    isMissed_ = true;
    Q_EMIT failed(Failure::notAppeared);
}

void GlobePrograms::openDocument(const GlobeView& view)
{
    placeFile_ = writePlaceFile(makePlacemarkDocument(view), placeFile_);
    if (placeFile_.isEmpty()) {
        Q_EMIT failed(Failure::notWritten);
    } else {
        opener_.open(QUrl::fromLocalFile(placeFile_).toEncoded());
    }
}

void GlobePrograms::setBusy(bool isBusy)
{
    if (isBusy == isBusy_) return;
    isBusy_ = isBusy;
    if (!isBusy) startTimeout_.stop();
    Q_EMIT busyChanged(isBusy);
}

}  // namespace pinorama
