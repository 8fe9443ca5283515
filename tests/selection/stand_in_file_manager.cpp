#include "tests/selection/stand_in_file_manager.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <utility>

using namespace pinorama;

namespace {

constexpr const char* kRoot = "/org/a11y/atspi/accessible/root";
constexpr const char* kPrefix = "/org/a11y/atspi/accessible/";

// An object of a program, as it travels over the bus.
struct Reference {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Reference& reference)
{
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

using Attributes = QMap<QString, QString>;

constexpr States only(State state)
{
    return States{1} << static_cast<unsigned>(state);
}

QString pathOf(int number)
{
    return number == 0 ? QString::fromLatin1(kRoot) : kPrefix + QString::number(number);
}

int numberOf(const QString& path)
{
    return path.mid(QString::fromLatin1(kPrefix).size()).toInt();
}

QString whatIsAsked(const QDBusMessage& question)
{
    return question.member() == QLatin1String("Get") ? question.arguments().value(1).toString()
                                                     : question.member();
}

std::string nameOf(const QDBusMessage& question)
{
    return std::to_string(numberOf(question.path())) + " " + whatIsAsked(question).toStdString();
}

QDBusConnection connectionOfItsOwn(const char* purpose)
{
    static int count = 0;
    return QDBusConnection::connectToBus(
        QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")),
        QStringLiteral("stand-in-%1-%2").arg(QLatin1String(purpose)).arg(++count));
}
}  // namespace

Q_DECLARE_METATYPE(Reference)

// Takes every call to a connection, whatever the object.
class test::StandInFileManager::Answerer : public QDBusVirtualObject {
public:
    explicit Answerer(std::function<void(const QDBusMessage&)> take) : take_(std::move(take)) {}
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        take_(message);
        return true;
    }

private:
    std::function<void(const QDBusMessage&)> take_;
};

test::StandInFileManager::StandInFileManager(Kind kind, const std::string& folder,
                                             const std::vector<QString>& names)
    : bus_(connectionOfItsOwn("program")),
      registry_(connectionOfItsOwn("registry")),
      service_(bus_.baseService())
{
    qDBusRegisterMetaType<Reference>();
    qDBusRegisterMetaType<QList<Reference>>();
    qDBusRegisterMetaType<Attributes>();

    const States shown = only(State::showing) | only(State::visible);
    const auto size = static_cast<int>(names.size());
    add(0, {.role = Role::panel, .parent = 0});
    add(kFrame, {.role = Role::frame, .states = shown | only(State::active), .name = "Pictures"});
    add(2, {.role = Role::panel, .states = shown, .parent = kFrame});
    add(kLocation,
        {.role = Role::text, .states = shown, .name = QString::fromStdString(folder), .parent = 2});
    const char* access = kind == Kind::states ? "Table" : "Selection";
    const bool isOpaque = kind == Kind::statusBar;
    add(kView, {.role = isOpaque ? Role::directoryPane : Role::layeredPane,
                .states = shown,
                .interfaces = isOpaque ? QStringList()
                                       : QStringList("org.a11y.atspi." + QLatin1String(access)),
                .parent = 2});
    if (kind == Kind::statusBar)
        add(kStatusBar, {.role = Role::statusBar, .states = shown, .name = "2 items", .parent = 2});
    for (int i = 0; i < size && !isOpaque; i++) {
        add(kFirstItem + i, {.role = Role::listItem,
                             .states = shown,
                             .name = names[static_cast<std::size_t>(i)],
                             .parent = kView});
    }

    answerer_ =
        std::make_unique<Answerer>([this](const QDBusMessage& question) { take(question); });
    registrar_ = std::make_unique<Answerer>([this](const QDBusMessage& question) {
        QDBusMessage answer = question.createReply();
        if (question.member() == QLatin1String("GetAddress")) {
            answer << QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
        } else if (question.member() == QLatin1String("GetChildren")) {
            const std::lock_guard lock(mutex_);
            QList<Reference> programs;
            if (isThere_) programs.append({service(), QDBusObjectPath(kRoot)});
            for (const QString& other : others_) programs.append({other, QDBusObjectPath(kRoot)});
            answer << QVariant::fromValue(programs);
        }
        (void)registry_.send(answer);
    });
    bus_.registerVirtualObject("/", answerer_.get(), QDBusConnection::SubPath);
    registry_.registerVirtualObject("/", registrar_.get(), QDBusConnection::SubPath);
    answerer_->moveToThread(&thread_);
    registrar_->moveToThread(&thread_);
    thread_.start();
    registry_.registerService("org.a11y.Bus");
    registry_.registerService("org.a11y.atspi.Registry");
}

test::StandInFileManager::~StandInFileManager()
{
    registry_.unregisterService("org.a11y.atspi.Registry");
    registry_.unregisterService("org.a11y.Bus");
    thread_.quit();
    thread_.wait();
    if (isThere_) QDBusConnection::disconnectFromBus(bus_.name());
    QDBusConnection::disconnectFromBus(registry_.name());
}

QString test::StandInFileManager::service() const
{
    return service_;
}

void test::StandInFileManager::add(int number, StandInObject object)
{
    if (number != 0) objects_[object.parent].children.push_back(number);
    objects_[number] = std::move(object);
}

