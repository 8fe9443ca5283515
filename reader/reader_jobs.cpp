#include "reader/reader_jobs.h"

#include "reader/reader_socket.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kReadAtOnce = 64 * 1024;
constexpr std::size_t kMaxKept = 512 * 1024;  // bytes; a preview of the usual size takes less
constexpr int kMaxInterruptions = 32;         // of one preview
constexpr int kMaxReports = 1000;             // in one turn; there are five a second
}  // namespace

ReaderJobs::ReaderJobs(std::function<void(const ReaderJob& job)> onTurn)
    : onTurn_(std::move(onTurn)),
      // Most replies fill a small part of it, and the rest is never touched.
      chunk_(std::make_unique_for_overwrite<std::uint8_t[]>(kReadAtOnce))
{
}

void ReaderJobs::add(ReaderTask task, int descriptor, PixelSize box, PropertyResult* result)
{
    jobs_.push_back({.task = task,
                     .number = nextNumber_++,
                     .descriptor = descriptor,
                     .box = box,
                     .propertyResult = result});
}

void ReaderJobs::giveUp(Selector isMeant)
{
    std::erase_if(jobs_, [isMeant](const ReaderJob& job) { return isMeant(job) && !job.isSent; });
    for (ReaderJob& job : jobs_) job.isGivenUp = job.isGivenUp || isMeant(job);
}

void ReaderJobs::giveUpPlaces()
{
    for (ReaderJob& job : jobs_) job.isGivenUp = job.isGivenUp || job.propertyResult != nullptr;
    for (ReaderJob& job : jobs_) job.propertyResult = nullptr;
    giveUp([](const ReaderJob& job) { return job.isGivenUp; });
}

bool ReaderJobs::isWaitedFor(Selector isMeant) const
{
    return std::any_of(jobs_.begin(), jobs_.end(),
                       [isMeant](const ReaderJob& job) { return isMeant(job) && !job.isGivenUp; });
}

// A reader that is not ready yet finds the requests when it is.
void ReaderJobs::send(int socket)
{
    std::size_t next = 0;
    while (next < jobs_.size()) {
        if (jobs_[next].isSent) {
            next++;
        } else if (!sendBatch(socket, next, kMaxDescriptors)) {
            return;
        }
    }
}

// Sends the job at `first` and, if it asks for properties, up to `max` with those after it that do,
// too: together they cost the reader one wake-up. False when nothing more can be sent for now.
bool ReaderJobs::sendBatch(int socket, std::size_t first, std::size_t max)
{
    ReaderRequest request = {jobs_[first].task, jobs_[first].number, 0, jobs_[first].box};
    std::vector<int> descriptors;
    if (!asksForProperties(request.task) || jobs_[first].isAlone) max = 1;
    for (std::size_t i = first; i < jobs_.size() && descriptors.size() < max; i++) {
        const bool isApart = i > first && jobs_[i].isAlone;
        const bool belongs = jobs_[i].task == request.task && !jobs_[i].isSent && !isApart &&
                             jobs_[i].number == request.number + descriptors.size();
        if (!belongs) break;
        descriptors.push_back(jobs_[i].descriptor);
    }
    request.descriptorCount = static_cast<std::uint16_t>(descriptors.size());
    switch (sendRequest(socket, encodeRequest(request), descriptors)) {
    case SendOutcome::sent: break;
    case SendOutcome::impossible:
        // One of them is not open; which one shows when they are sent one by one.
        if (descriptors.size() > 1) return sendBatch(socket, first, 1);
        finish(jobs_[first], ReadOutcome::failed);
        jobs_.erase(jobs_.begin() + static_cast<std::ptrdiff_t>(first));
        return true;
    default: return false;  // when the reader is gone, receiving will find out
    }
    const Clock::time_point now = Clock::now();
    for (std::size_t i = first; i < first + descriptors.size(); i++) {
        jobs_[i].isSent = true;
        jobs_[i].hasCompany = descriptors.size() > 1;
        jobs_[i].sent = now;
        if (jobs_[i].interruptions == 0) jobs_[i].firstSent = now;
    }
    if (first == 0) beginTurn();
    return true;
}

ReaderJobs::Received ReaderJobs::receive(int socket)
{
    const std::ptrdiff_t count = receiveBytes(socket, {chunk_.get(), kReadAtOnce});
    if (count < 0) return {.isBroken = true};
    input_.insert(input_.end(), chunk_.get(), chunk_.get() + count);
    Received received;
    while (takeReply(socket, &received)) {
    }
    if (taken_ != 0) {
        input_.erase(input_.begin(), input_.begin() + static_cast<std::ptrdiff_t>(taken_));
        taken_ = 0;
    }
    // The next reply is hardly ever as large as that of a large preview.
    if (input_.empty() && input_.capacity() > kMaxKept) std::vector<std::uint8_t>().swap(input_);
    received.isMore = count == static_cast<std::ptrdiff_t>(kReadAtOnce);
    return received;
}

