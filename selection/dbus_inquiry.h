// Questions over D-Bus that follow from each other, written as one function: it asks, waits with
// co_await, and goes on with the answers. The same function runs either while somebody waits for
// it, up to a deadline, or piece by piece in the event loop. One thread; nothing here blocks
// without a bound.
//
//     Task<int> countThings(Inquiry& inquiry, Accessible object)
//     {
//         const QDBusMessage question = childCountQuestion(object);
//         co_return numberIn(co_await inquiry.answer(question)).value_or(0);
//     }
//
// What may be used after a co_await is told in task.h. Every question has a name: GCC 12 never
// destroys some of the temporary objects inside a co_await.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QString>

#include <chrono>
#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "selection/task.h"

namespace pinorama {

using Clock = std::chrono::steady_clock;

// Several questions for Inquiry::answers. GCC 12 does not compile an initializer list inside a
// co_await.
template <typename... Questions>
std::vector<QDBusMessage> together(const Questions&... questions)
{
    std::vector<QDBusMessage> all;
    (all.push_back(questions), ...);
    return all;
}

// The same question about each of several things.
template <typename Things, typename Question>
std::vector<QDBusMessage> questionsAbout(const Things& things, Question question)
{
    std::vector<QDBusMessage> all;
    all.reserve(std::size(things));
    for (const auto& thing : things) all.push_back(question(thing));
    return all;
}

class Inquiry {
public:
    using OutlivesItsTasks = void;  // holds its work and every task that this waits for

    // Asks over `bus`. A question without an answer after `limit` counts as failed.
    Inquiry(const QDBusConnection& bus, std::chrono::milliseconds limit);
    ~Inquiry();  // drops the work where it is; answers that still come are not looked at
    Inquiry(const Inquiry&) = delete;
    Inquiry& operator=(const Inquiry&) = delete;

    // Starts the work and runs it up to its first question.
    void begin(Task<Done> work);

    // Sleeps until the answers are there and goes on with the work, until it has ended (true) or
    // the moment has come and an answer is missing (false).
    bool finishUntil(Clock::time_point moment);

    // Does work for its value and sleeps until that is there, or nothing when the moment has come.
    template <typename Value>
    std::optional<Value> valueUntil(Task<Value> work, Clock::time_point moment)
    {
        const auto value = std::make_shared<std::optional<Value>>();
        begin(keepValue(std::move(work), value));
        if (!finishUntil(moment)) return std::nullopt;
        return std::move(*value);
    }

    // Lets the event loop go on with the work from here; `whenDone` is called at its end. The
    // inquiry may be destroyed in it.
    void letRun(std::function<void()> whenDone);

    bool isDone() const { return work_.isDone(); }

    // The programs (their names on the bus) that have not answered yet.
    std::vector<QString> unanswered() const;

    // For the work itself: the answers to questions that are asked all at once, in their order. An
    // error message stands for what got no answer.
    class Answers {
    public:
        explicit Answers(Inquiry& inquiry) : inquiry_(inquiry) {}
        bool await_ready() const { return inquiry_.allAnswered(); }
        void await_suspend(std::coroutine_handle<> waiting) { inquiry_.wait(waiting); }
        std::vector<QDBusMessage> await_resume() { return inquiry_.takeAnswers(); }

    protected:
        Inquiry& inquiry_;
    };
    class Answer : private Answers {
    public:
        using Answers::Answers;
        using Answers::await_ready;
        using Answers::await_suspend;

        // Borrowed until the next answer, so that no message is temporary here either: for the
        // expression that awaits it, and not to be kept.
        const QDBusMessage& await_resume() { return inquiry_.takeAnswer(); }
    };
    Answers answers(const std::vector<QDBusMessage>& questions);
    Answer answer(const QDBusMessage& question);

    // The same on another bus than the inquiry's own.
    Answers answersFrom(const QDBusConnection& bus, const std::vector<QDBusMessage>& questions);

    // Asks at once, without waiting: the next answers() begin with the answer to this question.
    void askAlong(const QDBusMessage& question) { ask(bus_, question); }
    void askAlong(const QDBusConnection& bus, const QDBusMessage& question) { ask(bus, question); }

private:
    struct Question {
        QString service;
        QDBusPendingCall call;
    };

    template <typename Value>
    static Task<Done> keepValue(Task<Value> work, std::shared_ptr<std::optional<Value>> outValue)
    {
        outValue->emplace(co_await work);
        co_return {};
    }

    bool allAnswered() const;
    void wait(std::coroutine_handle<> waiting);
    std::vector<QDBusMessage> takeAnswers();
    const QDBusMessage& takeAnswer();
    void ask(const QDBusConnection& bus, const QDBusMessage& question);
    void watch();
    void goOn();

    QDBusConnection bus_;
    std::chrono::milliseconds limit_;
    Clock::time_point moment_ = Clock::time_point::max();  // at which a waiting caller gives up
    std::vector<Question> questions_;
    QDBusMessage answer_;
    std::vector<std::unique_ptr<QDBusPendingCallWatcher>> watchers_;
    std::coroutine_handle<> waiting_;
    std::function<void()> whenDone_;
    bool runsInEventLoop_ = false;
    Task<Done> work_;  // last, so that it goes first
};

}  // namespace pinorama
