#include "selection/dbus_inquiry.h"

#include "selection/accessible.h"
#include "tests/selection/stand_in_file_manager.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDBusConnection>

#include <chrono>
#include <memory>
#include <thread>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::StandInFileManager;

constexpr auto kLimit = 10s;  // no test comes near it

class InquiryFinishUntil : public testing::Test {
public:
    using OutlivesItsTasks = void;

protected:
    void SetUp() override
    {
        if (!bus_.isConnected()) GTEST_SKIP() << "no session bus can be started";
        program_ = makeProgram();
    }

    static std::unique_ptr<StandInFileManager> makeProgram()
    {
        return std::make_unique<StandInFileManager>(
            StandInFileManager::Kind::selection, "/",
            std::vector<QString>{QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    }

    static Accessible item(const StandInFileManager& program, int place)
    {
        return {program.service(), QStringLiteral("/org/a11y/atspi/accessible/%1")
                                       .arg(StandInFileManager::kFirstItem + place)};
    }

    // Asks for the names of the objects all at once.
    Task<Done> askNames(Inquiry& inquiry, std::vector<Accessible> objects)
    {
        std::vector<QDBusMessage> questions;
        for (const Accessible& object : objects) questions.push_back(nameQuestion(object));
        const auto answers = co_await inquiry.answers(questions);
        for (const QDBusMessage& answer : answers)
            names_.push_back(textIn(answer).value_or(QStringLiteral("no name")));
        co_return {};
    }

    // Asks for one name after the other.
    Task<Done> askNamesInTurn(Inquiry& inquiry, std::vector<Accessible> objects)
    {
        for (const Accessible& object : objects) {
            const QDBusMessage question = nameQuestion(object);
            names_.push_back(textIn(co_await inquiry.answer(question)).value_or(""));
        }
        co_return {};
    }

    // Asks for the name of one object along with those of others.
    Task<Done> askNameAlong(Inquiry& inquiry, Accessible object, std::vector<Accessible> others)
    {
        inquiry.askAlong(nameQuestion(object));
        co_await askNames(inquiry, others);
        co_return {};
    }

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    std::unique_ptr<StandInFileManager> program_;
    std::vector<QString> names_;
};

TEST_F(InquiryFinishUntil, givesTheAnswersInTheOrderOfTheQuestions)
{
    Inquiry inquiry(bus_, kLimit);
    inquiry.begin(askNames(inquiry, {item(*program_, 1), item(*program_, 0)}));
    EXPECT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(InquiryFinishUntil, goesOnToTheQuestionsThatFollow)
{
    Inquiry inquiry(bus_, kLimit);
    inquiry.begin(askNamesInTurn(inquiry, {item(*program_, 1), item(*program_, 0)}));
    EXPECT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(InquiryFinishUntil, putsWhatWasAskedAlongInFront)
{
    Inquiry inquiry(bus_, kLimit);
    inquiry.begin(askNameAlong(inquiry, item(*program_, 1), {item(*program_, 0)}));
    EXPECT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
    EXPECT_EQ(names_, (std::vector<QString>{"b.jpg", "a.jpg"}));
}

TEST_F(InquiryFinishUntil, isDoneAtOnceWhenNothingIsAsked)
{
    Inquiry inquiry(bus_, kLimit);
    inquiry.begin(askNames(inquiry, {}));
    EXPECT_TRUE(inquiry.finishUntil(Clock::now()));
}

TEST_F(InquiryFinishUntil, givesUpAndNamesWhoDoesNotAnswer)
{
    const auto other = makeProgram();
    other->setAnswering(false);
    Inquiry inquiry(bus_, 50ms);
    inquiry.begin(askNames(inquiry, {item(*other, 0), item(*program_, 0)}));
    EXPECT_FALSE(inquiry.finishUntil(Clock::now() + 50ms));
    EXPECT_EQ(inquiry.unanswered(), std::vector<QString>{other->service()});
    EXPECT_TRUE(names_.empty());
    EXPECT_FALSE(inquiry.isDone());
}

TEST_F(InquiryFinishUntil, givesUpAtTheMomentHoweverLongAQuestionMayTake)
{
    program_->setAnswering(false);
    Inquiry inquiry(bus_, 100ms);
    inquiry.begin(askNamesInTurn(inquiry, {item(*program_, 0)}));
    EXPECT_FALSE(inquiry.finishUntil(Clock::now() + 10ms));
    EXPECT_EQ(inquiry.unanswered(), std::vector<QString>{program_->service()});
}

TEST_F(InquiryFinishUntil, goesOnWithoutAProgramThatLeaves)
{
    program_->setAnswering(false);
    Inquiry inquiry(bus_, kLimit);
    inquiry.begin(askNames(inquiry, {item(*program_, 0)}));
    std::thread leaving([&] {
        std::this_thread::sleep_for(50ms);
        program_.reset();
    });
    EXPECT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
    leaving.join();
    EXPECT_EQ(names_, std::vector<QString>{"no name"});
}

// Looking again and again for an answer keeps a processor from resting.
TEST_F(InquiryFinishUntil, sleepsUntilTheAnswerIsThere)
{
    const auto sleeps = [] {
        rusage usage = {};
        getrusage(RUSAGE_THREAD, &usage);
        return usage.ru_nvcsw;
    };
    program_->setAnswering(false);
    Inquiry inquiry(bus_, kLimit);
    inquiry.begin(askNames(inquiry, {item(*program_, 0), item(*program_, 1)}));
    std::thread answering([&] {
        std::this_thread::sleep_for(200ms);
        program_->setAnswering(true);
    });
    const long before = sleeps();
    EXPECT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
    const long count = sleeps() - before;
    answering.join();
    EXPECT_EQ(names_, (std::vector<QString>{"a.jpg", "b.jpg"}));
    EXPECT_LE(count, 20);
}
}  // namespace
