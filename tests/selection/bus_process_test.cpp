#include "selection/bus_process.h"

#include "tests/desktop/bus_programs.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDBusError>
#include <QVariantList>

#include <memory>
#include <optional>

using namespace pinorama;

namespace {
using Process = std::optional<pid_t>;
const QString kName = QStringLiteral("org.pinorama.Tests.BusProcess");

class askForProcessTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!program_.connection().isConnected()) GTEST_SKIP() << "no session bus can be started";
    }

    void ask(const QString& name)
    {
        askForProcess(program_.connection(), name, receiver_.get(), [this](Process process) {
            process_ = process;
            calls_++;
        });
    }

    // After this, the replies to all calls before it have arrived, and were taken.
    void waitForReplies()
    {
        const int before = others_;
        askForProcess(program_.connection(), program_.connection().baseService(), &other_,
                      [this](Process) { others_++; });
        EXPECT_TRUE(test::waitUntil([&] { return others_ > before; }));
    }

    test::Program program_{QStringLiteral("asks for processes")};
    std::unique_ptr<QObject> receiver_ = std::make_unique<QObject>();
    QObject other_;
    Process process_;
    int calls_ = 0;
    int others_ = 0;
};

QDBusMessage replyWith(const QVariantList& values)
{
    return processCall(kName).createReply(values);
}
}  // namespace

TEST_F(askForProcessTest, findsTheProcessOfAUniqueNameAndOfAWellKnownOne)
{
    QDBusConnection connection = program_.connection();
    ASSERT_TRUE(connection.registerService(kName));
    for (const QString& name : {connection.baseService(), kName}) {
        process_.reset();
        ask(name);
        EXPECT_EQ(process_, std::nullopt) << "before the event loop runs";
        waitForReplies();
        EXPECT_EQ(process_, getpid());
    }
    EXPECT_EQ(calls_, 2);
    EXPECT_TRUE(connection.unregisterService(kName));
}

TEST_F(askForProcessTest, findsNothingForANameThatNobodyHas)
{
    process_ = getpid();
    ask(kName);
    waitForReplies();
    EXPECT_EQ(process_, std::nullopt);
    EXPECT_EQ(calls_, 1);
}

TEST_F(askForProcessTest, callsNobodyAfterTheReceiverIsGone)
{
    ask(program_.connection().baseService());
    receiver_.reset();
    waitForReplies();
    EXPECT_EQ(calls_, 0);
}

// The thread of the bus has such a reply before the event loop hears of it.
TEST_F(askForProcessTest, callsAlsoIfTheReplyCameBeforeTheEventLoopRan)
{
    ask(program_.connection().baseService());
    // Replies arrive in the order of the calls, so that the first one is here.
    ASSERT_EQ(processIn(program_.connection().call(processCall(kName))), std::nullopt);
    EXPECT_TRUE(test::waitUntil([this] { return calls_ > 0; }));
    EXPECT_EQ(process_, getpid());
}

TEST(processIn, isNothingUnlessTheReplyNamesAProcess)
{
    const struct {
        const char* what;
        QDBusMessage reply;
        Process process;
    } rows[] = {
        {"a process", replyWith({7U}), 7},
        {"the largest number of a process", replyWith({0x7fffffffU}), 0x7fffffff},
        {"a number that no process has", replyWith({0x80000000U}), std::nullopt},
        {"another such number", replyWith({0xffffffffU}), std::nullopt},
        {"nobody", replyWith({0U}), std::nullopt},
        {"no value", replyWith({}), std::nullopt},
        {"a text", replyWith({QStringLiteral("7")}), std::nullopt},
        {"an error", processCall(kName).createErrorReply(QDBusError::ServiceUnknown, QString()),
         std::nullopt},
        {"nothing", QDBusMessage(), std::nullopt},
    };
    for (const auto& row : rows) EXPECT_EQ(processIn(row.reply), row.process) << row.what;
}