void test::StandInFileManager::select(const std::vector<int>& places)
{
    const std::lock_guard lock(mutex_);
    StandInObject& view = objects_[kView];
    view.selected = places;
    for (const int item : view.children) objects_[item].states &= ~only(State::selected);
    for (const int place : places)
        objects_[view.children[static_cast<std::size_t>(place)]].states |= only(State::selected);
}

void test::StandInFileManager::change(int number, const std::function<void(StandInObject&)>& what)
{
    const std::lock_guard lock(mutex_);
    what(objects_[number]);
}

void test::StandInFileManager::tell(int number, const char* member, const char* detail, int value)
{
    QDBusMessage event = QDBusMessage::createSignal(
        pathOf(number), QStringLiteral("org.a11y.atspi.Event.Object"), QString::fromLatin1(member));
    event << QString::fromLatin1(detail) << value << 0
          << QVariant::fromValue(QDBusVariant(QString())) << QVariant::fromValue(Attributes());
    (void)bus_.send(event);
}

void test::StandInFileManager::waitUntilTold() const
{
    // The bus takes what comes from one program in its order.
    (void)bus_.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "GetId"));
}

void test::StandInFileManager::setAnswering(bool isAnswering)
{
    std::vector<QDBusMessage> questions;
    {
        const std::lock_guard lock(mutex_);
        isAnswering_ = isAnswering;
        if (isAnswering) questions.swap(unanswered_);
    }
    for (const QDBusMessage& question : questions) take(question);
}

void test::StandInFileManager::pauseWhenAsked(const std::string& question)
{
    const std::lock_guard lock(mutex_);
    pausesAt_ = question;
}

bool test::StandInFileManager::hasPaused()
{
    const std::lock_guard lock(mutex_);
    return !isAnswering_;
}

void test::StandInFileManager::leave()
{
    const std::lock_guard lock(mutex_);
    disconnect();
}

void test::StandInFileManager::leaveWhenAsked(const std::string& question)
{
    const std::lock_guard lock(mutex_);
    leavesAt_ = question;
}

// The bus lets go of a connection when nobody holds it any more, and of what it has not sent yet.
void test::StandInFileManager::disconnect()
{
    isThere_ = false;
    waitUntilTold();
    const QString name = bus_.name();
    bus_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name);
}

void test::StandInFileManager::list(const StandInFileManager& other)
{
    const std::lock_guard lock(mutex_);
    others_.push_back(other.service());
}

std::vector<std::string> test::StandInFileManager::takeQuestions()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(questions_, {});
}

void test::StandInFileManager::take(const QDBusMessage& question)
{
    const std::lock_guard lock(mutex_);
    if (!isThere_) return;
    if (nameOf(question) == pausesAt_) {
        isAnswering_ = false;
        pausesAt_.clear();
    }
    if (!isAnswering_) {
        unanswered_.push_back(question);
        return;
    }
    if (nameOf(question) == leavesAt_) return disconnect();
    (void)bus_.send(answerTo(question));
}

QDBusMessage test::StandInFileManager::answerTo(const QDBusMessage& question)
{
    const int number = numberOf(question.path());
    const bool isProperty = question.member() == QLatin1String("Get");
    const QString what = whatIsAsked(question);
    questions_.push_back(nameOf(question));

    const auto found = objects_.find(number);
    if (found == objects_.end())
        return question.createErrorReply("org.freedesktop.DBus.Error.UnknownObject", "gone");
    const StandInObject& object = found->second;
    const int first = question.arguments().value(0).toInt();
    const auto reference = [this](int which) {
        return QVariant::fromValue(Reference{service(), QDBusObjectPath(pathOf(which))});
    };
    const auto at = [&](const std::vector<int>& numbers, int place) {
        return static_cast<std::size_t>(place) < numbers.size()
                   ? reference(numbers[static_cast<std::size_t>(place)])
                   : QVariant::fromValue(
                         Reference{QString(), QDBusObjectPath("/org/a11y/atspi/null")});
    };

    QVariant value;
    if (what == "Name") {
        value = object.name;
    } else if (what == "Parent") {
        value = reference(object.parent);
    } else if (what == "ChildCount") {
        value = static_cast<int>(object.children.size());
    } else if (what == "NSelectedChildren") {
        value = static_cast<int>(object.selected.size());
    } else if (what == "GetRole") {
        value = static_cast<uint>(object.role);
    } else if (what == "GetState") {
        value = QVariant::fromValue(
            QList<uint>{static_cast<uint>(object.states), static_cast<uint>(object.states >> 32)});
    } else if (what == "GetInterfaces") {
        value = object.interfaces;
    } else if (what == "GetAttributes") {
        value = QVariant::fromValue(Attributes());
    } else if (what == "GetText") {
        value = object.name;
    } else if (what == "GetChildren") {
        QList<Reference> children;
        for (const int child : object.children)
            children.append({service(), QDBusObjectPath(pathOf(child))});
        value = QVariant::fromValue(children);
    } else if (what == "GetChildAtIndex") {
        value = at(object.children, first);
    } else if (what == "GetSelectedChild") {
        const bool isThere = static_cast<std::size_t>(first) < object.selected.size();
        value =
            at(object.children, isThere ? object.selected[static_cast<std::size_t>(first)] : -1);
    } else if (what == "GetSize") {
        return question.createReply({800, 600});
    } else {
        return question.createErrorReply("org.freedesktop.DBus.Error.UnknownMethod", what);
    }
    return question.createReply(isProperty ? QVariant::fromValue(QDBusVariant(value)) : value);
}
