#include "desktop/application_bus.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusInterface>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusReply>

using namespace pinorama;

using test::Program;

namespace {
class ApplicationBusTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!program_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
        QObject::connect(&bus_, &ApplicationBus::activated,
                         [this](const QByteArray& token) { events_ << "activated " + token; });
        QObject::connect(&bus_, &ApplicationBus::fileOpened,
                         [this](const QByteArray& path, const QByteArray& token) {
                             events_ << "opened " + path + " " + token;
                         });
        QObject::connect(&bus_, &ApplicationBus::fileReported,
                         [this](const QByteArray& path) { events_ << "reported " + path; });
        QObject::connect(&bus_, &ApplicationBus::textSent, [this](const QString& text) {
            events_ << "text " + QByteArray::number(text.size()) + " " + text.left(20).toUtf8();
        });
        QObject::connect(&bus_, &ApplicationBus::actionActivated,
                         [this](const QString& action, const QByteArray&) {
                             events_ << "action " + action.toUtf8();
                         });
        ASSERT_EQ(bus_.claim(), ApplicationBus::Claim::granted);
    }

    // Calls the first program from the second one, and runs the event loop until the reply arrives.
    QDBusMessage call(const char* interface, const char* method, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.pinorama.Pinorama"), QStringLiteral("/org/pinorama/Pinorama"),
            QString::fromLatin1(interface), QString::fromLatin1(method));
        message.setArguments(arguments);
        QDBusPendingCall pending = second_.connection().asyncCall(message, test::kPatience);
        test::waitUntil([&] { return pending.isFinished(); });
        return pending.reply();
    }
    QDBusMessage open(const QStringList& uris, const QVariantMap& data = {})
    {
        return call("org.freedesktop.Application", "Open", {uris, data});
    }

    QDBusMessage show(const QString& file) { return call("org.pinorama.Pinorama", "Show", {file}); }

    Program program_{QStringLiteral("first")};
    Program second_{QStringLiteral("second")};
    ApplicationBus bus_{program_.connection()};
    QByteArrayList events_;
};
}  // namespace

TEST_F(ApplicationBusTest, onlyOneInstanceGetsTheName)
{
    ApplicationBus second(second_.connection());
    EXPECT_EQ(second.claim(), ApplicationBus::Claim::takenByAnother);
}

TEST_F(ApplicationBusTest, openOpensTheLastFile)
{
    EXPECT_EQ(open({QStringLiteral("file:///a.jpg"), QStringLiteral("file:///b%20%23.jpg")},
                   {{QStringLiteral("activation-token"), QStringLiteral("tok")}})
                  .type(),
              QDBusMessage::ReplyMessage);
    EXPECT_EQ(events_, QByteArrayList{"opened /b #.jpg tok"});
}

TEST_F(ApplicationBusTest, openSkipsUrisThatNameNoLocalFile)
{
    open({QStringLiteral("file:///a.jpg"), QStringLiteral("https://example.org/b.jpg"),
          QStringLiteral("file:///c%00.jpg"), QString()});
    open({QStringLiteral("trash:///x.jpg")});
    open({});
    EXPECT_EQ(events_, (QByteArrayList{"opened /a.jpg ", "activated ", "activated "}));
}

TEST_F(ApplicationBusTest, activatePassesOnATokenOfEitherKind)
{
    const auto activate = [this](const QVariantMap& data) {
        call("org.freedesktop.Application", "Activate", {data});
    };
    activate({});
    activate({{QStringLiteral("desktop-startup-id"), QStringLiteral("id_TIME1")}});
    activate({{QStringLiteral("activation-token"), 5}});
    EXPECT_EQ(events_, (QByteArrayList{"activated ", "activated id_TIME1", "activated 5"}));
}

TEST_F(ApplicationBusTest, openTextPassesTheTextOnUnchanged)
{
    call("org.pinorama.Pinorama1", "OpenText", {QStringLiteral(" /a b%20.jpg\n")});
    call("org.pinorama.Pinorama1", "OpenText", {QString()});
    EXPECT_EQ(events_, (QByteArrayList{"text 13  /a b%20.jpg\n", "text 0 "}));
}

