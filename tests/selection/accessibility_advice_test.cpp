#include "selection/accessibility_advice.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

using namespace std::chrono_literals;

namespace {
// A bus that is separate from the session bus, as the accessibility bus is.
class OtherBus {
public:
    OtherBus()
    {
        const QByteArray session = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        bus_ = std::make_unique<test::SessionBus>();
        address_ = QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
        qputenv("DBUS_SESSION_BUS_ADDRESS", session);
    }
    ~OtherBus()
    {
        const test::ScopedVariable session("DBUS_SESSION_BUS_ADDRESS",
                                           qgetenv("DBUS_SESSION_BUS_ADDRESS").constData());
        bus_.reset();
    }
    const QString& address() const { return address_; }

private:
    std::unique_ptr<test::SessionBus> bus_;
    QString address_;
};

// Plays org.a11y.Bus on the session bus, and records the calls.
class FakeStatus : public QDBusVirtualObject {
public:
    FakeStatus(const QDBusConnection& bus, const QString& address) : bus_(bus), address_(address)
    {
        bus_.registerVirtualObject(QStringLiteral("/org/a11y/bus"), this);
        bus_.registerService(QStringLiteral("org.a11y.Bus"));
    }
    ~FakeStatus() override
    {
        bus_.unregisterService(QStringLiteral("org.a11y.Bus"));
        bus_.unregisterObject(QStringLiteral("/org/a11y/bus"));
    }
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        const QVariantList arguments = message.arguments();
        const std::string what = arguments.value(0).toString().toStdString() + " " +
                                 arguments.value(1).toString().toStdString();
        if (message.member() == QLatin1String("GetAddress")) {
            connection.send(message.createReply(address_));
        } else if (message.member() == QLatin1String("Get")) {
            asked.push_back(what);
            connection.send(message.createReply(QVariant::fromValue(QDBusVariant(isEnabled))));
        } else {
            const QVariant value = arguments.value(2).value<QDBusVariant>().variant();
            set.push_back(what + " " + value.typeName() + " " + value.toString().toStdString());
            connection.send(refuses ? message.createErrorReply(QDBusError::AccessDenied, {})
                                    : message.createReply());
        }
        return true;
    }

    QVariant isEnabled = false;
    bool refuses = false;
    std::vector<std::string> asked, set;

private:
    QDBusConnection bus_;
    QString address_;
};

// A running file manager: on the session bus, and given its address also on the accessibility bus.
class Client {
public:
    explicit Client(const QString& accessibilityBus = QString())
    {
        process_.start(QStringLiteral(PINORAMA_BUS_CLIENT), {accessibilityBus});
        EXPECT_TRUE(process_.waitForReadyRead(test::kPatience));
    }
    ~Client()
    {
        process_.closeWriteChannel();
        if (!process_.waitForFinished(test::kPatience)) process_.kill();
        process_.waitForFinished();
    }
    pid_t process() const { return static_cast<pid_t>(process_.processId()); }

private:
    QProcess process_;
};

class AccessibilityAdviceTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!desktop_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
        QObject::connect(&advice_, &AccessibilityAdvice::needed,
                         [this](const QString& name) { needed_.push_back(name.toStdString()); });
        QObject::connect(&advice_, &AccessibilityAdvice::switched,
                         [this](bool isOn) { switched_.push_back(isOn); });
    }

    void TearDown() override
    {
        if (!mayBeSet_) {
            EXPECT_TRUE(status_.set.empty()) << "nobody called switchOn()";
        }
        for (const std::string& what : status_.asked) EXPECT_EQ(what, "org.a11y.Status IsEnabled");
    }

    // Waits many times as long as the advice takes.
    static void wait() { test::goOnFor(400); }
    void expectNeeded(const std::string& name)
    {
        EXPECT_TRUE(test::waitUntil([this] { return !needed_.empty(); }));
        wait();
        EXPECT_EQ(needed_, std::vector<std::string>{name});
    }
    void expectNothing()
    {
        wait();
        EXPECT_EQ(needed_, std::vector<std::string>());
    }
    void runs(const Client& client, const char* name)
    {
        kinds_[client.process()] = fileManagerKind(name);
    }

    bool mayBeSet_ = false;
    std::map<pid_t, const FileManagerKind*> kinds_;
    std::vector<std::string> needed_;
    std::vector<bool> switched_;
    OtherBus accessibilityBus_;
    test::Program desktop_{QStringLiteral("desktop")};
    FakeStatus status_{desktop_.connection(), accessibilityBus_.address()};
    AccessibilityAdvice advice_{[this](pid_t process) {
                                    const auto kind = kinds_.find(process);
                                    return kind == kinds_.end() ? nullptr : kind->second;
                                },
                                10ms};
};
}  // namespace

TEST_F(AccessibilityAdviceTest, isNeededForAFileManagerThatIsNotOnTheAccessibilityBus)
{
    const Client client;
    runs(client, "dolphin");
    advice_.setWanted(true);
    expectNeeded("Dolphin");
}

