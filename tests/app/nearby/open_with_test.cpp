// The question which program opens a picture, as the desktop's portal gets it.

#include "app/nearby/open_with.h"

#include "base/descriptor.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include <fcntl.h>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {

// The part of the desktop's portal that opens files.
class OpenPortal : public QDBusVirtualObject {
public:
    explicit OpenPortal(QDBusConnection bus) : bus_(std::move(bus))
    {
        bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/desktop"), this);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        const auto file = message.arguments().value(1).value<QDBusUnixFileDescriptor>();
        flags = fcntl(file.fileDescriptor(), F_GETFL);
        // As a portal does: the path of what it got, for a program that opens it.
        const std::string link = "/proc/self/fd/" + std::to_string(file.fileDescriptor());
        content = test::readFile(link);
        return bus_.send(
            message.createReply(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/request")))));
    }

    int flags = -1;
    std::string content;

private:
    QDBusConnection bus_;
};

class NoOpener : public UrlOpener {
public:
    bool open(const QByteArray&) override
    {
        calls++;
        return true;
    }

    int calls = 0;
};

class OpenWith : public testing::Test {
protected:
    void SetUp() override
    {
        if (!desktop_.isConnected()) GTEST_SKIP() << "no session bus can be started";
    }
    ~OpenWith() override { QDBusConnection::disconnectFromBus(desktop_.name()); }

    const test::TemporaryFolder folder_;
    QDBusConnection desktop_{QDBusConnection::connectToBus(
        QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), QStringLiteral("opening"))};
    NoOpener opener_;
    pinorama::OpenWith openWith_{opener_};
};

// Closing it would otherwise wait for a disk that does not answer.
TEST_F(OpenWith, givesThePortalWhatOnlyRefersToTheFile)
{
    OpenPortal portal(desktop_);
    openWith_.ask(folder_.write("a.jpg", "picture"), QString());
    ASSERT_TRUE(test::waitUntil([&] { return portal.flags != -1; }));
    EXPECT_EQ(portal.flags & O_PATH, O_PATH);
    EXPECT_EQ(portal.content, "picture");
    EXPECT_EQ(opener_.calls, 0);
}

}  // namespace pinorama::tests