// Takes the next reply out of what has come. False if it is not complete, or is malformed.
bool ReaderJobs::takeReply(int socket, Received* received)
{
    const ByteView input = ByteView(input_).subspan(taken_);
    if (input.size() < kReplyHeaderSize) return false;
    // Not ready: this has to be the first word. Otherwise it has to be the reply to a request.
    received->isBroken = isReady_ && !isFrontSent();
    if (received->isBroken) return false;
    const ReaderTask task = isReady_ ? jobs_.front().task : ReaderTask::hello;
    const std::uint32_t number = isReady_ ? jobs_.front().number : 0;
    const std::size_t maxLength = isReady_ ? maxBodyLength(task, jobs_.front().box) : 0;
    const std::optional<ReplyHeader> header =
        decodeReplyHeader(input.first(kReplyHeaderSize), task, number, maxLength);
    received->isBroken = !header;
    if (received->isBroken) return false;
    const std::size_t length = kReplyHeaderSize + header->bodyLength;
    if (input.size() < length) return false;
    if (!isReady_) {
        becomeReady(socket);
        received->wasFirstWord = true;
    } else if (finishFront(*header, input.subspan(kReplyHeaderSize, header->bodyLength))) {
        const bool isOwn =
            header->outcome == ReplyOutcome::found || header->outcome == ReplyOutcome::nothing;
        received->wasReply = received->wasReply || isOwn;
        if (header->outcome == ReplyOutcome::failed) received->failures++;
    } else {
        received->isBroken = true;
        return false;
    }
    taken_ += length;
    return true;
}

void ReaderJobs::becomeReady(int socket)
{
    isReady_ = true;
    // The time of what it has been sent already begins now.
    for (ReaderJob& job : jobs_) {
        if (job.isSent) job.sent = job.firstSent = Clock::now();
    }
    beginTurn();
    send(socket);
}

// The oldest job's turn begins, if it is with the reader.
void ReaderJobs::beginTurn()
{
    reportedTime_.reset();
    reports_ = 0;
    if (isReady_ && isFrontSent()) onTurn_(jobs_.front());
}

// False if the body is malformed.
bool ReaderJobs::finishFront(const ReplyHeader& header, ByteView body)
{
    const ReaderJob& job = jobs_.front();
    switch (header.outcome) {
    case ReplyOutcome::atWork: reportedTime_ = decodeReport(body); return ++reports_ <= kMaxReports;
    case ReplyOutcome::interrupted: return finishInterrupted();
    case ReplyOutcome::failed: dropFront(ReadOutcome::failed); return true;
    case ReplyOutcome::nothing: dropFront(ReadOutcome::nothing); return true;
    case ReplyOutcome::found: break;
    }
    if (asksForProperties(job.task)) {
        std::optional<PictureProperties> properties = decodeProperties(body);
        if (!properties) return false;
        if (job.propertyResult != nullptr) {
            job.propertyResult->properties = std::move(*properties);
        } else if (!job.isGivenUp) {
            results_.properties = PropertyResult{ReadOutcome::found, std::move(*properties)};
        }
    } else {
        std::optional<PreviewReply> reply = decodePreview(body, kindOf(job.task), job.box);
        if (!reply) return false;
        if (!job.isGivenUp) results_.preview = PreviewResult{ReadOutcome::found, std::move(*reply)};
    }
    dropFront(ReadOutcome::found);
    return true;
}

// The reader gave the job up: on request, or a preview for the sake of another request. False if
// neither can be.
bool ReaderJobs::finishInterrupted()
{
    const ReaderJob& job = jobs_.front();
    if (job.stopRequested) {
        dropFront(job.isStuck ? ReadOutcome::stuck : ReadOutcome::failed);
        return true;
    }
    if (asksForProperties(job.task) || job.interruptions >= kMaxInterruptions) return false;
    sendFrontLater();
    return true;
}

// The reader gave a preview up for the sake of another request; it is next after that.
void ReaderJobs::sendFrontLater()
{
    ReaderJob job = jobs_.front();
    jobs_.pop_front();
    beginTurn();
    if (job.isGivenUp) return;
    job.isSent = false;
    job.interruptions++;
    job.number = nextNumber_++;
    jobs_.push_back(job);
}

bool ReaderJobs::stopFront(int socket)
{
    const ReaderRequest request = {ReaderTask::giveUp, jobs_.front().number, 0, {}};
    if (sendRequest(socket, encodeRequest(request), {}) != SendOutcome::sent) return false;
    jobs_.front().stopRequested = Clock::now();
    return true;
}

void ReaderJobs::disconnect()
{
    isReady_ = false;
    input_.clear();
    taken_ = 0;
}

void ReaderJobs::sendAgain()
{
    std::erase_if(jobs_, [](const ReaderJob& job) { return job.isGivenUp; });
    for (ReaderJob& job : jobs_) {
        job.isSent = job.isStuck = false;
        job.stopRequested.reset();
    }
    beginTurn();
}

void ReaderJobs::separateBatch()
{
    for (ReaderJob& job : jobs_) job.isAlone = job.isAlone || (job.isSent && job.hasCompany);
}

void ReaderJobs::finish(const ReaderJob& job, ReadOutcome outcome)
{
    if (job.propertyResult != nullptr) {
        job.propertyResult->outcome = outcome;
    } else if (job.isGivenUp || outcome == ReadOutcome::found) {
        return;  // nobody waits for it, or it has been kept already
    } else if (asksForProperties(job.task)) {
        results_.properties = PropertyResult{outcome, {}};
    } else {
        results_.preview = PreviewResult{outcome, {}};
    }
}

void ReaderJobs::dropFront(ReadOutcome outcome)
{
    finish(jobs_.front(), outcome);
    jobs_.pop_front();
    beginTurn();  // of the next one
}

void ReaderJobs::dropAll(ReadOutcome outcome)
{
    while (!jobs_.empty()) dropFront(outcome);
}

}  // namespace pinorama