TEST_F(AccessibilityAdviceTest, isNeededForOneThatStartsLater)
{
    advice_.setWanted(true);
    expectNothing();
    EXPECT_TRUE(status_.asked.empty());
    const Client client;
    runs(client, "pcmanfm-qt");
    expectNeeded("PCManFM-Qt");
}

TEST_F(AccessibilityAdviceTest, isNotDelayedByAStreamOfOtherPrograms)
{
    AccessibilityAdvice advice([this](pid_t process) { return kinds_[process]; }, 300ms);
    QObject::connect(&advice, &AccessibilityAdvice::needed,
                     [this](const QString& name) { needed_.push_back(name.toStdString()); });
    advice.setWanted(true);
    const Client client;
    runs(client, "dolphin");
    int others = 0;
    EXPECT_TRUE(test::waitUntil([&] {
        const test::Program other(QStringLiteral("other %1").arg(others++));
        return !needed_.empty();
    })) << others;
}

TEST_F(AccessibilityAdviceTest, isGivenOncePerRun)
{
    const Client client;
    runs(client, "dolphin");
    advice_.setWanted(true);
    expectNeeded("Dolphin");
    advice_.setWanted(false);
    advice_.setWanted(true);
    const Client second;
    runs(second, "pcmanfm-qt");
    expectNeeded("Dolphin");
}

TEST_F(AccessibilityAdviceTest, isNotNeededIfAccessibilityIsOn)
{
    status_.isEnabled = true;
    const Client client;
    runs(client, "dolphin");
    advice_.setWanted(true);
    EXPECT_TRUE(test::waitUntil([this] { return !status_.asked.empty(); }));
    expectNothing();
    EXPECT_EQ(status_.asked.size(), 1u);
}

TEST_F(AccessibilityAdviceTest, isNotNeededForOneOnTheAccessibilityBus)
{
    const Client client(accessibilityBus_.address());
    runs(client, "dolphin");
    advice_.setWanted(true);
    EXPECT_TRUE(test::waitUntil([this] { return status_.asked.size() >= 2; }));
    expectNothing();
    const Client silent;
    runs(silent, "pcmanfm-qt");
    expectNeeded("PCManFM-Qt");
}

TEST_F(AccessibilityAdviceTest, isNotNeededForOtherProgramsAndToolkits)
{
    const Client other;
    advice_.setWanted(true);
    for (const char* name : {"nautilus", "nemo", "caja", "thunar", "pcmanfm"}) {
        const Client client;
        runs(client, name);
        wait();
    }
    expectNothing();
    EXPECT_TRUE(status_.asked.empty());
}

TEST_F(AccessibilityAdviceTest, isNotNeededIfNobodyWantsToFollow)
{
    const Client client;
    runs(client, "dolphin");
    expectNothing();
    advice_.setWanted(true);
    advice_.setWanted(false);
    const Client second;
    runs(second, "dolphin");
    expectNothing();
    EXPECT_TRUE(status_.asked.empty());
    advice_.setWanted(true);
    expectNeeded("Dolphin");
}

TEST_F(AccessibilityAdviceTest, isNotNeededIfTheStateIsUnknown)
{
    status_.isEnabled = QStringLiteral("false");
    const Client client;
    runs(client, "dolphin");
    advice_.setWanted(true);
    EXPECT_TRUE(test::waitUntil([this] { return !status_.asked.empty(); }));
    expectNothing();
    EXPECT_EQ(status_.asked.size(), 1u);
}

TEST_F(AccessibilityAdviceTest, isNotNeededForOneThatHasEnded)
{
    {
        const Client client;
        runs(client, "dolphin");
        advice_.setWanted(true);
        kinds_.clear();
    }
    expectNothing();
}

TEST_F(AccessibilityAdviceTest, switchOnSetsTheProperty)
{
    mayBeSet_ = true;
    advice_.switchOn();
    EXPECT_TRUE(test::waitUntil([this] { return !switched_.empty(); }));
    EXPECT_EQ(status_.set, std::vector<std::string>{"org.a11y.Status IsEnabled bool true"});
    EXPECT_EQ(switched_, std::vector<bool>{true});
}

TEST_F(AccessibilityAdviceTest, switchOnReportsThatTheDesktopRefuses)
{
    mayBeSet_ = true;
    status_.refuses = true;
    advice_.switchOn();
    EXPECT_TRUE(test::waitUntil([this] { return !switched_.empty(); }));
    EXPECT_EQ(switched_, std::vector<bool>{false});
}

TEST_F(AccessibilityAdviceTest, canBeDestroyedAtAnyTime)
{
    const Client client;
    runs(client, "dolphin");
    for (int steps = 0; steps < 12; steps++) {
        AccessibilityAdvice advice([this](pid_t process) { return kinds_[process]; }, 0ms);
        // The receiver of the signal may stop it.
        QObject::connect(&advice, &AccessibilityAdvice::needed,
                         [&advice] { advice.setWanted(false); });
        advice.setWanted(true);
        for (int i = 0; i < steps; i++) QCoreApplication::processEvents();
    }
    expectNothing();
}
