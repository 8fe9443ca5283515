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
// Every question has a name: GCC 12 never destroys some of the temporary objects inside a co_await.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QString>

#include <chrono>
#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

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

// What a function that asks returns: it starts when it is awaited, and the value is ready when it
// has run to its end. Dropping a task that has not ended drops everything that it holds.
template <typename Value>
class [[nodiscard]] Task {
public:
    struct promise_type {
        std::optional<Value> value;
        std::coroutine_handle<> caller = std::noop_coroutine();

        struct BackToCaller {
            bool await_ready() noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<promise_type> self) noexcept
            {
                return self.promise().caller;
            }
            void await_resume() noexcept {}
        };

        Task get_return_object()
        {
            return Task(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        BackToCaller final_suspend() noexcept { return {}; }
        void return_value(Value result) { value.emplace(std::move(result)); }
        void unhandled_exception() { std::terminate(); }  // only memory can run out here
    };

    Task() = default;
    Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, {})) {}
    Task& operator=(Task&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Task()
    {
        if (handle_) handle_.destroy();
    }

    void start() { handle_.resume(); }
    bool isDone() const { return !handle_ || handle_.done(); }

    bool await_ready() const { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> caller)
    {
        handle_.promise().caller = caller;
        return handle_;
    }
    Value await_resume()
    {
        // Whoever waits is woken up by the end, which has set it.
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access)
        return std::move(*handle_.promise().value);
    }

private:
    explicit Task(std::coroutine_handle<promise_type> handle) : handle_(handle) {}

    std::coroutine_handle<promise_type> handle_;
};

// The value of a task that is run for what it does.
struct Done {};

class Inquiry {
public:
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

        // Borrowed until the next answer, so that no message is temporary here either.
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

}  // namespace platform
