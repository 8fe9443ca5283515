#include "tests/selection/fake_file_manager.h"

#include "tests/selection/accessibility_messages.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <utility>

using namespace pinorama;
using test::Attributes;
using test::Reference;
using test::Relation;

namespace {
constexpr const char* kRoot = "/org/a11y/atspi/accessible/root";
constexpr const char* kPrefix = "/org/a11y/atspi/accessible/";
constexpr const char* kGtk4Prefix = "/org/example/a11y/";

constexpr int kFirstCell = 1000000;  // beyond all items

constexpr States only(State state)
{
    return States{1} << static_cast<unsigned>(state);
}

std::string describe(const QDBusMessage& call)
{
    return std::to_string(test::numberOf(call.path())) + " " + test::memberOf(call).toStdString();
}

QDBusConnection newConnection(const char* purpose)
{
    static int count = 0;
    return QDBusConnection::connectToBus(
        QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")),
        QStringLiteral("fake-%1-%2").arg(QLatin1String(purpose)).arg(++count));
}
}  // namespace

// Receives all calls to a connection, for any object.
class test::FakeFileManager::Responder : public QDBusVirtualObject {
public:
    explicit Responder(std::function<void(const QDBusMessage&)> take) : take_(std::move(take)) {}
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        take_(message);
        return true;
    }

private:
    std::function<void(const QDBusMessage&)> take_;
};

test::FakeFileManager::FakeFileManager(Kind kind, const std::string& folder,
                                       const std::vector<QString>& names)
    : bus_(newConnection("program")),
      registry_(newConnection("registry")),
      service_(bus_.baseService()),
      prefix_(QString::fromLatin1(kPrefix))
{
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QList<Reference>>();
    qDBusRegisterMetaType<Relation>();
    qDBusRegisterMetaType<QList<Relation>>();
    qDBusRegisterMetaType<Attributes>();
    qDBusRegisterMetaType<QMap<QString, QStringList>>();

    const States shown = only(State::showing) | only(State::visible);
    const auto size = static_cast<int>(names.size());
    add(0, {.role = Role::panel, .parent = 0});
    add(kFrame, {.role = Role::frame, .states = shown | only(State::active), .name = "Pictures"});
    add(2, {.role = Role::panel, .states = shown, .parent = kFrame});
    add(kLocation,
        {.role = Role::text, .states = shown, .name = QString::fromStdString(folder), .parent = 2});
    QStringList interfaces;
    if (kind == Kind::selection || kind == Kind::table)
        interfaces.append("org.a11y.atspi.Selection");
    if (kind == Kind::states || kind == Kind::table) interfaces.append("org.a11y.atspi.Table");
    const bool isOpaque = kind == Kind::statusBar;
    add(kView, {.role = isOpaque ? Role::directoryPane : Role::layeredPane,
                .states = shown,
                .interfaces = interfaces,
                .parent = 2});
    if (kind == Kind::statusBar)
        add(kStatusBar, {.role = Role::statusBar, .states = shown, .name = "2 items", .parent = 2});
    for (int i = 0; i < size && !isOpaque; i++) {
        add(kFirstItem + i, {.role = Role::listItem,
                             .states = shown,
                             .name = names[static_cast<std::size_t>(i)],
                             .parent = kView});
    }

    responder_ = std::make_unique<Responder>([this](const QDBusMessage& call) { take(call); });
    registrar_ = std::make_unique<Responder>([this](const QDBusMessage& call) {
        QDBusMessage reply = call.createReply();
        if (call.member() == QLatin1String("GetAddress")) {
            reply << QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
        } else if (call.member() == QLatin1String("GetChildren")) {
            const std::lock_guard lock(mutex_);
            QList<Reference> programs;
            if (isConnected_) programs.append({service(), QDBusObjectPath(kRoot)});
            for (const QString& other : others_) programs.append({other, QDBusObjectPath(kRoot)});
            reply << QVariant::fromValue(programs);
        }
        (void)registry_.send(reply);
    });
    bus_.registerVirtualObject("/", responder_.get(), QDBusConnection::SubPath);
    registry_.registerVirtualObject("/", registrar_.get(), QDBusConnection::SubPath);
    responder_->moveToThread(&thread_);
    registrar_->moveToThread(&thread_);
    thread_.start();
    registry_.registerService("org.a11y.Bus");
    registry_.registerService("org.a11y.atspi.Registry");
}

test::FakeFileManager::~FakeFileManager()
{
    registry_.unregisterService("org.a11y.atspi.Registry");
    registry_.unregisterService("org.a11y.Bus");
    thread_.quit();
    thread_.wait();
    if (isConnected_) QDBusConnection::disconnectFromBus(bus_.name());
    QDBusConnection::disconnectFromBus(registry_.name());
}

QString test::FakeFileManager::service() const
{
    return service_;
}

Accessible test::FakeFileManager::object(int number) const
{
    return {service_, pathOf(number)};
}

