#include "selection/selection_pushes.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <string>
#include <vector>

using namespace pinorama;

using test::Program;

namespace {
const QString kService = QStringLiteral("org.pinorama.Pinorama.Selection");

// The test process counts as a file manager while isFileManager_ is true.
class SelectionPushesTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!program_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
        pushes_.setListening(true);
    }

    void send(const QString& member, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            kService, QStringLiteral("/org/pinorama/Selection"), kService, member);
        message.setArguments(arguments);
        other_.connection().send(message);
    }
    void push(const QStringList& uris, const QString& title = QStringLiteral("Pictures"))
    {
        send(QStringLiteral("Push"), {uris, title});
    }

    // Waits until all pushes have been handled, and returns the one that is kept.
    const PushedSelection* kept()
    {
        // Messages arrive in order: when this call has its reply, all pushes before it have
        // arrived.
        const QDBusPendingCall ping = other_.connection().asyncCall(
            QDBusMessage::createMethodCall(kService, QStringLiteral("/org/pinorama/Selection"),
                                           QStringLiteral("org.freedesktop.DBus.Peer"),
                                           QStringLiteral("Ping")),
            test::kPatience);
        EXPECT_TRUE(test::waitUntil([&] { return ping.isFinished(); }));
        QCoreApplication::processEvents();
        // When this one has its reply, those about the senders' processes have arrived too.
        bool hasReply = false;
        const QDBusPendingCallWatcher own(program_.connection().asyncCall(
            QDBusMessage::createMethodCall(
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")),
            test::kPatience));
        QObject::connect(&own, &QDBusPendingCallWatcher::finished, &own,
                         [&hasReply] { hasReply = true; });
        EXPECT_TRUE(test::waitUntil([&] { return hasReply; }));
        return pushes_.lastOf(getpid());
    }
    std::vector<std::string> keptPaths()
    {
        const PushedSelection* pushed = kept();
        return pushed == nullptr ? std::vector<std::string>{"nothing"} : pushed->paths;
    }

    bool isFileManager_ = true;
    Program program_{QStringLiteral("window")};
    Program other_{QStringLiteral("file manager")};
    SelectionPushes pushes_{program_.connection(), [] { return nullptr; },
                            [this](pid_t process) {
                                EXPECT_EQ(process, getpid());
                                return isFileManager_ ? fileManagerKind("caja") : nullptr;
                            }};
};

using Paths = std::vector<std::string>;
}  // namespace

TEST_F(SelectionPushesTest, keepsTheLastPush)
{
    EXPECT_EQ(kept(), nullptr);
    push({QStringLiteral("file:///old.jpg")});
    push({QStringLiteral("file:///a%20b.jpg"), QStringLiteral("file:///%e4%FF%0A%25.jpg")},
         QStringLiteral("Bilder"));
    const PushedSelection* pushed = kept();
    ASSERT_NE(pushed, nullptr);
    EXPECT_EQ(pushed->paths, (Paths{"/a b.jpg", "/\xe4\xff\n%.jpg"}));
    EXPECT_EQ(pushed->windowTitle, QStringLiteral("Bilder"));
    EXPECT_FALSE(pushed->isConfirmed);
}

TEST_F(SelectionPushesTest, keepsAnEmptySelection)
{
    push({QStringLiteral("file:///a.jpg")});
    push({});
    EXPECT_EQ(keptPaths(), Paths{});
}

TEST_F(SelectionPushesTest, anEmptyTitleTakesBackWhatWasPushed)
{
    push({QStringLiteral("file:///a.jpg")});
    push({QStringLiteral("file:///b.jpg")}, QString());
    EXPECT_EQ(kept(), nullptr);
}

TEST_F(SelectionPushesTest, ignoresProgramsThatAreNoFileManagers)
{
    push({QStringLiteral("file:///a.jpg")});
    EXPECT_EQ(keptPaths(), Paths{"/a.jpg"});
    isFileManager_ = false;
    push({QStringLiteral("file:///b.jpg")});
    EXPECT_EQ(keptPaths(), Paths{"/a.jpg"});
}