TEST_F(ApplicationBusTest, openTextReplacesATextOverTheLimitByAnEmptyOne)
{
    call("org.pinorama.Pinorama1", "OpenText", {QString(65536, QLatin1Char('x'))});
    call("org.pinorama.Pinorama1", "OpenText", {QString(65537, QLatin1Char('x'))});
    EXPECT_EQ(events_, (QByteArrayList{"text 65536 " + QByteArray(20, 'x'), "text 0 "}));
}

TEST_F(ApplicationBusTest, activateActionPassesTheNameOnUnlessItIsTooLong)
{
    call("org.freedesktop.Application", "ActivateAction",
         {QStringLiteral("quit"), QVariantList(), QVariantMap()});
    call("org.freedesktop.Application", "ActivateAction",
         {QString(65, QLatin1Char('x')), QVariantList(), QVariantMap()});
    EXPECT_EQ(events_, QByteArrayList{"action quit"});
}

TEST_F(ApplicationBusTest, showReportsAnAbsolutePathOrAFileURI)
{
    for (const char* file : {"/a b%20.jpg", "file:///a%20b.jpg", "file:///%e4%FF.jpg", "/\xc3\xbc"})
        EXPECT_EQ(show(QString::fromUtf8(file)).type(), QDBusMessage::ReplyMessage) << file;
    EXPECT_EQ(events_, (QByteArrayList{"reported /a b%20.jpg", "reported /a b.jpg",
                                       "reported /\xe4\xff.jpg", "reported /\xc3\xbc"}));
}

