#include "opener/opener_client.h"

#include "opener/opener_socket.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <tuple>
#include <utility>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr int kMaxDeaths = 2;  // of openers over one path: it is not to blame for the first

// Messages of one opener that are taken in at once: a folder of many files has thousands.
constexpr int kMaxAtOnce = 8;

void watch(int events, int descriptor)
{
    epoll_event event = {};
    event.events = EPOLLIN;
    (void)epoll_ctl(events, EPOLL_CTL_ADD, descriptor, &event);
}

// What is known of a file that is not open yet.
PictureFile fileOf(const OpenReply& looked)
{
    return {DescriptorHolder(), looked.item, looked.error};
}
}  // namespace

OpenerClient::OpenerClient(OpenerLauncher launcher)
    : launcher_(std::move(launcher)),
      events_(epoll_create1(EPOLL_CLOEXEC)),
      news_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      file_(std::make_shared<OpenerQuestion>())
{
    watch(events_.get(), news_.get());
}

OpenerClient::~OpenerClient()
{
    stop();
}

void OpenerClient::start()
{
    if (openers_.empty()) (void)idleOpener();
}

void OpenerClient::stop()
{
    giveUp();
    for (const auto& question : questions_) {
        if (const SharedQuestion left = question.lock()) settle(*left, OpenStage::noOpener);
    }
    questions_.clear();
    while (!openers_.empty()) lose(openers_.size() - 1);
    passNewsOn();
}

void OpenerClient::request(const std::string& path, OpenTask task)
{
    giveUp();
    OpenerQuestion& file = *file_;
    file.request_ = {.task = task, .paths = {path}};
    file.deaths_ = 0;
    // A zero byte would silently name another file.
    const bool isNone = path.empty() || path.find('\0') != path.npos;
    if (isNone || path.size() > kMaxOpenPath) {
        file.stage_ = OpenStage::done;
        file.file_ = {DescriptorHolder(), std::nullopt, isNone ? ENOENT : ENAMETOOLONG};
        return;
    }
    file.stage_ = OpenStage::waiting;
    takeIn();  // openers may have come back meanwhile
    if (file.stage_ == OpenStage::waiting && file.number_ == 0) ask(file);
    passNewsOn();
}

std::shared_ptr<OpenerQuestion> OpenerClient::ask(OpenRequest request,
                                                  OpenerQuestion::TakeNames take)
{
    return begin(
        std::make_shared<OpenerQuestion>(std::move(request), std::move(take), DescriptorHolder()));
}

std::shared_ptr<OpenerQuestion> OpenerClient::save(const std::string& path,
                                                   DescriptorHolder content)
{
    return begin(std::make_shared<OpenerQuestion>(
        OpenRequest{.task = OpenTask::save, .paths = {path}}, nullptr, std::move(content)));
}

std::shared_ptr<OpenerQuestion> OpenerClient::begin(SharedQuestion question)
{
    question->stage_ = OpenStage::waiting;
    takeIn();
    questions_.push_back(question);
    ask(*question);
    passNewsOn();
    return question;
}

void OpenerClient::giveUp()
{
    file_->number_ = 0;
    file_->stage_ = OpenStage::none;
    file_->file_ = {};
}

PictureFile OpenerClient::take()
{
    PictureFile file = std::move(file_->file_);
    giveUp();
    return file;
}

OpenStage OpenerClient::wait(std::chrono::milliseconds max)
{
    return wait(*file_, max);
}

// Replies to other questions may arrive meanwhile, which the event loop has to notice.
OpenStage OpenerClient::wait(const OpenerQuestion& question, std::chrono::milliseconds max)
{
    std::uint64_t news = 0;
    owesNews_ = read(news_.get(), &news, sizeof news) > 0 || owesNews_;
    waitedFor_ = &question;
    const auto end = std::chrono::steady_clock::now() + max;
    while (!question.isOver()) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0) break;
        pollfd state = {events_.get(), POLLIN, 0};
        (void)poll(&state, 1, static_cast<int>(left.count()));
        takeIn();
    }
    waitedFor_ = nullptr;
    passNewsOn();
    return question.stage();
}

void OpenerClient::advance()
{
    std::uint64_t news = 0;
    std::ignore = read(news_.get(), &news, sizeof news);
    takeIn();
    owesNews_ = false;
}

