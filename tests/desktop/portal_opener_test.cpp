#include "desktop/portal_opener.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QFile>
#include <QVariantMap>

#include <memory>
#include <string>

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
        if (refuses) {
            return bus_.send(message.createErrorReply(QDBusError::UnknownMethod, QString()));
        }
        method = message.interface() + QLatin1Char('.') + message.member();
        parent = message.arguments().value(0).toString();
        const auto file = message.arguments().value(1).value<QDBusUnixFileDescriptor>();
        QFile reading;
        if (reading.open(file.fileDescriptor(), QIODevice::ReadOnly)) content = reading.readAll();
        options = qdbus_cast<QVariantMap>(message.arguments().value(2));
        return bus_.send(
            message.createReply(QVariant::fromValue(QDBusObjectPath(QStringLiteral("/request")))));
    }

    bool refuses = false;
    QString method, parent;
    QByteArray content;
    QVariantMap options;

private:
    QDBusConnection bus_;
};

class PortalOpener : public testing::Test {
protected:
    void SetUp() override
    {
        if (!program_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
        QObject::connect(&opener_, &pinorama::PortalOpener::unavailable, [this] { refusals_++; });
    }

    // Opens a file of that content.
    void openWith(const char* content)
    {
        QFile file(QString::fromStdString(folder_.write("a.jpg", content)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        opener_.openWith(file.handle(), QStringLiteral("x11:2a"));
    }

    const test::TemporaryFolder folder_;
    test::Program program_{QStringLiteral("window")};
    test::Program desktop_{QStringLiteral("portal")};
    pinorama::PortalOpener opener_{program_.connection()};
    int refusals_ = 0;
};

TEST_F(PortalOpener, hasTheUserChooseTheProgram)
{
    OpenPortal portal(desktop_.connection());
    openWith("picture");
    ASSERT_TRUE(test::waitUntil([&] { return !portal.method.isEmpty(); }));
    EXPECT_EQ(portal.method, QLatin1String("org.freedesktop.portal.OpenURI.OpenFile"));
    EXPECT_EQ(portal.parent, QLatin1String("x11:2a"));
    EXPECT_EQ(portal.content, "picture");
    EXPECT_EQ(portal.options, (QVariantMap{{QStringLiteral("ask"), true}}));
    EXPECT_EQ(refusals_, 0);
}

TEST_F(PortalOpener, saysThatThereIsNoPortal)
{
    openWith("picture");
    EXPECT_TRUE(test::waitUntil([this] { return refusals_ == 1; }));
    OpenPortal portal(desktop_.connection());
    portal.refuses = true;
    openWith("picture");
    EXPECT_TRUE(test::waitUntil([this] { return refusals_ == 2; }));
}

TEST(PortalOpenerWithoutBus, saysSoAtOnce)
{
    pinorama::PortalOpener opener{QDBusConnection(QStringLiteral("none"))};
    int refusals = 0;
    QObject::connect(&opener, &pinorama::PortalOpener::unavailable, [&] { refusals++; });
    opener.openWith(0, {});
    EXPECT_EQ(refusals, 1);
}

}  // namespace pinorama::tests
