#include "reader/reader_client.h"

#include "reader/reader_socket.h"

#include <utility>

namespace pinorama {
namespace {

constexpr int kMostInterruptions = 32;  // of one preview

PreviewKind kindOf(ReaderTask task)
{
    return task == ReaderTask::cachedThumbnail ? PreviewKind::cachedThumbnail
                                               : PreviewKind::picture;
}
}  // namespace

// A reader that is not ready yet finds the requests when it is.
void ReaderClient::sendJobs()
{
    std::size_t next = 0;
    while (process_ && next < jobs_.size()) {
        if (jobs_[next].isSent) {
            next++;
        } else if (!sendBatch(next, kMostDescriptors)) {
            return;
        }
    }
}

// Sends the job at `first` and, when it asks for properties, up to `most` with those behind it that
// do, too. False when nothing more can be sent for now.
bool ReaderClient::sendBatch(std::size_t first, std::size_t most)
{
    ReaderRequest request = {jobs_[first].task, jobs_[first].number, 0, jobs_[first].box};
    std::vector<int> descriptors;
    if (request.task != ReaderTask::properties || jobs_[first].isAlone) most = 1;
    for (std::size_t i = first; i < jobs_.size() && descriptors.size() < most; i++) {
        const bool isApart = i > first && jobs_[i].isAlone;
        const bool belongs = jobs_[i].task == request.task && !jobs_[i].isSent && !isApart &&
                             jobs_[i].number == request.number + descriptors.size();
        if (!belongs) break;
        descriptors.push_back(jobs_[i].descriptor);
    }
    request.descriptorCount = static_cast<std::uint16_t>(descriptors.size());
    switch (sendRequest(socket(), encodeRequest(request), descriptors)) {
    case SendOutcome::sent: break;
    case SendOutcome::impossible:
        // One of them is not open; which one shows when they are sent one by one.
        if (descriptors.size() > 1) return sendBatch(first, 1);
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
    }
    if (first == 0) watchFront();
    return true;
}

// Takes in what has come. True when there may be more.
bool ReaderClient::receive()
{
    const std::ptrdiff_t count = receiveBytes(socket(), {chunk_.get(), kReadAtOnce});
    if (count < 0) {
        loseReader(Loss::died);
        return false;
    }
    input_.insert(input_.end(), chunk_.get(), chunk_.get() + count);
    while (takeReply()) {
    }
    if (taken_ != 0) {
        input_.erase(input_.begin(), input_.begin() + static_cast<std::ptrdiff_t>(taken_));
        taken_ = 0;
    }
    return count == static_cast<std::ptrdiff_t>(kReadAtOnce);
}

// Takes the next reply out of what has come. False when it is not complete, or none.
bool ReaderClient::takeReply()
{
    const ByteView input = ByteView(input_).subspan(taken_);
    if (input.size() < kReplyHeaderSize) return false;
    const bool isReply = isReady_ && !jobs_.empty() && jobs_.front().isSent;
    if (isReady_ && !isReply) {  // a reply that nobody asked for
        loseReader(Loss::died);
        return false;
    }
    const ReaderTask task = isReply ? jobs_.front().task : ReaderTask::hello;
    const std::uint32_t number = isReply ? jobs_.front().number : 0;
    const std::size_t longest = isReply ? maxBodyLength(task, jobs_.front().box) : 0;
    const std::optional<ReplyHeader> header =
        decodeReplyHeader(input.first(kReplyHeaderSize), task, number, longest);
    if (!header) {
        loseReader(Loss::died);
        return false;
    }
    const std::size_t length = kReplyHeaderSize + header->bodyLength;
    if (input.size() < length) return false;
    if (isReply) {
        if (!finishFront(*header, input.subspan(kReplyHeaderSize, header->bodyLength))) {
            loseReader(Loss::died);
            return false;
        }
    } else {
        becomeReady();
    }
    taken_ += length;
    return true;
}

void ReaderClient::becomeReady()
{
    isReady_ = true;
    failedStarts_ = 0;
    // The time of what it has been sent already begins now.
    for (Job& job : jobs_) {
        if (job.isSent) job.sent = Clock::now();
    }
    watchFront();
    sendJobs();
}

// False when the body is not what was asked for.
bool ReaderClient::finishFront(const ReplyHeader& header, ByteView body)
{
    const Job& job = jobs_.front();
    if (header.outcome == ReplyOutcome::interrupted) {
        if (job.interruptions >= kMostInterruptions) return false;
        resendFrontLater();
        return true;
    }
    if (header.outcome == ReplyOutcome::found && job.task == ReaderTask::properties) {
        std::optional<PictureProperties> properties = decodeProperties(body);
        if (!properties) return false;
        if (job.propertyResult != nullptr) {
            job.propertyResult->properties = std::move(*properties);
        } else if (!job.isGivenUp) {
            properties_ = PropertyResult{ReadOutcome::found, std::move(*properties)};
        }
    } else if (header.outcome == ReplyOutcome::found) {
        std::optional<PreviewReply> reply = decodePreview(body, kindOf(job.task), job.box);
        if (!reply) return false;
        if (!job.isGivenUp) preview_ = PreviewResult{ReadOutcome::found, std::move(*reply)};
    }
    deathsInRow_ = 0;
    dropFront(header.outcome == ReplyOutcome::found ? ReadOutcome::found : ReadOutcome::nothing);
    return true;
}

void ReaderClient::resendFrontLater()
{
    Job job = jobs_.front();
    jobs_.pop_front();
    watchFront();
    if (job.isGivenUp) return;
    job.isSent = false;
    job.interruptions++;
    job.number = nextNumber_++;
    jobs_.push_back(job);
}

void ReaderClient::finish(const Job& job, ReadOutcome outcome)
{
    if (job.propertyResult != nullptr) {
        job.propertyResult->outcome = outcome;
    } else if (job.isGivenUp || outcome == ReadOutcome::found) {
        return;  // nobody waits for it, or it has been kept already
    } else if (job.task == ReaderTask::properties) {
        properties_ = PropertyResult{outcome, {}};
    } else {
        preview_ = PreviewResult{outcome, {}};
    }
}

void ReaderClient::dropFront(ReadOutcome outcome)
{
    finish(jobs_.front(), outcome);
    jobs_.pop_front();
    watchFront();  // the next one's turn begins now
}

void ReaderClient::dropAll(ReadOutcome outcome)
{
    while (!jobs_.empty()) dropFront(outcome);
}

}  // namespace pinorama
