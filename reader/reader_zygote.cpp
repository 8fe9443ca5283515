#include "reader/reader_zygote.h"

#include "base/descriptor.h"
#include "reader/reader_process.h"
#include "reader/reader_protocol.h"
#include "reader/reader_socket.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <poll.h>

namespace pinorama {
namespace {
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kBetweenReports = 200ms;
// Before the next process is forked beside one that reads: most have replied by then, and their
// replies come first.
constexpr auto kBeforeFork = 5ms;
// Before another look at whether a process that a disk kept asleep is gone.
constexpr auto kBetweenLooks = 50ms;       // while a picture waits for that
constexpr auto kBetweenIdleLooks = 500ms;  // while none does

// The client gives up a picture long before these; they hold if it does not.
constexpr std::chrono::seconds kMaxPropertiesTime(5);
constexpr std::chrono::seconds kMaxPreviewTime(20);

struct Picture {
    ReaderRequest request;  // for this one alone
    DescriptorHolder file;
};

// What has come of one reply.
class PartialReply {
public:
    explicit PartialReply(const ReaderRequest& request) : request_(request) {}

    // Takes in what has come from a process. False if it is gone, or what it sent is malformed.
    bool receive(int socket)
    {
        for (;;) {
            const std::size_t wanted = missing();
            if (wanted == 0) return true;
            const std::size_t before = bytes_.size();
            bytes_.resize(before + wanted);
            const std::ptrdiff_t count =
                receiveBytes(socket, std::span(bytes_).subspan(before, wanted));
            bytes_.resize(before + static_cast<std::size_t>(std::max<std::ptrdiff_t>(count, 0)));
            if (count < 0) return false;
            if (count == 0) return true;
            if (!header_ && missing() == 0 && !readHeader()) return false;
        }
    }

    bool isComplete() const { return header_ && missing() == 0; }
    ByteView bytes() const { return bytes_; }

private:
    std::size_t missing() const
    {
        const std::size_t length = kReplyHeaderSize + (header_ ? header_->bodyLength : 0);
        return length - bytes_.size();
    }

    // Only the zygote says that a process was interrupted, has failed or is at work.
    bool readHeader()
    {
        header_ = decodeReplyHeader(bytes_, request_.task, request_.number,
                                    maxBodyLength(request_.task, request_.box));
        return header_ && (header_->outcome == ReplyOutcome::found ||
                           header_->outcome == ReplyOutcome::nothing);
    }

    ReaderRequest request_;
    std::vector<std::uint8_t> bytes_{};
    std::optional<ReplyHeader> header_{};
};

// A process with the picture that it reads.
struct Work {
    ReaderProcess process;
    ReaderRequest request;
    PartialReply reply;
    Clock::time_point began;
};

class Zygote {
public:
    Zygote(int socket, const std::function<void(int socket)>& readPicture)
        : socket_(socket), readPicture_(readPicture)
    {
    }

    ~Zygote()
    {
        // Without waiting for them, which the sandbox does not allow.
        spare_.end(0ms);
        if (work_) work_->process.end(0ms);
    }
    Zygote(const Zygote&) = delete;
    Zygote& operator=(const Zygote&) = delete;

    // Waits for one thing to happen and does what follows. False when there is no more to do.
    bool step();

private:
    bool takesMessages() const;
    bool hasRoom() const { return lingeringReaders() + (work_ ? 1 : 0) < kMaxChildren; }
    int millisecondsLeft() const;
    bool takeMessage();
    bool giveUp(std::uint32_t number);
    bool takeReply();
    bool report();
    bool isReportDue() const;
    bool begin();
    void endWork();
    bool finish(ReplyOutcome outcome);
    bool finishFront(ReplyOutcome outcome);
    bool sendOutcome(const ReaderRequest& request, ReplyOutcome outcome, ByteView body) const;

