#include "reader/reader_client.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr int kMostDeaths = 2;          // a picture that two readers died of is given up
constexpr int kMostFailedStarts = 2;    // then there is no reader
constexpr int kDeathsBeforeAPause = 5;  // without a good reply in between
constexpr auto kFirstPause = 100ms;     // doubled with every further death
constexpr auto kLongestPause = 400ms;
constexpr auto kWhenFull = 10ms;      // before another try to send
constexpr auto kWhenCrowded = 100ms;  // before another try to start
}  // namespace

ReaderClient::ReaderClient(ReaderLauncher launcher, ReaderLimits limits)
    : launcher_(std::move(launcher)),
      limits_(limits),
      // Most replies fill a small part of it, and the rest is never touched.
      chunk_(std::make_unique_for_overwrite<std::uint8_t[]>(kReadAtOnce))
{
}

void ReaderClient::start()
{
    if (!process_) startProcess();
    changed();
}

void ReaderClient::stop()
{
    giveUpProperties();
    giveUpPreview();
    jobs_.clear();
    input_.clear();
    process_.end();
    isReady_ = false;
    deathsInRow_ = failedStarts_ = 0;
    notBefore_ = missingUntil_ = {};
    crowdedSince_ = Clock::time_point::max();
    changed();
}

int ReaderClient::millisecondsLeft() const
{
    if (jobs_.empty() && (!process_ || isReady_)) return -1;
    const Clock::time_point now = Clock::now();
    Clock::time_point when = notBefore_;
    if (process_ && isReady_ && !jobs_.front().isSent) {
        when = now + kWhenFull;
    } else if (process_) {
        when = watch_.nextLook(now);
        if (const auto givesWay = whenFrontGivesWay()) when = std::min(when, *givesWay);
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(when - now);
    return static_cast<int>(std::max(left, 0ms).count());
}

void ReaderClient::advance()
{
    step();
    changed();
}

void ReaderClient::changed()
{
    if (onChange_) onChange_();
}

void ReaderClient::step()
{
    // First what has come: a reader that died or talks out of turn gets no new picture.
    while (process_ && receive()) {
    }
    if (!process_ && !jobs_.empty()) startProcess();
    sendJobs();
    checkTime();
    sendJobs();
}

const ReaderPatience& ReaderClient::patienceOf(const Job& job) const
{
    return job.task == ReaderTask::properties ? limits_.properties : limits_.preview;
}

// When others have waited long enough for the oldest job; never when it is not in their way.
std::optional<ReaderClient::Clock::time_point> ReaderClient::whenFrontGivesWay() const
{
    if (!isReady_ || jobs_.size() < 2 || !jobs_.front().isSent) return std::nullopt;
    const Job& front = jobs_.front();
    const Job& next = jobs_[1];
    const bool isPreview = front.task != ReaderTask::properties;
    // The reader stops making a preview by itself when another request comes. Properties that have
    // taken so long already are held up by a disk.
    if (isPreview && next.isSent) return next.sent + limits_.giveWay;
    if (!isPreview && front.isGivenUp) return front.sent + limits_.giveWay;
    return std::nullopt;
}

void ReaderClient::startProcess()
{
    const Clock::time_point now = Clock::now();
    if (now < missingUntil_) {
        dropAll(ReadOutcome::noReader);
        return;
    }
    if (now < notBefore_ || !hasRoomForProcess(now)) return;
    process_ = launcher_();
    isReady_ = false;
    watch_.begin(limits_.start, now);
    if (!process_) {
        missingUntil_ = now + limits_.whenMissing;
        dropAll(ReadOutcome::noReader);
    }
}

// Whoever looks through a disk that does not reply would leave a process there for each picture.
bool ReaderClient::hasRoomForProcess(Clock::time_point now)
{
    if (lingeringReaders() < limits_.mostLingering) {
        crowdedSince_ = Clock::time_point::max();
        return true;
    }
    crowdedSince_ = std::min(crowdedSince_, now);
    notBefore_ = now + kWhenCrowded;
    if (now - crowdedSince_ >= limits_.start.whole) dropAll(ReadOutcome::stuck);
    return false;
}

// The reader is gone, or has to go. Whatever it was working on is to blame, unless it may have died
// just before the request came, or was only in the way.
void ReaderClient::loseReader(Loss loss)
{
    process_.end();
    input_.clear();
    taken_ = 0;
    const Clock::time_point now = Clock::now();
    if (!isReady_) {
        forgetWhatWasSent();
        if (loss == Loss::stuck || ++failedStarts_ >= kMostFailedStarts) {
            failedStarts_ = 0;
            missingUntil_ = now + limits_.whenMissing;
            dropAll(ReadOutcome::noReader);
        }
        if (!jobs_.empty()) startProcess();
        return;
    }
    isReady_ = false;
    const bool wasWorking = !jobs_.empty() && jobs_.front().isSent;
    if (loss != Loss::inTheWay && ++deathsInRow_ >= kDeathsBeforeAPause) {
        const int doublings = std::min(deathsInRow_ - kDeathsBeforeAPause, 5);
        notBefore_ = now + std::min<std::chrono::milliseconds>(kFirstPause * (1 << doublings),
                                                               kLongestPause);
    }
    if (wasWorking && jobs_.front().hasCompany) {
        // The replies to one request come together, so nobody knows which picture it was.
        for (Job& job : jobs_) job.isAlone = job.isAlone || (job.isSent && job.hasCompany);
    } else if (wasWorking) {
        Job& job = jobs_.front();
        job.deaths++;
        if (loss == Loss::stuck) {
            dropFront(ReadOutcome::stuck);
        } else if (job.deaths >= kMostDeaths) {
            dropFront(ReadOutcome::failed);
        }
    }
    forgetWhatWasSent();
    // The next picture shall not have to wait for the start.
    if (wasWorking) startProcess();
}

// Whatever the reader had is sent again, to the next one.
void ReaderClient::forgetWhatWasSent()
{
    std::erase_if(jobs_, [](const Job& job) { return job.isGivenUp; });
    for (Job& job : jobs_) job.isSent = false;
}

// The oldest job's turn begins, if it is with the reader.
void ReaderClient::watchFront()
{
    if (!isReady_ || jobs_.empty() || !jobs_.front().isSent) return;
    watch_.begin(patienceOf(jobs_.front()), Clock::now());
}

void ReaderClient::checkTime()
{
    if (!process_) return;
    const bool isAtWork = !isReady_ || (!jobs_.empty() && jobs_.front().isSent);
    if (!isAtWork) return;
    const Clock::time_point now = Clock::now();
    if (watch_.isDue(now) && watch_.isStuck(now, process_.processorTime())) {
        loseReader(Loss::stuck);
        return;
    }
    const auto givesWay = whenFrontGivesWay();
    if (givesWay && now >= *givesWay) loseReader(Loss::inTheWay);
}

}  // namespace pinorama
