#include "platform/pictures/reader_client.h"

#include <algorithm>
#include <utility>

#include <poll.h>

namespace {
using namespace platform;
using namespace std::chrono_literals;

constexpr int kMostDeaths = 2;          // a picture that two readers died of is given up
constexpr int kMostFailedStarts = 2;    // then there is no reader
constexpr int kDeathsBeforeAPause = 5;  // without a good answer in between
constexpr auto kFirstPause = 100ms;     // doubled with every further death
constexpr auto kLongestPause = 400ms;
constexpr auto kWhenFull = 10ms;  // before another try to send
}  // namespace

platform::ReaderClient::ReaderClient(ReaderLauncher launcher, ReaderLimits limits)
    : launcher_(std::move(launcher)),
      limits_(limits),
      // Most answers fill a small part of it, and the rest is never touched.
      chunk_(std::make_unique_for_overwrite<std::uint8_t[]>(kReadAtOnce))
{
}

void platform::ReaderClient::start()
{
    if (!process_) startProcess();
    changed();
}

void platform::ReaderClient::stop()
{
    giveUpPreview();
    jobs_.clear();
    input_.clear();
    process_.end();
    isReady_ = false;
    deathsInRow_ = failedStarts_ = 0;
    notBefore_ = missingUntil_ = {};
    changed();
}

std::vector<platform::PropertyResult> platform::ReaderClient::readProperties(
    std::span<const int> descriptors)
{
    std::vector<PropertyResult> results(descriptors.size());
    for (std::size_t i = 0; i < descriptors.size(); i++) {
        addJob(ReaderTask::properties, descriptors[i], {}, &results[i]);
    }
    waitWhile([this] { return isWaitedFor(ReaderTask::properties); });
    return results;
}

platform::PropertyResult platform::ReaderClient::readProperties(int descriptor)
{
    return std::move(readProperties(std::span(&descriptor, 1)).front());
}

std::uint32_t platform::ReaderClient::startPreview(int descriptor, PreviewKind kind, PixelSize box)
{
    giveUpPreview();
    const std::uint32_t ticket = nextTicket_++;
    if (nextTicket_ == 0) nextTicket_ = 1;
    previewTicket_ = ticket;
    addJob(kind == PreviewKind::cachedThumbnail ? ReaderTask::cachedThumbnail
                                                : ReaderTask::picturePreview,
           descriptor, box, nullptr);
    step();
    changed();
    return ticket;
}

void platform::ReaderClient::giveUpPreview()
{
    preview_.reset();
    previewTicket_ = 0;
    std::erase_if(jobs_,
                  [](const Job& job) { return job.task != ReaderTask::properties && !job.isSent; });
    for (Job& job : jobs_) {
        if (job.task != ReaderTask::properties) job.isGivenUp = true;
    }
}

std::optional<platform::PreviewResult> platform::ReaderClient::takePreview()
{
    if (preview_) previewTicket_ = 0;
    return std::exchange(preview_, std::nullopt);
}

platform::PreviewResult platform::ReaderClient::waitForPreview()
{
    waitWhile([this] {
        return !preview_ && (isWaitedFor(ReaderTask::picturePreview) ||
                             isWaitedFor(ReaderTask::cachedThumbnail));
    });
    return takePreview().value_or(PreviewResult{});
}

bool platform::ReaderClient::isWaitedFor(ReaderTask task) const
{
    return std::any_of(jobs_.begin(), jobs_.end(),
                       [task](const Job& job) { return job.task == task && !job.isGivenUp; });
}

int platform::ReaderClient::millisecondsLeft() const
{
    if (jobs_.empty() && (!process_ || isReady_)) return -1;
    const Clock::time_point when = !process_   ? notBefore_
                                   : !isReady_ ? startDeadline_
                                               : deadlineOfFront();
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(when - Clock::now());
    return static_cast<int>(std::max(left, 0ms).count());
}

void platform::ReaderClient::advance()
{
    step();
    changed();
}

void platform::ReaderClient::changed()
{
    if (onChange_) onChange_();
}

void platform::ReaderClient::step()
{
    // First what has come: a reader that died or talks out of turn gets no new picture.
    while (process_ && receive()) {
    }
    if (!process_ && !jobs_.empty()) startProcess();
    sendJobs();
    checkTime();
    sendJobs();
}