TEST_F(ApplicationBusTest, showRefusesEverythingElse)
{
    const QString longPath = QString(4096, QLatin1Char('x'));
    for (const QString& file :
         {QString(), QStringLiteral("a.jpg"), QStringLiteral("./a.jpg"), QStringLiteral("~/a.jpg"),
          QStringLiteral("https://example.org/a.jpg"), QStringLiteral("trash:///a.jpg"),
          QStringLiteral("file:a.jpg"), QStringLiteral("file://elsewhere.example/a.jpg"),
          QStringLiteral("file:///a%00.jpg"), QChar(u'/') + longPath,
          QStringLiteral("file:///") + longPath, QString(1 << 20, QLatin1Char('/'))}) {
        const QDBusMessage reply = show(file);
        EXPECT_EQ(reply.errorName(), QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"))
            << file.left(40).toStdString();
        EXPECT_FALSE(reply.errorMessage().isEmpty());
    }
    EXPECT_EQ(call("org.pinorama.Pinorama", "Show", {5}).type(), QDBusMessage::ErrorMessage);
    EXPECT_TRUE(events_.isEmpty());
}

TEST_F(ApplicationBusTest, aCallWithWrongArgumentsGetsAnError)
{
    EXPECT_EQ(call("org.freedesktop.Application", "Open", {5}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call("org.pinorama.Pinorama1", "OpenText", {}).type(), QDBusMessage::ErrorMessage);
    EXPECT_TRUE(events_.isEmpty());
}

TEST_F(ApplicationBusTest, openAcceptsArgumentsOfAnySize)
{
    const QString mebibyte(1 << 20, QLatin1Char('x'));
    QStringList uris(10000, QStringLiteral("https://example.org/a.jpg"));
    uris[0] = QStringLiteral("file:///a.jpg");
    open(uris);
    open({QStringLiteral("file:///b.jpg"), QStringLiteral("file:///") + mebibyte});
    open({QStringLiteral("file:///") + mebibyte});
    open(QStringList(10000, QStringLiteral("file:///c.jpg")));
    EXPECT_EQ(events_,
              (QByteArrayList{"opened /a.jpg ", "opened /b.jpg ", "activated ", "opened /c.jpg "}));
}

TEST_F(ApplicationBusTest, openDecodesBytesThatAreNotUtf8)
{
    open({QStringLiteral("file:///%e4%FF.jpg")});
    open({QStringLiteral("file:///d.jpg"), QStringLiteral("file:///%e4%0.jpg"),
          QStringLiteral("file:///%zz"), QStringLiteral("file://elsewhere.example/e.jpg"),
          QStringLiteral("file:relative")});
    EXPECT_EQ(events_, (QByteArrayList{"opened /\xe4\xff.jpg ", "opened /d.jpg "}));
}

TEST_F(ApplicationBusTest, aTokenOverTheLimitIsIgnored)
{
    const QVariantMap data = {
        {QStringLiteral("activation-token"), QString(1 << 20, QLatin1Char('x'))},
        {QStringLiteral("desktop-startup-id"), QStringLiteral("id")}};
    call("org.freedesktop.Application", "Activate", {data});
    open({QStringLiteral("file:///a.jpg")}, data);
    EXPECT_EQ(events_, (QByteArrayList{"activated id", "opened /a.jpg id"}));
}

TEST_F(ApplicationBusTest, activateActionIgnoresItsParameters)
{
    QVariant deep = QStringLiteral("x");
    for (int i = 0; i < 20; i++) deep = QVariant::fromValue(QDBusVariant(deep));
    call("org.freedesktop.Application", "ActivateAction",
         {QStringLiteral("home"), QVariantList(10000, deep),
          QVariantMap{{QStringLiteral("activation-token"), deep}}});
    call("org.freedesktop.Application", "ActivateAction",
         {QString(1 << 20, QLatin1Char('x')), QVariantList(), QVariantMap()});
    EXPECT_EQ(events_, QByteArrayList{"action home"});
}

TEST_F(ApplicationBusTest, openTextReplacesAMebibyteByAnEmptyText)
{
    call("org.pinorama.Pinorama1", "OpenText", {QString(1 << 20, QLatin1Char('/'))});
    EXPECT_EQ(events_, QByteArrayList{"text 0 "});
}

TEST_F(ApplicationBusTest, exportsTheStandardInterfaces)
{
    const QDBusMessage reply = call("org.freedesktop.DBus.Introspectable", "Introspect", {});
    const QString xml = reply.arguments().value(0).toString();
    for (const char* part :
         {"<interface name=\"org.freedesktop.Application\">", "<method name=\"Activate\">",
          "<method name=\"Open\">", "<method name=\"ActivateAction\">",
          "<interface name=\"org.pinorama.Pinorama1\">", "<method name=\"OpenText\">",
          "type=\"a{sv}\"", "type=\"as\"", "type=\"av\""}) {
        EXPECT_TRUE(xml.contains(QString::fromLatin1(part))) << part << xml.toStdString();
    }
}

TEST(ApplicationBus, claimReportsThatThereIsNoBus)
{
    ApplicationBus bus{QDBusConnection(QStringLiteral("no such connection"))};
    EXPECT_EQ(bus.claim(), ApplicationBus::Claim::noBus);
    EXPECT_FALSE(bus.activateOther("token"));
}

TEST(ApplicationBus, theDestructorReleasesTheName)
{
    const Program program(QStringLiteral("short"));
    if (!program.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
    {
        ApplicationBus first(program.connection());
        ASSERT_EQ(first.claim(), ApplicationBus::Claim::granted);
    }
    ApplicationBus second(program.connection());
    EXPECT_EQ(second.claim(), ApplicationBus::Claim::granted);
}

TEST(activationTokenOfStarter, prefersTheActivationToken)
{
    const test::ScopedVariable startup("DESKTOP_STARTUP_ID", "startup");
    {
        const test::ScopedVariable token("XDG_ACTIVATION_TOKEN", "token");
        EXPECT_EQ(activationTokenOfStarter(), "token");
    }
    const test::ScopedVariable none("XDG_ACTIVATION_TOKEN", nullptr);
    EXPECT_EQ(activationTokenOfStarter(), "startup");
}

TEST(useActivationToken, dropsAMalformedToken)
{
    const test::ScopedVariable none("XDG_ACTIVATION_TOKEN", nullptr);
    for (const QByteArray& token :
         {QByteArray(), QByteArray("a\nb"), QByteArray("\xff"), QByteArray(1025, 'x')}) {
        useActivationToken(token);
        EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    }
    useActivationToken("good");
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "good");
}