    const int socket_;
    const std::function<void(int socket)>& readPicture_;
    bool hasClient_ = true;
    std::deque<Picture> waiting_{};
    ReaderProcess spare_{};  // has seen no picture
    std::optional<Work> work_{};
    Clock::time_point reported_{};  // about the oldest picture
};

// Requests are read ahead, so that one to give up is seen behind them, but not without a limit.
bool Zygote::takesMessages() const
{
    return hasClient_ && waiting_.size() <= kMaxDescriptors;
}

int Zygote::millisecondsLeft() const
{
    if (!work_ && waiting_.empty()) {
        return lingeringReaders() == 0 ? -1 : static_cast<int>(kBetweenIdleLooks.count());
    }
    if (!work_) return static_cast<int>(kBetweenLooks.count());
    const Clock::time_point now = Clock::now();
    Clock::time_point when = reported_ + kBetweenReports;
    if (!spare_ && hasRoom()) when = std::min(when, work_->began + kBeforeFork);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(when - now);
    return static_cast<int>(std::max(left, 0ms).count());
}

bool Zygote::step()
{
    if (!hasClient_ && !work_ && waiting_.empty()) return false;
    pollfd states[] = {{takesMessages() ? socket_ : -1, POLLIN, 0},
                       {work_ ? work_->process.socket() : -1, POLLIN, 0}};
    (void)poll(states, 2, millisecondsLeft());
    // The reply first: it may be complete by the time that a message gives its picture up.
    if (states[1].revents != 0 && !takeReply()) return false;
    if (states[0].revents != 0 && !takeMessage()) return false;
    if (!work_ && !waiting_.empty() && !begin()) return false;
    const bool isTimeToFork = !work_ || Clock::now() >= work_->began + kBeforeFork;
    if (!spare_ && isTimeToFork && hasRoom()) spare_ = forkReader(readPicture_);
    return !isReportDue() || report();
}

// False when a malformed message came.
bool Zygote::takeMessage()
{
    std::array<std::uint8_t, kRequestSize> bytes;
    std::vector<DescriptorHolder> files;
    if (!receiveRequest(socket_, bytes, &files)) {
        hasClient_ = false;
        return true;
    }
    const std::optional<ReaderRequest> request = decodeRequest(bytes);
    if (!request || files.size() != request->descriptorCount) return false;
    if (request->task == ReaderTask::giveUp) return giveUp(request->number);
    ReaderRequest single = *request;
    single.descriptorCount = 1;
    for (DescriptorHolder& file : files) {
        waiting_.push_back({single, std::move(file)});
        single.number++;
    }
    const bool isInTheWay = work_ && !asksForProperties(work_->request.task);
    return !isInTheWay || finish(ReplyOutcome::interrupted);
}

// The client gives up the oldest picture only; another number is that of a reply on its way to it.
bool Zygote::giveUp(std::uint32_t number)
{
    if (work_ && work_->request.number == number) return finish(ReplyOutcome::interrupted);
    if (work_ || waiting_.empty() || waiting_.front().request.number != number) return true;
    return finishFront(ReplyOutcome::interrupted);
}

bool Zygote::takeReply()
{
    if (!work_->reply.receive(work_->process.socket())) return finish(ReplyOutcome::failed);
    if (!work_->reply.isComplete()) return true;
    // First what somebody waits for.
    const bool isSent = sendAll(socket_, work_->reply.bytes());
    endWork();
    return isSent;
}

bool Zygote::isReportDue() const
{
    return (work_ || !waiting_.empty()) && Clock::now() >= reported_ + kBetweenReports;
}

// What the oldest picture has cost so far: nothing while it waits.
bool Zygote::report()
{
    reported_ = Clock::now();
    const auto time = work_ ? work_->process.processorTime() : 0ns;
    return sendOutcome(work_ ? work_->request : waiting_.front().request, ReplyOutcome::atWork,
                       encodeReport(time));
}

// Gives the oldest picture to the process that waits for one. Without a process there is nothing to
// be done but to wait for one of the others to be gone.
bool Zygote::begin()
{
    const ReaderRequest& request = waiting_.front().request;
    const bool isPreview = !asksForProperties(request.task);
    if (isPreview && waiting_.size() > 1) return finishFront(ReplyOutcome::interrupted);
    const int file = waiting_.front().file.get();
    for (int attempt = 0; attempt < 2; attempt++) {
        if (!spare_ && !hasRoom()) return true;
        if (!spare_) spare_ = forkReader(readPicture_);
        const SendOutcome outcome =
            spare_ ? sendRequest(spare_.socket(), encodeRequest(request), std::span(&file, 1))
                   : SendOutcome::impossible;
        if (outcome == SendOutcome::full) return true;  // tried again soon
        if (outcome == SendOutcome::sent) {
            spare_.limitProcessorTime(isPreview ? kMaxPreviewTime : kMaxPropertiesTime);
            reported_ = Clock::now();
            work_.emplace(Work{std::move(spare_), request, PartialReply(request), reported_});
            spare_ = ReaderProcess();
            waiting_.pop_front();
            return true;
        }
        spare_.end(0ms);  // it died while it waited
    }
    return finishFront(ReplyOutcome::failed);
}

void Zygote::endWork()
{
    work_->process.end(0ms);
    work_.reset();
}

// Ends the picture that is being read without a reply of its process.
bool Zygote::finish(ReplyOutcome outcome)
{
    const bool isSent = sendOutcome(work_->request, outcome, {});
    endWork();
    return isSent;
}

// The same for the oldest one that waits.
bool Zygote::finishFront(ReplyOutcome outcome)
{
    const ReaderRequest request = waiting_.front().request;
    waiting_.pop_front();
    return sendOutcome(request, outcome, {});
}

// False if the client is gone.
bool Zygote::sendOutcome(const ReaderRequest& request, ReplyOutcome outcome, ByteView body) const
{
    const auto header = encodeReplyHeader(
        {request.task, outcome, request.number, static_cast<std::uint32_t>(body.size())});
    std::vector<std::uint8_t> bytes(header.begin(), header.end());
    bytes.insert(bytes.end(), body.begin(), body.end());
    return sendAll(socket_, bytes);
}
}  // namespace

void serveInChildren(int socket, const std::function<void(int socket)>& readPicture)
{
    if (!sendAll(socket, encodeReplyHeader({ReaderTask::hello, ReplyOutcome::found, 0, 0}))) {
        return;
    }
    Zygote zygote(socket, readPicture);
    while (zygote.step()) {
    }
}

}  // namespace pinorama
