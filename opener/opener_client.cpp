#include "opener/opener_client.h"

#include "base/child_process.h"
#include "base/resource_folder.h"
#include "opener/opener_service.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr const char* kProgramName = "pinorama-opener";
constexpr int kMaxDeaths = 2;  // of openers over one path: it is not to blame for the first

// Where libraries are found by programs in unusual places, and the options of sanitizers.
constexpr const char* kInherited[] = {"LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS"};
}  // namespace

OpenerProcess startOpenerProgram(const std::string& path)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return {};
    DescriptorHolder near(ends[0]);
    const DescriptorHolder far(ends[1]);
    ProgramStart start = {.arguments = {path.find('/') == path.npos ? "./" + path : path},
                          .environment = {"LC_ALL=C"},
                          .descriptors = {kNullDevice, kNullDevice, kOwnDescriptor, far.get()},
                          .isApart = true};
    static_assert(kOpenerSocket == 3, "comes after the standard streams");
    for (const char* name : kInherited) {
        const char* value = std::getenv(name);
        if (value != nullptr) start.environment.push_back(std::string(name) + "=" + value);
    }
    const pid_t process = spawnProgram(std::move(start));
    if (process < 0) return {};
    return {process, std::move(near)};
}

std::string openerProgram()
{
    const char* set = std::getenv("PINORAMA_OPENER");
    if (set != nullptr && *set != '\0') return set;
    const std::string folder = programFolder();
    std::string beside = folder + "/" + kProgramName;
    if (access(beside.c_str(), X_OK) == 0) return beside;
    return folder + "/../" PINORAMA_LIBEXEC_DIR "/" + kProgramName;
}

OpenerClient::OpenerClient(OpenerLauncher launcher)
    : launcher_(std::move(launcher)), events_(epoll_create1(EPOLL_CLOEXEC))
{
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
    while (!openers_.empty()) lose(openers_.size() - 1);
}

void OpenerClient::request(const std::string& path)
{
    giveUp();
    path_ = path;
    deaths_ = 0;
    // A zero byte would silently name another file.
    if (path.empty() || path.find('\0') != path.npos) {
        return settle(OpenStage::done, {DescriptorHolder(), std::nullopt, ENOENT});
    }
    if (path.size() > kMaxOpenPath) {
        return settle(OpenStage::done, {DescriptorHolder(), std::nullopt, ENAMETOOLONG});
    }
    settle(OpenStage::waiting);
    advance();  // openers may have come back meanwhile
    if (stage_ == OpenStage::waiting && number_ == 0) ask();
}

void OpenerClient::giveUp()
{
    number_ = 0;
    settle(OpenStage::none);
}

PictureFile OpenerClient::take()
{
    PictureFile file = std::move(file_);
    giveUp();
    return file;
}

bool OpenerClient::isOver() const
{
    return stage_ != OpenStage::waiting && stage_ != OpenStage::looked;
}

void OpenerClient::settle(OpenStage stage, PictureFile file)
{
    stage_ = stage;
    file_ = std::move(file);
}

OpenStage OpenerClient::wait(std::chrono::milliseconds max)
{
    const auto end = std::chrono::steady_clock::now() + max;
    while (!isOver()) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0) break;
        pollfd state = {events_.get(), POLLIN, 0};
        (void)poll(&state, 1, static_cast<int>(left.count()));
        advance();
    }
    return stage_;
}

void OpenerClient::advance()
{
    for (std::size_t i = openers_.size(); i > 0; i--) receive(i - 1);
    endSurplus();
    collectEnded();
}

std::size_t OpenerClient::countAtWork() const
{
    return static_cast<std::size_t>(
        std::ranges::count_if(openers_, [](const auto& opener) { return opener->number != 0; }));
}

// An opener without a request, started if there may be one more; null if there is none.
OpenerClient::Opener* OpenerClient::idleOpener()
{
    for (const auto& opener : openers_) {
        if (opener->number == 0) return opener.get();
    }
    if (openers_.size() >= kMaxOpeners) return nullptr;
    OpenerProcess process = launcher_();
    if (process.process < 0) return nullptr;
    epoll_event event = {};
    event.events = EPOLLIN;
    (void)epoll_ctl(events_.get(), EPOLL_CTL_ADD, process.socket.get(), &event);
    openers_.push_back(std::make_unique<Opener>());
    openers_.back()->process = std::move(process);
    return openers_.back().get();
}

