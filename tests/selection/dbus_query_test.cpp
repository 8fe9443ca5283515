#include "selection/dbus_query.h"

#include "selection/accessible.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDBusConnection>

#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::FakeFileManager;

constexpr auto kLimit = 10s;  // no test comes near it

class DBusQueryRunUntil : public testing::Test {
public:
    using OutlivesItsTasks = void;

protected:
    void SetUp() override
    {
        if (!bus_.isConnected()) GTEST_SKIP() << "no session bus can be started";
        program_ = makeProgram();
    }

    static std::unique_ptr<FakeFileManager> makeProgram()
    {
        return std::make_unique<FakeFileManager>(
            FakeFileManager::Kind::selection, "/",
            std::vector<QString>{QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    }

    static Accessible item(const FakeFileManager& program, int place)
    {
        return {program.service(), QStringLiteral("/org/a11y/atspi/accessible/%1")
                                       .arg(FakeFileManager::kFirstItem + place)};
    }

    // Gets the names of the objects with all calls at once.
    Task<Done> getNames(DBusQuery& query, std::vector<Accessible> objects)
    {
        std::vector<QDBusMessage> calls;
        for (const Accessible& object : objects) calls.push_back(nameCall(object));
        const auto replies = co_await query.replies(calls);
        for (const QDBusMessage& reply : replies)
            names_.push_back(textIn(reply).value_or(QStringLiteral("no name")));
        co_return {};
    }

    // Gets one name after the other.
    Task<Done> getNamesInTurn(DBusQuery& query, std::vector<Accessible> objects)
    {
        for (const Accessible& object : objects) {
            const QDBusMessage call = nameCall(object);
            names_.push_back(textIn(co_await query.reply(call)).value_or(""));
        }
        co_return {};
    }

    // Gets the name of one object along with those of others.
    Task<Done> getNameAlong(DBusQuery& query, Accessible object, std::vector<Accessible> others)
    {
        query.sendAlong(nameCall(object));
        co_await getNames(query, others);
        co_return {};
    }

    // Gets one name after the other, and sends the calls for some of them ahead.
    Task<Done> getNamesSentAhead(DBusQuery& query, std::vector<Accessible> ahead,
                                 std::vector<Accessible> objects)
    {
        query.sendAhead(callsFor(ahead, nameCall));
        co_await getNamesInTurn(query, objects);
        co_return {};
    }

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    std::unique_ptr<FakeFileManager> program_;
    std::vector<QString> names_;
};

// An event leads to calls that are sent ahead, and mostly to none.
TEST_F(DBusQueryRunUntil, goesOnInTheEventLoopAfterAnEventBetweenAReplyAndItsArrivalThere)
{
    DBusQuery query(bus_, kLimit);
    query.start(getNames(query, {item(*program_, 1), item(*program_, 0)}));
    bool isDone = false;
    query.continueInEventLoop([&isDone] { isDone = true; });
    // Replies arrive in the order of the calls, so that those two are here.
    ASSERT_TRUE(textIn(bus_.call(nameCall(item(*program_, 0)))));
    query.sendAhead(std::vector<QDBusMessage>());
    EXPECT_TRUE(test::waitUntil([&isDone] { return isDone; }));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(DBusQueryRunUntil, givesTheRepliesInTheOrderOfTheCalls)
{
    DBusQuery query(bus_, kLimit);
    query.start(getNames(query, {item(*program_, 1), item(*program_, 0)}));
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(DBusQueryRunUntil, continuesWithTheCallsThatFollow)
{
    DBusQuery query(bus_, kLimit);
    query.start(getNamesInTurn(query, {item(*program_, 1), item(*program_, 0)}));
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(DBusQueryRunUntil, givesTheReplyToACallSentAlongFirst)
{
    DBusQuery query(bus_, kLimit);
    query.start(getNameAlong(query, item(*program_, 1), {item(*program_, 0)}));
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(DBusQueryRunUntil, givesTheRepliesToCallsSentAheadAfterOneRoundTrip)
{
    const std::vector<Accessible> items = {item(*program_, 1), item(*program_, 0)};
    DBusQuery inTurn(bus_, kLimit);
    inTurn.start(getNamesInTurn(inTurn, items));
    EXPECT_TRUE(inTurn.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(inTurn.roundTrips(), 2);
    EXPECT_EQ(inTurn.sentAheadAt(), std::nullopt);

    names_.clear();
    (void)program_->takeCalls();
    DBusQuery ahead(bus_, kLimit);
    ahead.start(getNamesSentAhead(ahead, items, items));
    EXPECT_TRUE(ahead.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
    EXPECT_EQ(ahead.roundTrips(), 1);
    EXPECT_EQ(program_->takeCalls(), (std::vector<std::string>{"101 Name", "100 Name"}));
    EXPECT_NE(ahead.sentAheadAt(), std::nullopt);
}

TEST_F(DBusQueryRunUntil, asksAgainForAReplyThatWasUsed)
{
    const Accessible first = item(*program_, 0);
    (void)program_->takeCalls();
    DBusQuery query(bus_, kLimit);
    query.start(getNamesSentAhead(query, {first}, {item(*program_, 1), first, first}));
    ASSERT_TRUE(query.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg", "a.jpg"}));
    EXPECT_EQ(program_->takeCalls(),
              (std::vector<std::string>{"100 Name", "101 Name", "100 Name"}));
}

TEST_F(DBusQueryRunUntil, dropsRepliesThatNobodyAsksFor)
{
    DBusQuery query(bus_, kLimit);
    query.start(getNamesSentAhead(query, {item(*program_, 1)}, {item(*program_, 0)}));
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"a.jpg"}));
}

TEST_F(DBusQueryRunUntil, returnsImmediatelyIfThereAreNoCalls)
{
    DBusQuery query(bus_, kLimit);
    query.start(getNames(query, {}));
    EXPECT_TRUE(query.runUntil(Clock::now()));
}

TEST_F(DBusQueryRunUntil, givesUpAtTheTimeoutAndNamesTheServiceWithoutReply)
{
    const auto other = makeProgram();
    other->setReplying(false);
    constexpr auto kTimeout = 2s;  // within which the one that replies does so on a busy machine
    DBusQuery query(bus_, kTimeout);
    query.start(getNames(query, {item(*other, 0), item(*program_, 0)}));
    EXPECT_FALSE(query.runUntil(Clock::now() + kTimeout));
    EXPECT_EQ(query.servicesWithoutReply(), std::vector<QString>{other->service()});
    EXPECT_TRUE(names_.empty());
    EXPECT_FALSE(query.isDone());
}

TEST_F(DBusQueryRunUntil, givesUpAtTheDeadlineHoweverLongTheTimeout)
{
    program_->setReplying(false);
    DBusQuery query(bus_, 100ms);
    query.start(getNamesInTurn(query, {item(*program_, 0)}));
    EXPECT_FALSE(query.runUntil(Clock::now() + 10ms));
    EXPECT_EQ(query.servicesWithoutReply(), std::vector<QString>{program_->service()});
}

TEST_F(DBusQueryRunUntil, continuesIfAProgramLeavesTheBus)
{
    program_->setReplying(false);
    DBusQuery query(bus_, kLimit);
    query.start(getNames(query, {item(*program_, 0)}));
    std::thread leaving([&] {
        std::this_thread::sleep_for(50ms);
        program_.reset();
    });
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    leaving.join();
    EXPECT_EQ(names_, std::vector<QString>{"no name"});
}

// Polling for a reply would keep the processor awake.
TEST_F(DBusQueryRunUntil, sleepsUntilTheReplyArrives)
{
    const auto sleeps = [] {
        rusage usage = {};
        getrusage(RUSAGE_THREAD, &usage);
        return usage.ru_nvcsw;
    };
    program_->setReplying(false);
    DBusQuery query(bus_, kLimit);
    query.start(getNames(query, {item(*program_, 0), item(*program_, 1)}));
    std::thread answering([&] {
        std::this_thread::sleep_for(200ms);
        program_->setReplying(true);
    });
    const long before = sleeps();
    EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
    const long count = sleeps() - before;
    answering.join();
    EXPECT_EQ(names_, (std::vector<QString>{"a.jpg", "b.jpg"}));
    EXPECT_LE(count, 20);
}
}  // namespace