void platform::ReaderClient::waitWhile(const std::function<bool()>& isOpen)
{
    step();
    while (isOpen()) {
        pollfd state = {socket(), POLLIN, 0};
        (void)poll(&state, socket() >= 0 ? 1 : 0, millisecondsLeft());
        step();
    }
    changed();
}

void platform::ReaderClient::addJob(ReaderTask task, int descriptor, PixelSize box,
                                    PropertyResult* result)
{
    jobs_.push_back({.task = task,
                     .number = nextNumber_++,
                     .descriptor = descriptor,
                     .box = box,
                     .propertyResult = result});
}

std::chrono::milliseconds platform::ReaderClient::limitOf(const Job& job) const
{
    return job.task == ReaderTask::properties ? limits_.properties : limits_.preview;
}

// When the answer to the oldest job has to be there. A preview gives way to what is sent after it.
platform::ReaderClient::Clock::time_point platform::ReaderClient::deadlineOfFront() const
{
    const Job& front = jobs_.front();
    if (!front.isSent) return Clock::now() + kWhenFull;
    const bool givesWay =
        front.task != ReaderTask::properties && jobs_.size() > 1 && jobs_[1].isSent;
    return givesWay ? std::min(front.deadline, jobs_[1].sent + limits_.giveWay) : front.deadline;
}

void platform::ReaderClient::startProcess()
{
    const Clock::time_point now = Clock::now();
    if (now < missingUntil_) {
        declareMissing();
        return;
    }
    if (now < notBefore_) return;
    process_ = launcher_();
    isReady_ = false;
    startDeadline_ = now + limits_.start;
    if (!process_) {
        missingUntil_ = now + limits_.whenMissing;
        declareMissing();
    }
}

void platform::ReaderClient::declareMissing()
{
    while (!jobs_.empty()) dropFront(ReadOutcome::noReader);
}

// The reader is gone, or has to go. Whatever it was working on is to blame, unless `mayTryAgain`:
// it may have died just before the request came.
void platform::ReaderClient::loseReader(bool mayTryAgain)
{
    process_.end();
    input_.clear();
    taken_ = 0;
    const Clock::time_point now = Clock::now();
    if (!isReady_) {
        forgetWhatWasSent();
        if (!mayTryAgain || ++failedStarts_ >= kMostFailedStarts) {
            failedStarts_ = 0;
            missingUntil_ = now + limits_.whenMissing;
            declareMissing();
        }
        if (!jobs_.empty()) startProcess();
        return;
    }
    isReady_ = false;
    deathsInRow_++;
    if (deathsInRow_ >= kDeathsBeforeAPause) {
        const int doublings = std::min(deathsInRow_ - kDeathsBeforeAPause, 5);
        notBefore_ = now + std::min<std::chrono::milliseconds>(kFirstPause * (1 << doublings),
                                                               kLongestPause);
    }
    const bool wasWorking = !jobs_.empty() && jobs_.front().isSent;
    if (wasWorking && jobs_.front().hasCompany) {
        // The answers to one request come together, so nobody knows which picture it was.
        for (Job& job : jobs_) job.isAlone = job.isAlone || (job.isSent && job.hasCompany);
    } else if (wasWorking) {
        Job& job = jobs_.front();
        job.deaths++;
        if (!mayTryAgain || job.deaths >= kMostDeaths) dropFront(ReadOutcome::failed);
    }
    forgetWhatWasSent();
    // The next picture shall not have to wait for the start.
    if (wasWorking) startProcess();
}

// Whatever the reader had is sent again, to the next one.
void platform::ReaderClient::forgetWhatWasSent()
{
    std::erase_if(jobs_, [](const Job& job) { return job.isGivenUp; });
    for (Job& job : jobs_) job.isSent = false;
}

void platform::ReaderClient::checkTime()
{
    const Clock::time_point now = Clock::now();
    if (!process_) return;
    if (!isReady_) {
        if (now >= startDeadline_) loseReader(false);
        return;
    }
    if (jobs_.empty() || !jobs_.front().isSent || now < deadlineOfFront()) return;
    // A preview that only stood in the way is tried again.
    loseReader(now < jobs_.front().deadline);
}