TEST_F(SelectionPushesTest, keepsNoPathsIfOneOfThemIsMalformed)
{
    const QString good = QStringLiteral("file:///a.jpg");
    for (const QString& bad :
         {QStringLiteral("https://example.org/b.jpg"), QStringLiteral("file:///b%00.jpg"),
          QStringLiteral("file://elsewhere.example/b.jpg"), QStringLiteral("file:///b%e"),
          QStringLiteral("file:b.jpg"), QStringLiteral("/b.jpg"), QString(),
          QStringLiteral("file:///") + QString(4097, QLatin1Char('b')),
          QStringLiteral("file:///") + QString(1 << 20, QLatin1Char('b'))}) {
        push({good});
        EXPECT_EQ(keptPaths(), Paths{"/a.jpg"});
        push({good, bad});
        EXPECT_EQ(keptPaths(), Paths{}) << bad.left(40).toStdString();
    }
}

TEST_F(SelectionPushesTest, looksAtTheFirst64UrisOnly)
{
    QStringList uris(10000, QStringLiteral("file:///a.jpg"));
    uris[64] = QStringLiteral("trash:///b.jpg");
    push(uris);
    EXPECT_EQ(keptPaths(), Paths(64, "/a.jpg"));
}

TEST_F(SelectionPushesTest, aTitleOverTheLimitTakesBackWhatWasPushed)
{
    push({QStringLiteral("file:///a.jpg")});
    push({QStringLiteral("file:///a.jpg")}, QString(1 << 20, QLatin1Char('x')));
    EXPECT_EQ(kept(), nullptr);
}

TEST_F(SelectionPushesTest, keepsNoOldPushAfterAFlood)
{
    push({QStringLiteral("file:///a.jpg")});
    for (int i = 0; i < 5000; i++) push({QStringLiteral("file:///b.jpg")});
    push({QStringLiteral("file:///c.jpg")});
    const Paths paths = keptPaths();
    EXPECT_NE(paths, Paths{"/a.jpg"});
    push({QStringLiteral("file:///d.jpg")});
    EXPECT_EQ(keptPaths(), Paths{"/d.jpg"});
}

TEST_F(SelectionPushesTest, refusesEveryOtherCall)
{
    push({QStringLiteral("file:///a.jpg")});
    send(QStringLiteral("Push"), {5});
    send(QStringLiteral("Push"), {QStringLiteral("file:///b.jpg"), QStringLiteral("Pictures")});
    send(QStringLiteral("Push"), {});
    send(QStringLiteral("setListening"), {false});
    send(QStringLiteral("forget"), {getpid()});
    send(QStringLiteral("deleteLater"), {});
    EXPECT_EQ(keptPaths(), Paths{"/a.jpg"});
}

TEST_F(SelectionPushesTest, acceptsAndKeepsNothingWhileNotListening)
{
    const auto hasOwner = [this] {
        const QDBusPendingReply<bool> reply = other_.connection().asyncCall([] {
            QDBusMessage call = QDBusMessage::createMethodCall(
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
            call.setArguments({kService});
            return call;
        }());
        test::waitUntil([&] { return reply.isFinished(); });
        return reply.value();
    };
    EXPECT_TRUE(hasOwner());
    push({QStringLiteral("file:///a.jpg")});
    EXPECT_EQ(keptPaths(), Paths{"/a.jpg"});
    pushes_.setListening(false);
    EXPECT_FALSE(hasOwner());
    EXPECT_EQ(pushes_.lastOf(getpid()), nullptr);
    pushes_.setListening(true);
    EXPECT_EQ(kept(), nullptr);
}

TEST_F(SelectionPushesTest, exportsTheInterfaceThatTheExtensionsCall)
{
    const QDBusPendingCall call = other_.connection().asyncCall(QDBusMessage::createMethodCall(
        kService, QStringLiteral("/org/pinorama/Selection"),
        QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect")));
    ASSERT_TRUE(test::waitUntil([&] { return call.isFinished(); }));
    const QString xml = call.reply().arguments().value(0).toString();
    for (const char* part : {"<interface name=\"org.pinorama.Pinorama.Selection\">",
                             "<method name=\"Push\">", "type=\"as\"", "type=\"s\""}) {
        EXPECT_TRUE(xml.contains(QString::fromLatin1(part))) << part << xml.toStdString();
    }
    EXPECT_FALSE(xml.contains(QStringLiteral("setListening")));
}
