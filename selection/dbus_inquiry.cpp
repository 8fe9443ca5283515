#include "selection/dbus_inquiry.h"

#include <QDBusError>

#include <algorithm>

namespace pinorama {
namespace {
// Whether a question has ended without a word from the program that was asked.
bool isUnanswered(const QDBusPendingCall& call)
{
    return !call.isFinished() || QDBusError(call.reply()).type() == QDBusError::NoReply;
}
}  // namespace

Inquiry::Inquiry(const QDBusConnection& bus, std::chrono::milliseconds limit)
    : bus_(bus), limit_(limit)
{
}

Inquiry::~Inquiry() = default;

void Inquiry::begin(Task<Done> work)
{
    work_ = std::move(work);
    work_.start();
}

bool Inquiry::finishUntil(Clock::time_point moment)
{
    moment_ = moment;
    const auto aboutTheEnd = moment - limit_ / 16;  // the toolkit's timers may be that early
    while (!work_.isDone()) {
        // What was asked last is mostly answered last: whoever waits for it first wakes up once.
        // Nobody waits for longer than the question's own limit.
        for (auto question = questions_.rbegin(); question != questions_.rend(); ++question)
            question->call.waitForFinished();
        if (Clock::now() >= aboutTheEnd && !unanswered().empty()) return false;
        std::exchange(waiting_, {}).resume();
    }
    return true;
}

void Inquiry::letRun(std::function<void()> whenDone)
{
    whenDone_ = std::move(whenDone);
    runsInEventLoop_ = true;
    if (!work_.isDone()) return watch();
    const auto done = std::exchange(whenDone_, {});
    if (done) done();
}

std::vector<QString> Inquiry::unanswered() const
{
    std::vector<QString> services;
    for (const Question& question : questions_) {
        if (isUnanswered(question.call)) services.push_back(question.service);
    }
    return services;
}

Inquiry::Answers Inquiry::answers(const std::vector<QDBusMessage>& questions)
{
    return answersFrom(bus_, questions);
}

Inquiry::Answers Inquiry::answersFrom(const QDBusConnection& bus,
                                      const std::vector<QDBusMessage>& questions)
{
    for (const QDBusMessage& question : questions) ask(bus, question);
    return Answers(*this);
}

Inquiry::Answer Inquiry::answer(const QDBusMessage& question)
{
    ask(bus_, question);
    return Answer(*this);
}

bool Inquiry::allAnswered() const
{
    return std::all_of(questions_.begin(), questions_.end(),
                       [](const Question& question) { return question.call.isFinished(); });
}

void Inquiry::wait(std::coroutine_handle<> waiting)
{
    waiting_ = waiting;
    if (runsInEventLoop_) watch();
}

std::vector<QDBusMessage> Inquiry::takeAnswers()
{
    std::vector<QDBusMessage> answers;
    answers.reserve(questions_.size());
    for (const Question& question : questions_) answers.push_back(question.call.reply());
    questions_.clear();
    return answers;
}

const QDBusMessage& Inquiry::takeAnswer()
{
    answer_ = questions_.front().call.reply();
    questions_.clear();
    return answer_;
}

void Inquiry::ask(const QDBusConnection& bus, const QDBusMessage& question)
{
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(moment_ - Clock::now());
    const milliseconds limit = std::clamp(left, milliseconds(1), limit_);
    questions_.push_back(
        {question.service(), bus.asyncCall(question, static_cast<int>(limit.count()))});
}

void Inquiry::watch()
{
    watchers_.clear();
    for (const Question& question : questions_) {
        const bool isLast = &question == &questions_.back();
        // The last one is watched in any case: it may have been answered since the last look.
        if (question.call.isFinished() && !(isLast && watchers_.empty())) continue;
        auto watcher = std::make_unique<QDBusPendingCallWatcher>(question.call);
        QObject::connect(watcher.get(), &QDBusPendingCallWatcher::finished, watcher.get(),
                         [this] { goOn(); });
        watchers_.push_back(std::move(watcher));
    }
}

void Inquiry::goOn()
{
    if (!waiting_ || !allAnswered()) return;
    // A watcher must not be destroyed while it signals; it goes when the event loop has the word.
    for (auto& watcher : watchers_) {
        watcher->disconnect();
        watcher.release()->deleteLater();
    }
    watchers_.clear();
    std::exchange(waiting_, {}).resume();
    if (!work_.isDone()) return;
    const auto done = std::exchange(whenDone_, {});
    if (done) done();  // may destroy this inquiry
}

}  // namespace pinorama
