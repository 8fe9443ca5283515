// What file managers get over the session bus, and who gets nothing.

#include "app/column/place_requests.h"

#include "tests/app/column/column_program.h"
#include "tests/desktop/bus_programs.h"

#include <gtest/gtest.h>

#include <QDBusPendingCall>
#include <QDBusPendingReply>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

using namespace pinorama;
using namespace std::chrono_literals;

using test::Program;

namespace {
const QString kService = QStringLiteral("org.pinorama.Pinorama.Places");
const QString kPlace = QStringLiteral("Near Anywhere, Italy");
using Reply = QDBusPendingReply<QStringList>;

// The test process counts as a file manager while isFileManager_ is true.
class PlaceRequestsTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!window_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
        listen(30s, 30s);
    }

    void listen(std::chrono::milliseconds patience, std::chrono::milliseconds patienceOfLookUp)
    {
        requests_.reset();
        requests_.emplace(
            window_.connection(),
            [this](pid_t process) {
                EXPECT_EQ(process, getpid());
                return isFileManager_ ? fileManagerKind("caja") : nullptr;
            },
            patience, patienceOfLookUp);
        requests_->listen();
    }

    Reply call(const QString& member, const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            kService, QStringLiteral("/org/pinorama/Places"), kService, member);
        message.setArguments(arguments);
        return other_.connection().asyncCall(message, test::kPatience);
    }
    Reply ask(const QStringList& uris) { return call(QStringLiteral("PlacesOf"), {uris}); }

    static bool hasCome(const Reply& reply)
    {
        return test::waitUntil([&] { return reply.isFinished(); });
    }
    QStringList placesOf(const QStringList& uris)
    {
        const Reply reply = ask(uris);
        EXPECT_TRUE(hasCome(reply));
        EXPECT_FALSE(reply.isError()) << reply.error().message().toStdString();
        return reply.isError() ? QStringList() : reply.value();
    }
    QDBusError::ErrorType errorOf(const QStringList& uris)
    {
        const Reply reply = ask(uris);
        EXPECT_TRUE(hasCome(reply));
        return reply.isError() ? reply.error().type() : QDBusError::NoError;
    }

    test::ColumnResources resources_;
    bool isFileManager_ = true;
    Program window_{QStringLiteral("window")};
    Program other_{QStringLiteral("file manager")};
    std::optional<PlaceRequests> requests_;
};
}  // namespace

TEST_F(PlaceRequestsTest, givesThePlacesOfRealPictures)
{
    const test::TemporaryFolder folder;
    (void)folder.write("a b.jpg",
                       test::pictureWithGps({.lat = 10, .latRef = "N", .lon = 10, .lonRef = "E"}));
    (void)folder.write("none.jpg", test::pictureWithGps({}));
    const QString start = QStringLiteral("file://") + QString::fromStdString(folder.path());
    EXPECT_EQ(placesOf({start + QStringLiteral("/none.jpg"), start + QStringLiteral("/a%20b.jpg")}),
              QStringList({{}, kPlace}));
}

TEST_F(PlaceRequestsTest, saysWhatPicturesAreCalled)
{
    const Reply reply = call(QStringLiteral("Endings"));
    ASSERT_TRUE(hasCome(reply));
    EXPECT_EQ(reply.value().size(), 20);
    EXPECT_TRUE(reply.value().contains(QStringLiteral("jpg")));
    EXPECT_TRUE(reply.value().contains(QStringLiteral("nef")));
}

TEST_F(PlaceRequestsTest, repliesToFileManagersOnly)
{
    const test::SearchProgram program("touch \"$FOLDER/ran\"\n" + test::located("/a.jpg"));
    isFileManager_ = false;
    EXPECT_EQ(errorOf({QStringLiteral("file:///a.jpg")}), QDBusError::AccessDenied);
    EXPECT_FALSE(std::filesystem::exists(program.folder().file("ran")));
    isFileManager_ = true;
    EXPECT_EQ(placesOf({QStringLiteral("file:///a.jpg")}), QStringList({kPlace}));
    EXPECT_TRUE(std::filesystem::exists(program.folder().file("ran")));
}