void OpenerClient::settle(OpenerQuestion& question, OpenStage stage)
{
    question.stage_ = stage;
    if (&question != waitedFor_) owesNews_ = true;
}

// Makes the event loop call advance().
void OpenerClient::passNewsOn()
{
    const std::uint64_t one = 1;
    if (std::exchange(owesNews_, false)) std::ignore = write(news_.get(), &one, sizeof one);
}

void OpenerClient::takeIn()
{
    for (std::size_t i = openers_.size(); i > 0; i--) receive(i - 1);
    closeReleased();
    endSurplus();
    collectEnded();
}

// All that somebody wants to know, the file first.
std::vector<std::shared_ptr<OpenerQuestion>> OpenerClient::questions() const
{
    std::vector<SharedQuestion> all = {file_};
    for (const auto& weak : questions_) {
        if (auto question = weak.lock()) all.push_back(std::move(question));
    }
    return all;
}

// Those that its reply is for.
std::vector<std::shared_ptr<OpenerQuestion>> OpenerClient::questionsOf(
    const OpenerAtWork& opener) const
{
    std::vector<SharedQuestion> all = questions();
    std::erase_if(all, [&](const auto& question) {
        return opener.number == 0 || question->number_ != opener.number;
    });
    return all;
}

// An opener without a request, started if there may be one more; null if there is none.
OpenerAtWork* OpenerClient::idleOpener()
{
    for (const auto& opener : openers_) {
        if (opener->isIdle()) return opener.get();
    }
    if (openers_.size() >= kMaxOpeners) return nullptr;
    OpenerProcess process = launcher_();
    if (process.process < 0) return nullptr;
    watch(events_.get(), process.socket.get());
    openers_.push_back(std::make_unique<OpenerAtWork>());
    openers_.back()->process = std::move(process);
    return openers_.back().get();
}

// Lets the question wait for an opener that has the same request already, if there is one.
bool OpenerClient::joins(OpenerQuestion& question)
{
    for (const auto& opener : openers_) {
        if (opener->number == 0 || opener->hasNamed || !isSame(opener->request, question.request_))
            continue;
        question.number_ = opener->number;
        question.stage_ = opener->looked ? OpenStage::looked : OpenStage::waiting;
        if (opener->looked) question.file_ = fileOf(*opener->looked);
        return true;
    }
    return false;
}

// Has an opener look at what is wanted, or waits until one comes back.
void OpenerClient::ask(OpenerQuestion& question)
{
    if (joins(question)) return;
    OpenRequest request = question.request_;
    request.leftAlone = fileSystemsToLeaveAlone(openers_);
    OpenerAtWork* const opener = idleOpener();
    if (opener == nullptr) {
        const bool isFull = openers_.size() >= kMaxOpeners;
        question.stage_ = isFull ? OpenStage::leftAlone : OpenStage::noOpener;
        return;
    }
    question.stage_ = OpenStage::waiting;
    question.file_ = {};
    opener->device = 0;
    question.number_ = assign(*opener, std::move(request), question.content_.get());
}

// Has an idle opener do something. Returns the number of the request.
std::uint32_t OpenerClient::assign(OpenerAtWork& opener, OpenRequest request, int content)
{
    request.number = opener.number = nextNumber_++;
    if (nextNumber_ == 0) nextNumber_ = 1;
    // One that is gone is seen to be when it is heard the next time.
    (void)sendOpenMessage(opener.process.socket.get(), messageOf(request), content);
    opener.request = std::move(request);
    opener.looked.reset();
    opener.hasNamed = false;
    return opener.number;
}

// Takes in what an opener has sent.
void OpenerClient::receive(std::size_t index)
{
    OpenerAtWork& opener = *openers_[index];
    for (int i = 0; i < kMaxAtOnce; i++) {
        OpenMessage message = receiveOpenMessage(opener.process.socket.get(), false);
        if (message.outcome == OpenMessage::Outcome::none) return;
        std::optional<OpenReply> reply;
        if (message.outcome == OpenMessage::Outcome::received) reply = openReplyIn(message.bytes);
        if (!reply || !opener.mayReply(*reply)) return lose(index);
        take(opener, std::move(*reply), std::move(message.descriptor));
    }
}