QString test::FakeFileManager::pathOf(int number) const
{
    return number == 0 ? QString::fromLatin1(kRoot) : prefix_ + QString::number(number);
}

void test::FakeFileManager::useObjectsOfGtk4()
{
    const std::lock_guard lock(mutex_);
    prefix_ = QString::fromLatin1(kGtk4Prefix);
}

void test::FakeFileManager::add(int number, FakeObject object)
{
    if (number != 0) objects_[object.parent].children.push_back(number);
    objects_[number] = std::move(object);
}

void test::FakeFileManager::select(const std::vector<int>& places)
{
    const std::lock_guard lock(mutex_);
    FakeObject& view = objects_[kView];
    view.selected = places;
    for (const int item : view.children) objects_[item].states &= ~only(State::selected);
    for (const int place : places)
        objects_[view.children[static_cast<std::size_t>(place)]].states |= only(State::selected);
}

void test::FakeFileManager::change(int number, const std::function<void(FakeObject&)>& what)
{
    const std::lock_guard lock(mutex_);
    what(objects_[number]);
}

void test::FakeFileManager::publishWindows(const std::vector<QStringList>& windows)
{
    {
        const std::lock_guard lock(mutex_);
        windows_.clear();
        for (const QStringList& tabs : windows)
            windows_.insert(QStringLiteral("/window/%1").arg(windows_.size() + 1), tabs);
    }
    bus_.registerService("org.freedesktop.FileManager1");
}

void test::FakeFileManager::claimOneSelected()
{
    bus_.registerService(
        QStringLiteral("org.kde.dolphin-%1").arg(QCoreApplication::applicationPid()));
}

void test::FakeFileManager::addCell(int place, const QString& text)
{
    const std::lock_guard lock(mutex_);
    const int number = kFirstCell + static_cast<int>(objects_.size());
    objects_[number] = {.role = Role::tableCell, .name = text, .parent = kView};
    objects_[kFirstItem + place].cells.push_back(number);
}

void test::FakeFileManager::addStatusBar(const QString& text)
{
    const std::lock_guard lock(mutex_);
    const States shown = only(State::showing) | only(State::visible);
    add(kStatusBar, {.role = Role::statusBar, .states = shown, .name = text, .parent = 2});
}

void test::FakeFileManager::moveNameInside(int place)
{
    const std::lock_guard lock(mutex_);
    const int number = kFirstCell + static_cast<int>(objects_.size());
    QString name = std::exchange(objects_[kFirstItem + place].name, QString());
    add(number, {.role = Role::label, .name = std::move(name), .parent = kFirstItem + place});
}

void test::FakeFileManager::emitEvent(int number, const char* member, const char* detail, int value)
{
    QDBusMessage event = QDBusMessage::createSignal(
        pathOf(number), QStringLiteral("org.a11y.atspi.Event.Object"), QString::fromLatin1(member));
    event << QString::fromLatin1(detail) << value << 0
          << QVariant::fromValue(QDBusVariant(QString())) << QVariant::fromValue(Attributes());
    (void)bus_.send(event);
}

void test::FakeFileManager::waitUntilSent() const
{
    // The bus handles the messages of one program in order.
    (void)bus_.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "GetId"));
}

void test::FakeFileManager::setReplying(bool isReplying)
{
    std::vector<QDBusMessage> calls;
    {
        const std::lock_guard lock(mutex_);
        isReplying_ = isReplying;
        if (isReplying) calls.swap(pending_);
    }
    for (const QDBusMessage& call : calls) take(call);
}

void test::FakeFileManager::pauseOnCall(const std::string& call)
{
    const std::lock_guard lock(mutex_);
    pausesOn_ = call;
}

bool test::FakeFileManager::hasPaused()
{
    const std::lock_guard lock(mutex_);
    return !isReplying_;
}

void test::FakeFileManager::leave()
{
    const std::lock_guard lock(mutex_);
    disconnect();
}

void test::FakeFileManager::leaveOnCall(const std::string& call)
{
    const std::lock_guard lock(mutex_);
    leavesOn_ = call;
}

// Qt closes a connection when nothing refers to it any more, and then drops what it has not sent
// yet.
void test::FakeFileManager::disconnect()
{
    isConnected_ = false;
    waitUntilSent();
    const QString name = bus_.name();
    bus_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name);
}

void test::FakeFileManager::list(const FakeFileManager& other)
{
    const std::lock_guard lock(mutex_);
    others_.push_back(other.service());
}

std::vector<std::string> test::FakeFileManager::takeCalls()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
}

void test::FakeFileManager::take(const QDBusMessage& call)
{
    const std::lock_guard lock(mutex_);
    if (!isConnected_) return;
    if (describe(call) == pausesOn_) {
        isReplying_ = false;
        pausesOn_.clear();
    }
    if (!isReplying_) {
        pending_.push_back(call);
        return;
    }
    if (describe(call) == leavesOn_) return disconnect();
    calls_.push_back(describe(call));
    (void)bus_.send(replyTo(call));
}