TEST_F(PlaceRequestsTest, refusesThisTestAsAFileManager)
{
    EXPECT_EQ(fileManagerKindOfSender(getpid()), nullptr);
    requests_.reset();
    requests_.emplace(window_.connection());
    requests_->listen();
    EXPECT_EQ(errorOf({QStringLiteral("file:///a.jpg")}), QDBusError::AccessDenied);
}

TEST_F(PlaceRequestsTest, startsNothingForWhatIsNoLocalFile)
{
    const test::SearchProgram program("touch \"$FOLDER/ran\"");
    const QStringList hostile = {QStringLiteral("https://example.org/b.jpg"),
                                 QStringLiteral("file:///b%00.jpg"),
                                 QStringLiteral("file://elsewhere.example/b.jpg"),
                                 QStringLiteral("file:b.jpg"),
                                 QStringLiteral("/b.jpg"),
                                 QString(),
                                 QStringLiteral("--help"),
                                 QStringLiteral("file:///") + QString(1 << 18, QLatin1Char('b'))};
    EXPECT_EQ(placesOf(hostile), QStringList(hostile.size(), QString()));
    EXPECT_EQ(placesOf({}), QStringList());
    EXPECT_FALSE(std::filesystem::exists(program.folder().file("ran")));
}

TEST_F(PlaceRequestsTest, keepsTheOrderAroundWhatIsNoLocalFile)
{
    const test::SearchProgram program(test::located("/b.jpg"));
    EXPECT_EQ(placesOf({QStringLiteral("trash:///b.jpg"), QStringLiteral("file:///b.jpg"),
                        QStringLiteral("file:///c.jpg")}),
              QStringList({{}, kPlace, {}}));
}

TEST_F(PlaceRequestsTest, takes256UrisAndRefusesMore)
{
    const test::SearchProgram program(test::located("/a.jpg"));
    const QString uri = QStringLiteral("file:///a.jpg");
    EXPECT_EQ(placesOf(QStringList(256, uri)), QStringList(256, kPlace));
    EXPECT_EQ(errorOf(QStringList(257, uri)), QDBusError::InvalidArgs);
}

TEST_F(PlaceRequestsTest, refusesUrisThatAreTooLongTogether)
{
    const test::SearchProgram program(test::located("/a.jpg"));
    const QString uri = QStringLiteral("file:///") + QString(4096, QLatin1Char('b'));
    EXPECT_EQ(placesOf({QStringLiteral("file:///a.jpg"), uri}), QStringList({kPlace, {}}));
    EXPECT_EQ(errorOf(QStringList(256, uri)), QDBusError::InvalidArgs);
    EXPECT_EQ(errorOf({QStringLiteral("file:///") + QString(1 << 20, QLatin1Char('b'))}),
              QDBusError::InvalidArgs);
    EXPECT_EQ(placesOf({QStringLiteral("file:///a.jpg")}), QStringList({kPlace}));
}

TEST_F(PlaceRequestsTest, refusesAFloodAndGoesOn)
{
    const test::SearchProgram program("while [ ! -e \"$FOLDER/go\" ]; do sleep 0.05; done\n" +
                                      test::located("/a.jpg"));
    std::vector<Reply> replies;
    for (int i = 0; i < 60; i++) replies.push_back(ask({QStringLiteral("file:///a.jpg")}));
    ASSERT_TRUE(hasCome(replies.back()));
    EXPECT_EQ(replies.back().error().type(), QDBusError::LimitsExceeded);
    EXPECT_FALSE(replies.front().isFinished());
    (void)program.folder().write("go", "");
    std::size_t given = 0;
    for (const Reply& reply : replies) {
        ASSERT_TRUE(hasCome(reply));
        given += reply.isError() ? 0 : 1;
    }
    EXPECT_GE(given, PlaceRequests::kMaxRequests);
    EXPECT_LE(given, PlaceRequests::kMaxRequests + 1);
    EXPECT_EQ(placesOf({QStringLiteral("file:///a.jpg")}), QStringList({kPlace}));
}