void OpenerClient::take(OpenerAtWork& opener, OpenReply reply, DescriptorHolder descriptor)
{
    const std::vector<SharedQuestion> wanted = questionsOf(opener);
    bool isLast = true;
    switch (reply.event) {
    case OpenEvent::entering:
        opener.device = reply.device;
        // It has left another file system behind, which may be the one that is waited for.
        askThoseLeftAlone();
        return;
    case OpenEvent::leftAlone:
        // It has not waited for anything, and so nobody else has waited for it.
        opener.number = 0;
        for (const SharedQuestion& question : wanted) {
            question->number_ = 0;
            settle(*question, OpenStage::leftAlone);
        }
        // Meanwhile an opener may have left that file system behind.
        if (!isToBeLeftAlone(openers_, reply.device)) askThoseLeftAlone();
        return;
    case OpenEvent::looked:
        isLast = !reply.isOpen;
        opener.looked = reply;
        for (const SharedQuestion& question : wanted) {
            question->file_ = fileOf(reply);
            settle(*question, OpenStage::looked);
        }
        break;
    case OpenEvent::keeps: opener.kept++; return;
    case OpenEvent::released: opener.released.push_back(reply.device); return;
    case OpenEvent::closed: opener.kept--; break;
    case OpenEvent::names:
        isLast = reply.isLast;
        opener.hasNamed = true;
        [[fallthrough]];
    default:
        for (const SharedQuestion& question : wanted) question->take(reply, descriptor);
    }
    if (!isLast) return;
    for (const SharedQuestion& question : wanted) {
        question->number_ = 0;
        settle(*question, OpenStage::done);
    }
    finish(opener);
}

// An opener has come back: what waits for one may go on.
void OpenerClient::finish(OpenerAtWork& opener)
{
    opener.number = 0;
    opener.looked.reset();
    askThoseLeftAlone();
}

void OpenerClient::askThoseLeftAlone()
{
    for (const SharedQuestion& question : questions()) {
        if (question->stage_ == OpenStage::leftAlone) ask(*question);
    }
}

// Lets an opener go, and has another one do what it had to do.
void OpenerClient::lose(std::size_t index)
{
    const std::unique_ptr<OpenerAtWork> opener = std::move(openers_[index]);
    openers_.erase(openers_.begin() + static_cast<std::ptrdiff_t>(index));
    kill(opener->process.process, SIGKILL);
    ended_.push_back(opener->process.process);
    collectEnded();
    for (const SharedQuestion& question : questionsOf(*opener)) {
        question->number_ = 0;
        question->file_ = {};
        const bool isOver = ++question->deaths_ >= kMaxDeaths || question->hasNames_;
        settle(*question, isOver ? OpenStage::noOpener : OpenStage::waiting);
        if (!isOver) ask(*question);
    }
    if (opener->number != 0) askThoseLeftAlone();
}

// Has files closed that only openers have open. That may take any time, so a question that waits
// for an opener comes first.
void OpenerClient::closeReleased()
{
    for (const SharedQuestion& question : questions()) {
        if (question->stage_ == OpenStage::waiting && question->number_ == 0) return;
    }
    for (const auto& opener : openers_) {
        if (!opener->isIdle() || opener->released.empty() ||
            isToBeLeftAlone(openers_, opener->released.front()))
            continue;
        opener->device = opener->released.front();
        opener->released.pop_front();
        assign(*opener, {.task = OpenTask::close}, -1);
    }
}

// One idle opener is enough. What keeps a file has to live until the file can be closed.
void OpenerClient::endSurplus()
{
    std::erase_if(questions_, [](const auto& question) { return question.expired(); });
    bool isOneIdle = std::ranges::any_of(
        openers_, [](const auto& opener) { return opener->isIdle() && opener->kept > 0; });
    for (std::size_t i = 0; i < openers_.size(); i++) {
        if (!openers_[i]->isIdle() || openers_[i]->kept > 0) continue;
        if (!std::exchange(isOneIdle, true)) continue;
        lose(i--);
    }
}

void OpenerClient::collectEnded()
{
    std::erase_if(ended_, [](pid_t process) {
        return waitpid(process, nullptr, WNOHANG) != 0;  // gone, or not ours any more
    });
}

}  // namespace pinorama