std::vector<std::uint64_t> OpenerClient::fileSystemsToLeaveAlone() const
{
    std::vector<std::uint64_t> devices;
    const std::size_t atWork = countAtWork();
    for (const auto& opener : openers_) {
        if (opener->number == 0 || opener->device == 0) continue;
        const auto here =
            static_cast<std::size_t>(std::ranges::count_if(openers_, [&](const auto& other) {
                return other->number != 0 && other->device == opener->device;
            }));
        const bool isFull = here >= kMaxInFileSystem || atWork > here;
        if (isFull && std::ranges::find(devices, opener->device) == devices.end()) {
            devices.push_back(opener->device);
        }
    }
    return devices;
}

// Has an opener look at what is wanted, or waits until one comes back.
void OpenerClient::ask()
{
    for (const auto& opener : openers_) {
        if (opener->number == 0 || opener->path != path_) continue;
        number_ = opener->number;
        if (opener->hasLooked)
            settle(OpenStage::looked, std::move(opener->looked));
        else
            settle(OpenStage::waiting);
        return;
    }
    OpenRequest request = {
        .number = nextNumber_++, .leftAlone = fileSystemsToLeaveAlone(), .path = path_};
    if (nextNumber_ == 0) nextNumber_ = 1;
    Opener* const opener = idleOpener();
    if (opener == nullptr) {
        return settle(openers_.size() >= kMaxOpeners ? OpenStage::leftAlone : OpenStage::noOpener);
    }
    settle(OpenStage::waiting);
    number_ = opener->number = request.number;
    opener->path = path_;
    opener->device = 0;
    opener->hasLooked = false;
    // One that is gone is seen to be when it is heard the next time.
    (void)sendOpenMessage(opener->process.socket.get(), messageOf(request));
}

// Takes in what an opener has sent.
void OpenerClient::receive(std::size_t index)
{
    Opener& opener = *openers_[index];
    while (true) {
        OpenMessage message = receiveOpenMessage(opener.process.socket.get(), false);
        if (message.outcome == OpenMessage::Outcome::none) return;
        std::optional<OpenReply> reply;
        if (message.outcome == OpenMessage::Outcome::received) reply = openReplyIn(message.bytes);
        if (!reply || reply->number != opener.number || opener.number == 0) return lose(index);
        take(opener, *reply, std::move(message.descriptor));
    }
}

void OpenerClient::take(Opener& opener, OpenReply reply, DescriptorHolder descriptor)
{
    const bool isWanted = opener.number == number_;
    switch (reply.event) {
    case OpenEvent::entering: opener.device = reply.device; return;
    case OpenEvent::leftAlone:
        // It has not waited for anything, and so nobody else has waited for it.
        opener.number = 0;
        if (!isWanted) return;
        number_ = 0;
        return settle(OpenStage::leftAlone);
    case OpenEvent::looked:
        opener.hasLooked = true;
        opener.looked = PictureFile(DescriptorHolder(), reply.item, reply.error);
        break;
    case OpenEvent::opened: {
        const auto item = isWanted ? file_.item() : std::nullopt;
        // Without room for one more descriptor the system leaves it out.
        const int error = descriptor ? 0 : EMFILE;
        if (isWanted) file_ = PictureFile(std::move(descriptor), item, error);
        break;
    }
    }
    const bool isLast = reply.event == OpenEvent::opened || !reply.isOpen;
    if (isWanted && reply.event == OpenEvent::looked) {
        settle(OpenStage::looked, std::move(opener.looked));
    }
    if (isWanted && isLast) {
        number_ = 0;
        stage_ = OpenStage::done;
    }
    if (isLast) finish(opener);
}

// An opener has come back: what waits for one may go on.
void OpenerClient::finish(Opener& opener)
{
    opener.number = 0;
    opener.looked = {};
    if (stage_ == OpenStage::leftAlone) ask();
}

// Lets an opener go, and has another one do what it had to do.
void OpenerClient::lose(std::size_t index)
{
    const std::unique_ptr<Opener> opener = std::move(openers_[index]);
    openers_.erase(openers_.begin() + static_cast<std::ptrdiff_t>(index));
    kill(opener->process.process, SIGKILL);
    ended_.push_back(opener->process.process);
    collectEnded();
    if (number_ != 0 && opener->number == number_) {
        number_ = 0;
        settle(OpenStage::waiting);
        if (++deaths_ >= kMaxDeaths) return settle(OpenStage::noOpener);
        ask();
    } else if (opener->number != 0 && stage_ == OpenStage::leftAlone) {
        ask();
    }
}

// One idle opener is enough.
void OpenerClient::endSurplus()
{
    bool isOneIdle = false;
    for (std::size_t i = 0; i < openers_.size(); i++) {
        if (openers_[i]->number != 0) continue;
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