TEST_F(PlaceRequestsTest, runsOneProcessAtATime)
{
    const test::SearchProgram program(
        "mkdir \"$FOLDER/runs\" || touch \"$FOLDER/two\"\n"
        "sleep 0.2\n"
        "rmdir \"$FOLDER/runs\"");
    std::vector<Reply> replies;
    for (int i = 0; i < 5; i++) replies.push_back(ask({QStringLiteral("file:///a.jpg")}));
    for (const Reply& reply : replies) {
        ASSERT_TRUE(hasCome(reply));
        EXPECT_FALSE(reply.isError());
    }
    EXPECT_FALSE(std::filesystem::exists(program.folder().file("two")));
}

TEST_F(PlaceRequestsTest, givesEmptyPlacesIfTheProgramDies)
{
    {
        const test::SearchProgram program("kill -KILL $$");
        EXPECT_EQ(placesOf({QStringLiteral("file:///a.jpg")}), QStringList({QString()}));
    }
    const test::ScopedVariable set("PINORAMA_SEARCH", "/nowhere/pinorama-search");
    EXPECT_EQ(placesOf({QStringLiteral("file:///a.jpg")}), QStringList({QString()}));
}

TEST_F(PlaceRequestsTest, givesEmptyPlacesWhenTheTimeIsOver)
{
    listen(300ms, 30s);
    const test::SearchProgram program("exec sleep 1000");
    const Reply first = ask({QStringLiteral("file:///a.jpg")});
    ASSERT_TRUE(test::waitUntil([&] { return requests_->processID() > 0; }));
    EXPECT_EQ(placesOf({QStringLiteral("file:///b.jpg")}), QStringList({QString()}))
        << "that waits for the first";
    EXPECT_FALSE(first.isFinished());
    listen(30s, 300ms);
    EXPECT_EQ(placesOf({QStringLiteral("file:///c.jpg")}), QStringList({QString()}));
}

TEST_F(PlaceRequestsTest, repliesWhenItEndsMeanwhile)
{
    const test::SearchProgram program("exec sleep 1000");
    const Reply first = ask({QStringLiteral("file:///a.jpg"), QStringLiteral("file:///b.jpg")});
    const Reply second = ask({QStringLiteral("file:///c.jpg")});
    ASSERT_TRUE(test::waitUntil([&] { return requests_->processID() > 0; }));
    const qint64 process = requests_->processID();
    requests_.reset();
    ASSERT_TRUE(hasCome(first));
    EXPECT_EQ(first.value(), QStringList(2, QString()));
    ASSERT_TRUE(hasCome(second));
    EXPECT_TRUE(test::waitUntil([&] { return test::isGone(process); }));
    const Reply later = ask({QStringLiteral("file:///a.jpg")});
    ASSERT_TRUE(hasCome(later));
    EXPECT_EQ(later.error().type(), QDBusError::ServiceUnknown);
}

TEST_F(PlaceRequestsTest, refusesEveryOtherCall)
{
    for (const char* member : {"listen", "deleteLater", "take", "Quit"}) {
        const Reply reply = call(QString::fromLatin1(member));
        ASSERT_TRUE(hasCome(reply));
        EXPECT_EQ(reply.error().type(), QDBusError::UnknownMethod) << member;
    }
    const Reply wrong = call(QStringLiteral("PlacesOf"), {QStringLiteral("file:///a.jpg")});
    ASSERT_TRUE(hasCome(wrong));
    EXPECT_TRUE(wrong.isError());
}
